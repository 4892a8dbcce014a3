#pragma once

#include <QString>

#include <cstdint>

/// The decisions of the transport that need no controls. Pure functions; any thread.
namespace lyrabox::transport {

constexpr float normalSpeed = 100.0F; ///< percent
constexpr float normalPitch = 0.0F;   ///< cents
constexpr float speedStep = 5.0F;     ///< percent
constexpr float pitchStep = 100.0F;   ///< cents, one semitone

/// The value after a cell of a step matrix was pressed. Tag 0 gives one step down, tag 1 the normal
/// value, tag 2 one step up, and any other tag the current value. A step from a value in hundredths
/// gives the float nearest to the target hundredth, so a step back returns to the same float.
float stepped(int tag, float current, float step, float normal);

/// The engine's rate for a speed in percent.
constexpr float rateOf(float percent)
{
    return percent / 100.0F;
}

/// Whether a typed number is accepted. 0 is not, because text that is not a number also reads as 0:
/// docs/kept-on-purpose.md.
bool isAcceptedEntry(float value);

/// The pitch as it is shown and stored: in whole cents, truncated toward zero, clamped to 16 bits.
std::int16_t wholeCents(float cents);

/// "artist ● album". If one of them is empty, only the other.
QString artistLine(const QString &artist, const QString &album);

} // namespace lyrabox::transport
