#pragma once

namespace lyrabox {

/// Turns measured positions, which are exact to about 10 ms, into one that moves evenly. Times are
/// in milliseconds of any clock, positions in frames.
class SmoothPosition {
public:
    /// Begins at `frame`; the next measurement continues from there.
    void jumpTo(double frame, double now);

    /// Takes a measurement and returns the position to show. It moves by `framesPerMillisecond`,
    /// and a tenth of its distance from the measurement is made up each time. It never moves back,
    /// unless the measurement is further than `jump` away: then it is shown as it is.
    double measured(double frame, double now, double framesPerMillisecond, double jump);

    /// The last position.
    double position() const { return m_position; }

private:
    double m_position = 0.0;
    double m_time = 0.0;
};

} // namespace lyrabox
