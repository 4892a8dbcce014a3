#include "platform/audio/GraphicEqualizerCascade.h"

#include <algorithm>
#include <limits>

namespace lyrabox {
namespace {

// The number of frames that a section filters at a time. Its coefficients and state stay in
// registers during a run, and the processor can start on the next section while this one's
// recursion waits for its own results.
constexpr std::uint32_t groupFrames = 4;

constexpr float largest = std::numeric_limits<float>::max();

// False for infinities and NaN.
bool isFinite(float sample)
{
    return sample >= -largest && sample <= largest;
}

double read(float &sample)
{
    if (!isFinite(sample))
        sample = 0.0F;
    return sample;
}

// A sample that did not change keeps its bits, so the sign of zero and subnormals are preserved.
void write(float &sample, double filtered)
{
    const auto rounded = static_cast<float>(
        std::clamp(filtered, -static_cast<double>(largest), static_cast<double>(largest)));
    sample = rounded == sample ? sample : rounded;
}

} // namespace

// speed t + (3 length - 2 speed) t^2 + (speed - 2 length) t^3 in steps of t = 1 / rampFrames. The
// movement never turns back if the speed lies between 0 and three times the length.
GraphicEqualizerCascade::Movement::Movement(double length, double speed)
{
    const double step = 1.0 / rampFrames;
    const double square = (3.0 * length - 2.0 * speed) * step * step;
    const double cube = (speed - 2.0 * length) * step * step * step;
    distance = speed * step + square + cube;
    change = 2.0 * square + 6.0 * cube;
    changeOfChange = 6.0 * cube;
}

double GraphicEqualizerCascade::Movement::advance()
{
    const double covered = distance;
    distance += change;
    change += changeOfChange;
    return covered;
}

void GraphicEqualizerCascade::rampTo(const equalizer::Coefficients &coefficients) noexcept
{
    // While a slider is dragged, the next ramp starts before the last one has ended. The new ramp
    // begins with the component of the old speed that points in the new direction. So the section
    // never leaves the straight line to its target.
    double along = 0.0;
    double square = 0.0;
    for (std::size_t i = 0; i < equalizer::sectionCount; ++i) {
        const equalizer::Section &section = coefficients.sections[i];
        Section &to = m_target[i];
        to = {bothLanes(section.c0), bothLanes(section.c1), bothLanes(section.c2),
              bothLanes(section.a1), bothLanes(section.a2)};
        const Section &from = m_current[i];
        const Section next = {to.c0 - from.c0, to.c1 - from.c1, to.c2 - from.c2, to.a1 - from.a1,
                              to.a2 - from.a2};
        along += next.c0[0] * m_difference[i].c0[0];
        square += next.c0[0] * next.c0[0];
        m_difference[i] = next;
    }
    const bool isMoving = m_rampLeft != 0;
    const double speed =
        isMoving && square > 0.0 ? m_progress.distance * rampFrames * along / square : 0.0;
    m_progress = Movement(1.0, std::clamp(speed, 0.0, 3.0));

    // A gain may overshoot a little without harm, so it simply keeps its speed.
    const double gainSpeed = isMoving ? m_gainMovement.distance * rampFrames : 0.0;
    m_gainTarget = coefficients.gain;
    m_gainMovement = Movement(m_gainTarget - m_gain, gainSpeed);
    m_rampLeft = rampFrames;
}

void GraphicEqualizerCascade::clear() noexcept
{
    m_current = m_target;
    m_gain = m_gainTarget;
    m_rampLeft = 0;
    m_states = {};
}

// A section passes a constant signal unchanged, which determines its state.
void GraphicEqualizerCascade::settleOn(float left, float right) noexcept
{
    const StereoLanes in = stereoLanes(read(left), read(right)) * bothLanes(m_gain);
    for (std::size_t s = 0; s < equalizer::sectionCount; ++s)
        m_states[s] = {bothLanes(0.0) - m_current[s].c0 * in, m_current[s].c2 * in};
}

// Transposed direct form II. The section is written as a wire plus a correction: y = x + v.
template <std::uint32_t count, bool isRamping>
void GraphicEqualizerCascade::filter(float *left, float *right) noexcept
{
    StereoLanes signal[count];
    StereoLanes share[count];
    for (std::uint32_t i = 0; i < count; ++i) {
        if (isRamping) {
            m_gain += m_gainMovement.advance();
            share[i] = bothLanes(m_progress.advance());
        }
        signal[i] = stereoLanes(read(left[i]), read(right[i])) * bothLanes(m_gain);
    }
    for (std::size_t s = 0; s < equalizer::sectionCount; ++s) {
        Section section = m_current[s];
        State state = m_states[s];
        for (std::uint32_t i = 0; i < count; ++i) {
            if (isRamping) {
                section.c0 += m_difference[s].c0 * share[i];
                section.c1 += m_difference[s].c1 * share[i];
                section.c2 += m_difference[s].c2 * share[i];
                section.a1 += m_difference[s].a1 * share[i];
                section.a2 += m_difference[s].a2 * share[i];
            }
            const StereoLanes in = signal[i];
            const StereoLanes added = section.c0 * in + state.first;
            state.first = (section.c1 * in + state.second) - section.a1 * added;
            state.second = section.c2 * in - section.a2 * added;
            signal[i] = in + added;
        }
        m_states[s] = state;
        if (isRamping)
            m_current[s] = section;
    }
    for (std::uint32_t i = 0; i < count; ++i) {
        write(left[i], signal[i][0]);
        write(right[i], signal[i][1]);
    }
}

template <bool isRamping>
void GraphicEqualizerCascade::filterRun(float *left, float *right, std::uint32_t frames) noexcept
{
    std::uint32_t done = 0;
    for (; frames - done >= groupFrames; done += groupFrames)
        filter<groupFrames, isRamping>(left + done, right + done);
    for (; done < frames; ++done)
        filter<1, isRamping>(left + done, right + done);
}

void GraphicEqualizerCascade::process(float *left, float *right, std::uint32_t frames) noexcept
{
    const std::uint32_t ramped = std::min(frames, m_rampLeft);
    if (ramped != 0) {
        filterRun<true>(left, right, ramped);
        m_rampLeft -= ramped;
        if (m_rampLeft == 0) { // The summed steps miss the target by a rounding error.
            m_current = m_target;
            m_gain = m_gainTarget;
        }
    }
    filterRun<false>(left + ramped, right + ramped, frames - ramped);
}

} // namespace lyrabox
