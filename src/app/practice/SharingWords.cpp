#include "app/practice/SharingWords.h"

#include "practice/SongTime.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <cmath>
#include <cstdlib>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::PracticeSharing)
};

/// "+26 ms" or "−1.4 s".
QString way(std::int64_t frames)
{
    const QLocale locale;
    const QString sign = frames < 0 ? QStringLiteral("−") : QStringLiteral("+");
    const double milliseconds =
        std::round(1000.0 * static_cast<double>(std::abs(frames)) / practiceRate);
    if (milliseconds < 1000.0)
        return Text::tr("%1 ms").arg(sign + locale.toString(milliseconds, 'f', 0));
    return Text::tr("%1 s").arg(sign + locale.toString(milliseconds / 1000.0, 'f', 2));
}

/// Less than this is no move that one could hear.
bool isMoved(std::int64_t frames)
{
    return std::abs(frames) >= static_cast<std::int64_t>(practiceRate) / 1000;
}

QString loops(std::size_t count)
{
    return count == 1 ? Text::tr("1 loop") : Text::tr("%1 loops").arg(count);
}

QString markers(std::size_t count)
{
    return count == 1 ? Text::tr("1 marker") : Text::tr("%1 markers").arg(count);
}

QString beatsOf(const PracticeMerge &merge)
{
    for (const PracticeEdit &edit : merge.edits) {
        if (std::holds_alternative<PutBeats>(edit))
            return Text::tr("the beats");
    }
    return {};
}

QString added(const PracticeMerge &merge)
{
    QStringList parts;
    if (merge.loops > 0)
        parts.append(loops(merge.loops));
    if (merge.markers > 0)
        parts.append(markers(merge.markers));
    if (const QString beats = beatsOf(merge); !beats.isEmpty())
        parts.append(beats);
    QStringList said;
    if (parts.isEmpty())
        said.append(Text::tr("Nothing was added."));
    else
        said.append(Text::tr("Added: %1.").arg(parts.join(QStringLiteral(", "))));
    if (merge.known > 0)
        said.append(Text::tr("Here already: %1.").arg(merge.known));
    if (merge.left > 0)
        said.append(Text::tr("No room for %1 more.").arg(merge.left));
    return said.join(u' ');
}

} // namespace

QString sharingWords::offer(std::int64_t offsetFrames)
{
    const QString made = Text::tr("These loops were made for another copy of this song.");
    return isMoved(offsetFrames) ? made + u' ' + Text::tr("Moved by %1.").arg(way(offsetFrames))
                                 : made;
}

QString sharingWords::taken(const PracticeMerge &merge, std::int64_t offsetFrames, bool isWhole)
{
    QString said = added(merge);
    if (isMoved(offsetFrames) && !merge.edits.empty())
        said += u' ' + Text::tr("Moved by %1.").arg(way(offsetFrames));
    if (!isWhole)
        said += u' ' + Text::tr("Some entries of the file were left out.");
    return said;
}

QString sharingWords::takenFor(const QString &song, const PracticeMerge &merge)
{
    return Text::tr("For “%1”: %2").arg(song, added(merge));
}

QString sharingWords::question(const QString &madeFor, const QString &song)
{
    return madeFor.isEmpty()
               ? Text::tr("Use these loops for “%1”?").arg(song)
               : Text::tr("These loops are for “%1”. Use them for “%2”?").arg(madeFor, song);
}

QString sharingWords::problem(SharedPractice::Problem problem, const QString &file)
{
    using Problem = SharedPractice::Problem;
    switch (problem) {
    case Problem::None:
        break;
    case Problem::Unreadable:
        return Text::tr("“%1” cannot be read.").arg(file);
    case Problem::TooLarge:
        return Text::tr("“%1” is too large for a practice file.").arg(file);
    case Problem::Newer:
        return Text::tr("“%1” was made by a later version of Lyrabox.").arg(file);
    case Problem::Unknown:
        return Text::tr("“%1” is neither a practice file nor a label track.").arg(file);
    case Problem::Empty:
        return Text::tr("“%1” has no loops and no markers.").arg(file);
    }
    return {};
}

QString sharingWords::noSong(const QString &file)
{
    return Text::tr("Play the song that “%1” is for, and open the file again.").arg(file);
}

QString sharingWords::notTaken()
{
    return Text::tr("The loops of this song cannot be changed, or there is no room for so many.");
}

QString sharingWords::notWritten(const QString &file)
{
    return Text::tr("“%1” cannot be written.").arg(file);
}

QString sharingWords::shared(const QString &file)
{
    return Text::tr("“%1” was written.").arg(file);
}

} // namespace lyrabox
