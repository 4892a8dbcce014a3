// The functions of RunningProgram that listen to the program.

#include "support/Heard.h"
#include "support/program/RunningProgram.h"

#include <cmath>

namespace lyrabox::test {
namespace {

constexpr std::size_t listenFrames = Recorder::sampleRate / 5;
constexpr float loudness = 0.02F;

bool sounds(double heard, double frequency)
{
    return std::abs(heard - frequency) <= 0.005 * frequency;
}

double toneOf(const std::vector<float> &samples)
{
    return peakOf(samples) < loudness ? 0.0 : frequencyOf(samples);
}

} // namespace

std::vector<float> RunningProgram::lastSamples() const
{
    const std::size_t size = recorder->size();
    return recorder->samples(size < listenFrames ? 0 : size - listenFrames, size);
}

double RunningProgram::toneNow() const
{
    return toneOf(lastSamples());
}

double RunningProgram::toneAt(std::size_t sample, double seconds) const
{
    const auto frames = static_cast<std::size_t>(seconds * Recorder::sampleRate);
    return toneOf(recorder->samples(sample, sample + frames));
}

bool RunningProgram::hears(double frequency, double seconds) const
{
    const bool heard = waitUntil([&] { return sounds(toneNow(), frequency); }, seconds);
    EXPECT_TRUE(heard) << "heard is " << toneNow() << " Hz, not " << frequency << " Hz";
    return heard;
}

bool RunningProgram::hearsSilence(double seconds) const
{
    return waitUntil([this] { return peakOf(lastSamples()) < 0.001F; }, seconds);
}

bool RunningProgram::hearsAnything(double seconds) const
{
    return waitUntil([this] { return peakOf(lastSamples()) > loudness; }, seconds);
}

} // namespace lyrabox::test
