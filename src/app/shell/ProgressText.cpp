#include "app/shell/ProgressText.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <limits>

namespace lyrabox {

namespace {

/// The translation context of these texts.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(ProgressText)
};

/// `number` in the type that Qt uses to choose a plural form.
int plural(qint64 number)
{
    return static_cast<int>(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

} // namespace

QString listProgressText(qint64 done, qint64 found)
{
    return Text::tr("Reading songs: %1 of %Ln", nullptr, plural(found))
        .arg(QLocale().toString(done));
}

QString searchProgressText(qint64 found)
{
    return Text::tr("Searching folders: %Ln files", nullptr, plural(found));
}

QString skipProgressText(qint64 done, qint64 total)
{
    return Text::tr("Skipping songs that cannot be loaded: %1 of %Ln", nullptr, plural(total))
        .arg(QLocale().toString(done));
}

QString withStopHint(const QString &text)
{
    return text + u'\n' + Text::tr("Escape stops it");
}

QString loadProgressText(qint64 seconds, qint64 total)
{
    if (total <= 0)
        return Text::tr("Loading: %Ln seconds", nullptr, plural(seconds));
    return Text::tr("Loading: %1 of %Ln seconds", nullptr, plural(std::max(seconds, total)))
        .arg(QLocale().toString(seconds));
}

} // namespace lyrabox
