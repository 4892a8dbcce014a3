#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Positions in the windows, in pixels of their contents at the sizes given here. This is the only
/// table of positions. Nearly all are the middle of a control, so the control may move by some
/// pixels. Tests that need exact positions measure them on the screen.
namespace lyrabox::test::place {

inline constexpr QRect mainWindow{20, 20, 1120, 720};
inline constexpr QRect equalizerWindow{100, 60, 780, 360};

inline constexpr QPoint addFolderButton{22, 493};
inline constexpr QPoint removeFolderButton{47, 493};
inline constexpr QPoint searchField{990, 53};
/// The message line, without the number of songs.
inline constexpr QRect messageLine{320, 44, 480, 18};
inline constexpr QPoint titleHeader{420, 91};

/// The titles of the menu bar, and the first item of a menu.
inline constexpr QPoint viewMenu{127, 14};
inline constexpr QPoint songListCommand{155, 47};

inline constexpr QPoint forwardButton{334, 669};
/// Inside each control, without its frame.
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
/// An empty part of a row. Its colour shows whether the row is selected.
inline constexpr QPoint sourceRowEnd(int row)
{
    return {218, 86 + row * sourceRowHeight};
}
/// The triangle that expands a top-level row.
inline constexpr QPoint sourceRowArrow(int row)
{
    return {9, 86 + row * sourceRowHeight};
}

inline constexpr int songRowHeight = 26;
inline constexpr QPoint songRow(int row)
{
    return {420, 117 + row * songRowHeight};
}
/// The title of a row, away from the pointer that has clicked a song.
inline constexpr QRect songRowTitle(int row)
{
    return {258, 106 + row * songRowHeight, 140, songRowHeight - 4};
}

/// The mark in a row whose song has kept speed and pitch.
inline constexpr QRect songRowStar(int row)
{
    return {1094, 108 + row * songRowHeight, 24, songRowHeight - 8};
}

/// In the popover at the add button.
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
inline constexpr QPoint oneKilohertzTop{527, 24};

} // namespace lyrabox::test::place
