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

void GraphicEqualizerCascade::rampTo(const equalizer::Coefficients &coefficients) noexcept
{
    const StereoLanes perFrame = bothLanes(1.0 / rampFrames);
    for (std::size_t i = 0; i < equalizer::sectionCount; ++i) {
        const equalizer::Section &section = coefficients.sections[i];
        Section &to = target[i];
        to = {bothLanes(section.c0), bothLanes(section.c1), bothLanes(section.c2),
              bothLanes(section.a1), bothLanes(section.a2)};
        const Section &from = current[i];
        step[i] = {(to.c0 - from.c0) * perFrame, (to.c1 - from.c1) * perFrame,
                   (to.c2 - from.c2) * perFrame, (to.a1 - from.a1) * perFrame,
                   (to.a2 - from.a2) * perFrame};
    }
    gainTarget = bothLanes(coefficients.gain);
    gainStep = (gainTarget - gain) * perFrame;
    rampLeft = rampFrames;
}

void GraphicEqualizerCascade::clear() noexcept
{
    current = target;
    gain = gainTarget;
    rampLeft = 0;
    states = {};
}

// Transposed direct form II, with the section written as a wire and what is added to it: y = x + v.
template <std::uint32_t count, bool isRamping>
void GraphicEqualizerCascade::filter(float *left, float *right) noexcept
{
    StereoLanes signal[count];
    for (std::uint32_t i = 0; i < count; ++i) {
        if (isRamping)
            gain += gainStep;
        signal[i] = stereoLanes(read(left[i]), read(right[i])) * gain;
    }
    for (std::size_t s = 0; s < equalizer::sectionCount; ++s) {
        Section section = current[s];
        State state = states[s];
        for (std::uint32_t i = 0; i < count; ++i) {
            if (isRamping) {
                section.c0 += step[s].c0;
                section.c1 += step[s].c1;
                section.c2 += step[s].c2;
                section.a1 += step[s].a1;
                section.a2 += step[s].a2;
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
