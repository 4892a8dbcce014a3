#include "library/EmptyListText.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(EmptyListText)
};

int plural(qint64 number)
{
    return static_cast<int>(std::min<qint64>(number, std::numeric_limits<int>::max()));
}

/// Shortens a text, which may have line breaks, to one short line.
QString oneLine(const QString &text)
{
    constexpr qsizetype maxLength = 60;
    const QString line = text.simplified();
    return line.size() > maxLength ? line.left(maxLength) + QChar(u'…') : line;
}

QString folderText(const ListOrigin &origin)
{
    if (!origin.isReadable)
        return Text::tr("This folder cannot be read.");
    if (origin.foldersInside == 0)
        return Text::tr("No songs here.");
    if (origin.foldersInside == 1)
        return Text::tr("No songs here. Open the folder with its arrow: 1 folder inside.");
    return Text::tr("No songs here. Open the folder with its arrow: %Ln folders inside.", nullptr,
                    plural(origin.foldersInside));
}

} // namespace

QString emptyListText(const ListOrigin &origin, qint64 songs, const QString &searchText)
{
    using Kind = ListOrigin::Kind;
    if (songs > 0)
        return Text::tr("Nothing matches '%1'.").arg(oneLine(searchText));
    if (origin.isIncomplete)
        return Text::tr("Stopped before a song was read.");
    switch (origin.kind) {
    case Kind::None:
        return Text::tr("Choose a playlist or folder");
    case Kind::Playlist:
        return Text::tr("This playlist has no songs.");
    case Kind::Folder:
        return folderText(origin);
    case Kind::Tree:
        return origin.isReadable ? Text::tr("No songs here or in the folders inside.")
                                 : folderText(origin);
    case Kind::Files:
        return Text::tr("No songs here.");
    }
    return {};
}

} // namespace lyrabox
