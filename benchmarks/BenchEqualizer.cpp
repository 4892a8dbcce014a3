#include "platform/audio/DenormalGuard.h"
#include "platform/audio/GraphicEqualizer.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <random>
#include <vector>

using namespace lyrabox;

namespace {

constexpr std::uint32_t pullFrames = 128;

// Pulls an equalizer. The input is a second of noise in a loop, or silence.
struct Pull {
    explicit Pull(bool isSilent) : input(isSilent ? pullFrames : 44100 / pullFrames * pullFrames)
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<float> samples(-0.5F, 0.5F);
        if (!isSilent)
            for (float &sample : input)
                sample = samples(random);
        equalizer.initialize();
        equalizer.setRenderCallback(&Pull::fill, this);
        list.mNumberBuffers = 2;
        for (std::size_t i = 0; i < 2; ++i)
            list.mBuffers[i] = {1, pullFrames * 4, output[i].data()};
    }

    static Status fill(void *context, std::uint32_t, AudioBufferList &ioData) noexcept
    {
        auto *self = static_cast<Pull *>(context);
        for (std::size_t i = 0; i < 2; ++i)
            std::memcpy(ioData.mBuffers[i].mData, self->input.data() + self->position,
                        ioData.mBuffers[i].mDataByteSize);
        self->position = (self->position + pullFrames) % self->input.size();
        return status::noError;
    }

    void setSliders(float level)
    {
        for (std::size_t i = 0; i < equalizer::sliderCount; ++i)
            equalizer.setParameter(equalizerBandOfControl(i), i % 2 == 0 ? level : -level);
    }

    void render() { equalizer.render(pullFrames, list); }

    std::vector<float> input;
    std::size_t position = 0;
    GraphicEqualizer equalizer;
    std::array<std::array<float, pullFrames>, 2> output{};
    AudioBufferList list;
};

void countFrames(benchmark::State &state)
{
    state.counters["per_frame"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * pullFrames,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void equalizerSteady(benchmark::State &state)
{
    Pull pull(false);
    pull.setSliders(6.0F);
    for (auto _ : state)
        pull.render();
    countFrames(state);
}
BENCHMARK(equalizerSteady);

void equalizerFlat(benchmark::State &state)
{
    Pull pull(false);
    for (auto _ : state)
        pull.render();
    countFrames(state);
}
BENCHMARK(equalizerFlat);

// The worst case: the coefficients change in every frame. Computing their targets is not measured.
void equalizerRamping(benchmark::State &state)
{
    GraphicEqualizerCascade cascade;
    equalizer::Levels levels{};
    levels[17] = 6.0F;
    const std::array<equalizer::Coefficients, 2> targets = {equalizer::solve({}),
                                                            equalizer::solve(levels)};
    std::array<std::array<float, pullFrames>, 2> signal{};
    std::size_t turn = 0;
    for (auto _ : state) {
        if (turn++ % 4 == 0)
            cascade.rampTo(targets[turn / 4 % 2]);
        signal[0].fill(0.25F);
        signal[1].fill(0.25F);
        cascade.process(signal[0].data(), signal[1].data(), pullFrames);
    }
    countFrames(state);
}
BENCHMARK(equalizerRamping);

// The decay of a click in silence, far below the smallest normal float.
void equalizerSilentTail(benchmark::State &state)
{
    Pull pull(true);
    pull.setSliders(12.0F);
    pull.input[0] = 1.0F;
    pull.render();
    pull.input[0] = 0.0F;
    for (int i = 0; i < 20000; ++i)
        pull.render();
    for (auto _ : state)
        pull.render();
    countFrames(state);
}
BENCHMARK(equalizerSilentTail)->Iterations(5000);

void equalizerSolve(benchmark::State &state)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<float> level(-12.0F, 12.0F);
    equalizer::Levels levels{};
    for (auto _ : state) {
        for (std::size_t i = 0; i < equalizer::sliderCount; ++i)
            levels[equalizerBandOfControl(i)] = level(random);
        benchmark::DoNotOptimize(equalizer::solve(levels));
    }
}
BENCHMARK(equalizerSolve)->Unit(benchmark::kMicrosecond);

} // namespace
