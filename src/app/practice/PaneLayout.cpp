#include "app/practice/PaneLayout.h"

#include <algorithm>

namespace lyrabox::paneLayout {

Share share(int available, int wanted)
{
    const int room = available - leastListHeight;
    if (room < minimumHeight)
        return {Place::Instead, std::max(0, available)};
    return {Place::Below, std::min(std::clamp(wanted, minimumHeight, maximumHeight), room)};
}

QRect grown(const QRect &frame, const QRect &screen, int by)
{
    const int more = std::min(by, screen.height() - frame.height());
    if (more <= 0)
        return frame;
    QRect result(frame.topLeft(), QSize(frame.width(), frame.height() + more));
    if (result.bottom() > screen.bottom())
        result.moveBottom(std::max(screen.bottom(), frame.bottom()));
    return result;
}

} // namespace lyrabox::paneLayout
