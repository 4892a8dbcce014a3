#include "platform/audio/GraphicEqualizerCascade.h"

#include <algorithm>
#include <limits>

namespace lyrabox {
namespace {

// Frames taken through a section at a time: its coefficients and its state stay in registers
// meanwhile, and the processor works on the next section while the recursion of this one waits for
// its own results.
constexpr std::uint32_t groupFrames = 4;

constexpr float largest = std::numeric_limits<float>::max();

// False for infinities and for what is not a number.
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

// Where nothing changed, the sample keeps its very bits: the sign of a zero and subnormals, too.
void write(float &sample, double filtered)
{
    const auto rounded = static_cast<float>(
        std::clamp(filtered, -static_cast<double>(largest), static_cast<double>(largest)));
    sample = rounded == sample ? sample : rounded;
}

} // namespace

// speed t + (3 length - 2 speed) t^2 + (speed - 2 length) t^3 in steps of t = 1 / rampFrames. It
// never turns back as long as the speed lies between 0 and three times the length.
GraphicEqualizerCascade::Course::Course(double length, double speed)
{
    const double step = 1.0 / rampFrames;
    const double square = (3.0 * length - 2.0 * speed) * step * step;
    const double cube = (speed - 2.0 * length) * step * step * step;
    distance = speed * step + square + cube;
    change = 2.0 * square + 6.0 * cube;
    changeOfChange = 6.0 * cube;
}

double GraphicEqualizerCascade::Course::advance()
{
    const double covered = distance;
    distance += change;
    change += changeOfChange;
    return covered;
}

void GraphicEqualizerCascade::rampTo(const equalizer::Coefficients &coefficients) noexcept
{
    // A ramp that is overtaken by the next one, as when a slider is dragged, goes on at its speed
    // as far as it leads the same way: the old motion's share in the new direction, which never
    // leaves the straight line.
    double along = 0.0;
    double square = 0.0;
    for (std::size_t i = 0; i < equalizer::sectionCount; ++i) {
        const equalizer::Section &section = coefficients.sections[i];
        Section &to = target[i];
        to = {bothLanes(section.c0), bothLanes(section.c1), bothLanes(section.c2),
              bothLanes(section.a1), bothLanes(section.a2)};
        const Section &from = current[i];
        const Section next = {to.c0 - from.c0, to.c1 - from.c1, to.c2 - from.c2, to.a1 - from.a1,
                              to.a2 - from.a2};
        along += next.c0[0] * way[i].c0[0];
        square += next.c0[0] * next.c0[0];
        way[i] = next;
    }
    const bool isMoving = rampLeft != 0;
    const double speed =
        isMoving && square > 0.0 ? progress.distance * rampFrames * along / square : 0.0;
    progress = Course(1.0, std::clamp(speed, 0.0, 3.0));

    // A gain has nothing to lose by overshooting a little, so its speed is kept as it is.
    const double gainSpeed = isMoving ? gainCourse.distance * rampFrames : 0.0;
    gainTarget = coefficients.gain;
    gainCourse = Course(gainTarget - gain, gainSpeed);
    rampLeft = rampFrames;
}

void GraphicEqualizerCascade::clear() noexcept
{
    current = target;
    gain = gainTarget;
    rampLeft = 0;
    states = {};
}

// A section adds nothing to a constant, which tells what its state must be.
void GraphicEqualizerCascade::settleOn(float left, float right) noexcept
{
    const StereoLanes in = stereoLanes(read(left), read(right)) * bothLanes(gain);
    for (std::size_t s = 0; s < equalizer::sectionCount; ++s)
        states[s] = {bothLanes(0.0) - current[s].c0 * in, current[s].c2 * in};
}

// Transposed direct form II, with the section written as a wire and what is added to it: y = x + v.
template <std::uint32_t count, bool isRamping>
void GraphicEqualizerCascade::filter(float *left, float *right) noexcept
{
    StereoLanes signal[count];
    StereoLanes share[count];
    for (std::uint32_t i = 0; i < count; ++i) {
        if (isRamping) {
            gain += gainCourse.advance();
            share[i] = bothLanes(progress.advance());
        }
        signal[i] = stereoLanes(read(left[i]), read(right[i])) * bothLanes(gain);
    }
    for (std::size_t s = 0; s < equalizer::sectionCount; ++s) {
        Section section = current[s];
        State state = states[s];
        for (std::uint32_t i = 0; i < count; ++i) {
            if (isRamping) {
                section.c0 += way[s].c0 * share[i];
                section.c1 += way[s].c1 * share[i];
                section.c2 += way[s].c2 * share[i];
                section.a1 += way[s].a1 * share[i];
                section.a2 += way[s].a2 * share[i];
            }
            const StereoLanes in = signal[i];
            const StereoLanes added = section.c0 * in + state.first;
            state.first = (section.c1 * in + state.second) - section.a1 * added;
            state.second = section.c2 * in - section.a2 * added;
            signal[i] = in + added;
        }
        states[s] = state;
        if (isRamping)
            current[s] = section;
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
    const std::uint32_t ramped = std::min(frames, rampLeft);
    if (ramped != 0) {
        filterRun<true>(left, right, ramped);
        rampLeft -= ramped;
        if (rampLeft == 0) { // sums of steps end a rounding error beside the target
            current = target;
            gain = gainTarget;
        }
    }
    filterRun<false>(left + ramped, right + ramped, frames - ramped);
}

} // namespace lyrabox
