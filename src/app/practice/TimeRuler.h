#pragma once

#include <QString>

namespace lyrabox {

/// The times that are marked below a wave.
namespace timeRuler {

/// The seconds from mark to mark where a point of the view is `secondsPerPoint` long. The marks
/// have room for their texts.
double step(double secondsPerPoint);

/// The text of a mark: "1:05", with as many decimals as marks of that step need.
QString text(double seconds, double step);

/// A time as it is written for a loop: "1:05.250".
QString exactText(double seconds);

} // namespace timeRuler
} // namespace lyrabox
