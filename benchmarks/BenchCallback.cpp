#include "engine/AudioEngine.h"
#include "engine/SongChannels.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/TimePitch.h"
#include "support/FakeSong.h"
#include "support/HandPulledOutput.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::uint64_t songFrames = 60 * 44100;

/// The whole chain without a device. It plays a minute of noise.
class Chain {
public:
    Chain()
    {
        AudioUnitFactory factory;
        factory.equalizer = [] { return std::make_unique<GraphicEqualizer>(); };
        factory.timePitch = [] { return std::make_unique<TimePitch>(); };
        factory.output = [this] {
            auto unit = std::make_unique<HandPulledOutput>();
            output = unit.get();
            return unit;
        };
        factory.defaultOutputWatcher = [] { return std::make_unique<DeafWatcher>(); };
        engine::setAudioUnitFactory(std::move(factory));
        engine::buildAudioSystem();

        auto song = std::make_shared<FakeSong>();
        song->frames = songFrames;
        std::mt19937 random(1);
        song->sample = [random](std::uint32_t, std::uint64_t) mutable {
            return std::uniform_real_distribution<float>(-0.3F, 0.3F)(random);
        };
        engine::setSongReaderFactory(fakeSongReaderFactory(song));
        engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/songs/a.wav")));
        engine::setOutputRunning(true);
    }
    ~Chain()
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
        engine::setSongReaderFactory({});
    }
    Chain(const Chain &) = delete;
    Chain &operator=(const Chain &) = delete;

    HandPulledOutput *output = nullptr;
};

/// Acts like a user: seeks, changes of speed, pitch and sliders, loops and new starts, all equally
/// likely.
class Listener {
public:
    /// Called for each callback of `frames` frames. Acts `perSecond` times a second on average.
    void actAtRandom(double perSecond, std::uint32_t frames)
    {
        const double likelihood = perSecond * frames / 44100.0;
        if (std::uniform_real_distribution<double>(0.0, 1.0)(m_random) < likelihood)
            act();
        if (engine::currentFrame() > songFrames - 200'000)
            engine::seekToFrame(0);
    }

private:
    void act()
    {
        switch (upTo(5)) {
        case 0:
            engine::seekToFrame(upTo(songFrames / 2));
            break;
        case 1:
            engine::setPlaybackRate(0.1F + 0.05F * static_cast<float>(upTo(38)));
            break;
        case 2:
            engine::setPitchCents(100.0F * (static_cast<float>(upTo(48)) - 24.0F));
            break;
        case 3:
            engine::setEqLevel(static_cast<std::uint32_t>(2 + 3 * upTo(9)),
                               static_cast<float>(upTo(24)) - 12.0F);
            break;
        case 4:
            engine::setLoopStartFrame(upTo(songFrames / 2));
            engine::setLoopEndFrame(engine::loopStartFrame() + 2205 + upTo(44100));
            engine::setIsLooping(upTo(1) == 0);
            break;
        default:
            engine::setOutputRunning(false);
            engine::setOutputRunning(true);
            break;
        }
        // Leaves normal speed and pitch, and returns to them.
        if (upTo(7) == 0) {
            engine::setPlaybackRate(1.0F);
            engine::setPitchCents(0.0F);
        }
    }

    std::uint64_t upTo(std::uint64_t most)
    {
        return std::uniform_int_distribution<std::uint64_t>(0, most)(m_random);
    }

    std::mt19937 m_random{5};
};

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Ten minutes of callbacks of `frames` frames, with `actions` actions per second and the channel
/// tool `centre`. Reports a callback's processor time as a percentage of its buffer's duration: the
/// median, the 99.9th percentile and the maximum.
void BM_CallbackShareOfItsBuffer(benchmark::State &state)
{
    Chain chain;
    Listener listener;
    engine::setChannelTools({.centre = static_cast<int>(state.range(2))});
    const auto frames = static_cast<std::uint32_t>(state.range(0));
    const auto actions = static_cast<double>(state.range(1));
    const double bufferSeconds = frames / 44100.0;
    std::vector<float> interleaved(2 * std::size_t{frames});
    std::vector<double> shares;
    for (auto _ : state) {
        double total = 0.0;
        for (double played = 0.0; played < 600.0; played += bufferSeconds) {
            listener.actAtRandom(actions, frames);
            const double begin = processorSeconds();
            chain.output->pull(interleaved.data(), frames);
            const double seconds = processorSeconds() - begin;
            shares.push_back(100.0 * seconds / bufferSeconds);
            total += seconds;
        }
        state.SetIterationTime(total);
    }
    std::sort(shares.begin(), shares.end());
    const auto at = [&shares](double quantile) {
        return shares[static_cast<std::size_t>(quantile * static_cast<double>(shares.size() - 1))];
    };
    state.counters["median %"] = at(0.5);
    state.counters["99.9th %"] = at(0.999);
    state.counters["worst %"] = shares.back();
}
BENCHMARK(BM_CallbackShareOfItsBuffer)
    ->ArgNames({"frames", "actions", "centre"})
    ->Args({256, 10, 0})
    ->Args({384, 10, 0})
    ->Args({512, 10, 0})
    ->Args({1024, 10, 0})
    ->Args({384, 10, -100})
    ->Args({1024, 10, -100})
    ->Args({384, 50, 0})
    ->Args({1024, 50, 0})
    ->Iterations(1)
    ->UseManualTime()
    ->Unit(benchmark::kSecond);

} // namespace
