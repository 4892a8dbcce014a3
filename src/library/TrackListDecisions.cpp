#include "library/TrackListDecisions.h"

#include <algorithm>

namespace lyrabox {

using namespace Qt::Literals::StringLiterals;

std::optional<int> scrollTarget(int playingRow, int firstVisible, int visibleCount, int rowCount)
{
    if (playingRow < 0 || playingRow >= rowCount)
        return std::nullopt;
    if (playingRow >= firstVisible && playingRow < firstVisible + visibleCount)
        return std::nullopt;
    const int half = visibleCount / 2;
    if (playingRow < firstVisible)
        return std::max(playingRow - half, 0);
    return std::min(playingRow + half, rowCount - 1);
}

QString sortedColumnTitle(const QString &title, bool ascending)
{
    const auto isDecoration = [](QChar c) { return u" ▲▼"_s.contains(c); };
    QStringView bare(title);
    while (!bare.isEmpty() && isDecoration(bare.front()))
        bare = bare.sliced(1);
    while (!bare.isEmpty() && isDecoration(bare.back()))
        bare.chop(1);
    return bare.toString() + (ascending ? u"  ▲"_s : u"  ▼"_s);
}

} // namespace lyrabox
