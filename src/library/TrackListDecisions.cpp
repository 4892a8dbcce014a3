#include "library/TrackListDecisions.h"

#include "app/controls/LB_TableHeaderCell.h"

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
    return trimmedHeaderText(title) + (ascending ? u"  ▲"_s : u"  ▼"_s);
}

} // namespace lyrabox
