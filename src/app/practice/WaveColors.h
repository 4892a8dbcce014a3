#pragma once

#include "platform/analysis/PeakPyramid.h"

#include <QColor>
#include <QString>

namespace lyrabox {

/// The colours of a wave. All of them have a contrast of at least 3 : 1 with the background, except
/// the pale ones of the outer shape.
namespace waveColors {

/// Low sounds are dark and high ones light, so that brightness alone tells them apart.
inline constexpr QColor low{0x14, 0x2F, 0x4D};
inline constexpr QColor middle{0x21, 0x6B, 0xA5};
inline constexpr QColor high{0x2F, 0x8B, 0xCB};
/// The wave outside the loop, and a part whose bands are not measured yet.
inline constexpr QColor gray{0x87, 0x92, 0x9A};
inline constexpr QColor background{0xFF, 0xFF, 0xFF};
/// The background inside the loop.
inline constexpr QColor loopBackground{0xE6, 0xF3, 0xFB};
/// Lines of beats and of the first beats of bars, on both backgrounds.
inline constexpr QColor beat{0x7E, 0x89, 0x91};
inline constexpr QColor bar{0x46, 0x53, 0x5F};
/// The hatching where beats are lost.
inline constexpr QColor hatch = beat;
/// The ends of the loop and its bracket.
inline constexpr QColor loop{0x8E, 0x6B, 0xBF};

/// The best speed of a loop.
inline constexpr QColor best{0x1E, 0x7B, 0x55};

/// Flags of markers and their names.
inline constexpr QColor marker{0xA0, 0x5C, 0x16};

/// The colour of a kept loop; `number` is 1 to PracticeLimits::colours. The first one is `loop`.
QColor loopColor(int number);
/// Its translated name.
QString loopColorName(int number);
/// The ground of a loop that does not sound: dark text is readable on it.
QColor quiet(const QColor &color);

/// The one hue of a column, mixed from its three bands.
QColor hue(const PeakColumn &column);
/// The colour of the outer shape around an inner one of `inner`.
QColor pale(const QColor &inner);

} // namespace waveColors
} // namespace lyrabox
