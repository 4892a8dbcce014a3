#pragma once

#include <QRect>

namespace lyrabox {

/// How the practice pane and the lists share the window. Heights are in device-independent pixels.
namespace paneLayout {

inline constexpr int minimumHeight = 240;
inline constexpr int maximumHeight = 460;
/// The height of the pane until the user moves its divider.
inline constexpr int usualHeight = 320;
/// The lists are not shown with less than this.
inline constexpr int leastListHeight = 150;
/// From this height on the pane shows the overview of the song.
inline constexpr int overviewHeight = 280;
/// From this size on the loops and another page stand beside each other.
inline constexpr int twoPagesWidth = 1000;
inline constexpr int twoPagesHeight = 400;
/// The room at the left and right edge of the pane.
inline constexpr int sideMargin = 14;

enum class Place {
    Below,  ///< below the lists
    Instead ///< in the place of the lists
};

/// Where the pane is, and how high.
struct Share {
    Place place;
    int height; ///< of the pane

    bool operator==(const Share &) const = default;
};

/// Shares `available` between the lists and a pane that should be `wanted` high. The pane shrinks
/// down to its minimum before it takes the place of the lists.
Share share(int available, int wanted);

/// The frame of a window that gets `by` higher on a screen where `screen` is free. It grows as far
/// as there is room, downwards first. A frame without room stays as it is.
QRect grown(const QRect &frame, const QRect &screen, int by);

} // namespace paneLayout
} // namespace lyrabox
