#pragma once

#include <optional>

namespace lyrabox {

/// Keeps a value from jumping when a pedal is moved that stands elsewhere. The pedal takes the
/// value over when it reaches it or passes it. If something else changes the value, the pedal has
/// to reach it again. One thread at a time.
class SoftTakeOver {
public:
    /// The pedal moves to `position`, from 0 to 1, while the value is at `current`, from 0 to 1 or
    /// beyond if the pedal does not reach all values. Returns the new value; none while the pedal
    /// has not taken over.
    std::optional<double> move(double position, double current);

    /// The pedal was at a position on its way to the next move().
    void passBy(double position);

    /// What setting the value gave, if it was rounded.
    void setReached(double value) { m_set = value; }

private:
    double m_lowest = 2.0; ///< of the positions since the last move, and of that
    double m_highest = -1.0;
    std::optional<double> m_set; ///< the value that the pedal gave; none before it took over
};

} // namespace lyrabox
