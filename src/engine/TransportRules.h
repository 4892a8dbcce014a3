#pragma once

#include <QString>

#include <cstdint>

/// What the transport decides without its controls.
namespace lyrabox::transport {

constexpr float normalSpeed = 100.0F; ///< percent
constexpr float normalPitch = 0.0F;   ///< cents
constexpr float speedStep = 5.0F;     ///< percent
constexpr float pitchStep = 100.0F;   ///< cents, one semitone

/// What a cell of a step matrix makes of the current value: tag 0 one step down, 1 the normal
/// value, 2 one step up, any other the current value. A step from a value in hundredths gives the
/// float nearest to the hundredth that it leads to, so a step back returns to the same float.
float stepped(int tag, float current, float step, float normal);

/// The engine's rate for a speed in percent.
constexpr float rateOf(float percent)
{
    return percent / 100.0F;
}

/// Whether a typed number is taken: 0, which is also what text that is no number reads as, is not.
bool isAcceptedEntry(float value);

/// Cents as the pitch is shown and stored: whole, truncated toward zero, within 16 bits.
std::int16_t wholeCents(float cents);

/// "artist ● album", or the one of them that is not empty.
QString artistLine(const QString &artist, const QString &album);

} // namespace lyrabox::transport
