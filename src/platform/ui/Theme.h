#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>

class QPainter;

namespace lyrabox {

/// The one palette and grid of the program. Texts on `window` and on `surface` keep a contrast
/// of 4.5 : 1.
namespace Theme {

inline constexpr QColor accent{0x34, 0x98, 0xDB};
/// The accent where white text stands on it.
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
/// The height of a row of the track table, and of a row in the trees and the preset list.
inline constexpr int rowHeight = 26;
inline constexpr int sourceRowHeight = 24;
/// The height of push buttons, fields and segments.
inline constexpr int controlHeight = 26;
/// The corner radius of boxes and fields.
inline constexpr double radius = 5.0;
/// The size of ordinary text, in points.
inline constexpr double textSize = 13.0;

} // namespace Theme

/// The interface's typeface: Helvetica where it is installed, else the closest relative that is,
/// else the desktop's own sans-serif. A point is one device-independent pixel, as in every measure
/// of the interface.
QFont uiFont(double points);

/// The height of a line of uiFont(points), by the proportions of ordinary text: the font itself is
/// not loaded for it.
double uiLineHeight(double points);

/// Gives the one application the light look of the program, whatever theme the desktop has.
void applyApplicationTheme();

/// A ring of 2 pixels just inside `rect`, for the control that has the keyboard.
void drawFocusRing(QPainter &painter, const QRectF &rect, double radius);

/// A white box with a hairline border, the ground of joined buttons and fields.
void drawControlBox(QPainter &painter, const QRectF &rect, double radius, bool pressed = false);

} // namespace lyrabox
