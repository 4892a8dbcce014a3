#include "platform/audio/DenormalGuard.h"
#include "platform/audio/TimePitch.h"
#include "support/SoundSource.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <random>
#include <vector>

using namespace lyrabox;

namespace {

constexpr std::uint32_t callbackFrames = 1024;

/// A second of noise in a loop.
class NoiseSource final : public test::SoundSource {
public:
    NoiseSource()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<float> samples(-0.5F, 0.5F);
        for (float &sample : m_samples)
            sample = samples(random);
    }

    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        for (std::uint32_t channel = 0; channel < 2; ++channel)
            std::copy_n(m_samples.data() + m_position + channel, frames,
                        static_cast<float *>(ioData.mBuffers[channel].mData));
        m_position = (m_position + frames) % (m_samples.size() - 2 * std::size_t{frames});
    }

private:
    std::vector<float> m_samples = std::vector<float>(44100);
    std::size_t m_position = 0;
};

/// Pulls a stage at a speed in percent and a pitch in cents.
struct Pull {
    Pull(std::int64_t percent, std::int64_t cents)
    {
        stage.initialize();
        stage.connect(&source);
        stage.setParameter(parameter::rate, static_cast<float>(percent) / 100.0F);
        stage.setParameter(parameter::pitch, static_cast<float>(cents));
        list.mNumberBuffers = 2;
        for (std::size_t i = 0; i < 2; ++i)
            list.mBuffers[i] = {1, callbackFrames * 4, output[i].data()};
        render();
    }

    void render() noexcept { stage.render(callbackFrames, list); }

    DenormalGuard guard;
    NoiseSource source;
    TimePitch stage;
    std::array<std::array<float, callbackFrames>, 2> output{};
    AudioBufferList list;
};

/// One callback of 1,024 frames (23.2 ms) during a song.
void BM_TimePitchPlaying(benchmark::State &state)
{
    Pull pull(state.range(0), state.range(1));
    for (auto _ : state)
        pull.render();
    state.counters["load"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * callbackFrames / 44100.0,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_TimePitchPlaying)
    ->ArgNames({"percent", "cents"})
    ->Args({100, 0})
    ->Args({50, 0})
    ->Args({75, 0})
    ->Args({125, 0})
    ->Args({200, 0})
    ->Args({100, 300})
    ->Args({100, -300})
    ->Unit(benchmark::kMillisecond);

/// The first callback after a seek: reset, priming, and its own 1,024 frames.
void BM_TimePitchFirstAfterSeek(benchmark::State &state)
{
    Pull pull(state.range(0), state.range(1));
    for (auto _ : state) {
        pull.stage.reset();
        pull.render();
    }
}
BENCHMARK(BM_TimePitchFirstAfterSeek)
    ->ArgNames({"percent", "cents"})
    ->Args({50, 0})
    ->Args({75, 0})
    ->Args({125, 0})
    ->Args({200, 0})
    ->Args({100, 300})
    ->Args({200, -1200})
    ->Unit(benchmark::kMillisecond);

void BM_TimePitchInitialize(benchmark::State &state)
{
    for (auto _ : state) {
        TimePitch stage;
        benchmark::DoNotOptimize(stage.initialize());
    }
}
BENCHMARK(BM_TimePitchInitialize)->Unit(benchmark::kMillisecond);

} // namespace
