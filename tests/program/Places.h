#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where a person finds things: the one table of positions, in pixels of the windows' contents at
/// the sizes given here. Nearly everything is the middle of a control, so that it may move by some
/// pixels; what has to be exact is measured on the screen.
namespace lyrabox::test::place {

inline constexpr QRect mainWindow{20, 20, 1120, 720};
inline constexpr QRect equalizerWindow{100, 60, 780, 360};

inline constexpr QPoint addFolderButton{22, 493};
inline constexpr QPoint removeFolderButton{47, 493};
inline constexpr QPoint searchField{990, 53};
/// Where a message about songs stands, clear of the number of songs.
inline constexpr QRect messageLine{320, 44, 480, 18};
inline constexpr QPoint titleHeader{420, 91};

/// The titles of the menu bar, and what is listed first in a menu.
inline constexpr QPoint viewMenu{127, 14};
inline constexpr QPoint songListCommand{155, 47};

inline constexpr QPoint forwardButton{334, 669};
/// Within each, clear of its frame.
inline constexpr QRect shuffleButton{824, 40, 28, 28};
inline constexpr QRect speedField{610, 672, 50, 18};
inline constexpr QRect pitchField{872, 672, 50, 18};
/// In the navigation bar, between its texts.
inline constexpr QPoint navigationBar(QSize window)
{
    return {window.width() / 2, window.height() - 116};
}

inline constexpr int sourceRowHeight = 24;
inline constexpr QPoint sourceRow(int row)
{
    return {80, 86 + row * sourceRowHeight};
}
/// Where a row is empty but for the ground that tells whether it is selected.
inline constexpr QPoint sourceRowEnd(int row)
{
    return {218, 86 + row * sourceRowHeight};
}
/// The triangle that opens and closes a row without a parent.
inline constexpr QPoint sourceRowArrow(int row)
{
    return {9, 86 + row * sourceRowHeight};
}

inline constexpr int songRowHeight = 26;
inline constexpr QPoint songRow(int row)
{
    return {420, 117 + row * songRowHeight};
}
/// Where a row's title stands, clear of the pointer that has clicked a song.
inline constexpr QRect songRowTitle(int row)
{
    return {258, 106 + row * songRowHeight, 140, songRowHeight - 4};
}

/// Where a row shows that speed and pitch are kept.
inline constexpr QRect songRowStar(int row)
{
    return {1094, 108 + row * songRowHeight, 24, songRowHeight - 8};
}

/// In the popover beside the add button.
inline constexpr QPoint browserRow(int row)
{
    return {200, 354 + row * sourceRowHeight};
}
inline constexpr QPoint browserRowArrow{96, 354};
inline constexpr QPoint browserOk{353, 657};
inline constexpr QPoint removeOk{309, 513};

/// In the equalizer window.
inline constexpr QPoint presetRow(int row)
{
    return {60, 12 + row * 24};
}
inline constexpr QPoint oneKilohertzMiddle{527, 138};
inline constexpr QPoint oneKilohertzTop{527, 20};

} // namespace lyrabox::test::place
