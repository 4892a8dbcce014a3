#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

namespace lyrabox {

/// The colours and measures of the whole program. Texts on `window` and on `surface` have a
/// contrast of at least 4.5 : 1. The functions belong to the main thread.
namespace Theme {

inline constexpr QColor accent{0x34, 0x98, 0xDB};
/// The accent colour behind white text.
inline constexpr QColor strongAccent{0x24, 0x71, 0xA3};
inline constexpr QColor accentPressed{0x2A, 0x7F, 0xB8};
inline constexpr QColor lineGray{0xBD, 0xC3, 0xC7};
inline constexpr QColor hairline{0xE4, 0xE8, 0xEA};
inline constexpr QColor window{0xEC, 0xF0, 0xF1};
inline constexpr QColor sidebar{0xF4, 0xF6, 0xF8};
inline constexpr QColor surface{0xFF, 0xFF, 0xFF};
inline constexpr QColor pressed{0xE2, 0xE7, 0xEA};
inline constexpr QColor text{0x2C, 0x3E, 0x50};
inline constexpr QColor secondaryText{0x56, 0x65, 0x73};
inline constexpr QColor disabledText{0x95, 0xA0, 0xA8};
inline constexpr QColor focusRing{0x1B, 0x6C, 0xA8};

/// Distances between and around controls are multiples of this, in device-independent pixels.
inline constexpr int grid = 8;
/// The height of a row in device-independent pixels: in the track table, and in the trees and the
/// preset list.
inline constexpr int rowHeight = 26;
inline constexpr int sourceRowHeight = 24;
/// The height of push buttons, fields and segments.
inline constexpr int controlHeight = 26;
/// The corner radius of boxes and fields.
inline constexpr double radius = 5.0;
/// The size of ordinary text, in points.
inline constexpr double textSize = 13.0;

} // namespace Theme

/// The typeface of the interface: Helvetica if it is installed, otherwise its closest installed
/// relative, otherwise the desktop's own sans-serif. One point is one device-independent pixel, as
/// everywhere in the interface.
QFont uiFont(double points);

/// The line height of uiFont(points), scaled from that of ordinary text. The font itself is not
/// loaded.
double uiLineHeight(double points);

/// Gives the application the program's light look, regardless of the desktop's theme.
void applyApplicationTheme();

/// Draws a ring, 2 pixels wide, just inside `rect`. It marks the control that has the keyboard.
void drawFocusRing(QPainter &painter, const QRectF &rect, double radius);

/// Draws a box with a thin border, the background of joined buttons and fields. It is white, or
/// gray if `pressed`.
void drawControlBox(QPainter &painter, const QRectF &rect, double radius, bool pressed = false);

} // namespace lyrabox
