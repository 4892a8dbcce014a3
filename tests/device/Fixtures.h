#pragma once

#include "engine/AudioEngine.h"
#include "platform/output/CubebOutput.h"
#include "support/Heard.h"
#include "support/PrivateSoundServer.h"
#include "support/SampleAudio.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <memory>
#include <thread>

/// Fixtures for the tests of devices and of faulty servers.
namespace lyrabox::test {

using namespace Qt::Literals::StringLiterals;

inline constexpr double rate = Recorder::sampleRate;
inline constexpr std::uint32_t firstBand =
    2; // the lowest of the engine's equalizer parameters; every third is used
inline constexpr int bands = 10;

inline std::size_t frames(double seconds)
{
    return static_cast<std::size_t>(seconds * rate);
}

inline QUrl tone(double seconds, const QString &extension = u"flac"_s)
{
    return QUrl::fromLocalFile(sampleFile({.extension = extension, .seconds = seconds}));
}

class CubebOutputOnServer : public testing::Test {
protected:
    void open(RenderingUnit &source)
    {
        ASSERT_EQ(output.initialize(), status::noError);
        ASSERT_EQ(output.connect(&source), status::noError);
        recorder = server.record(QStringLiteral("a"));
    }
    PrivateSoundServer server;
    CubebOutput output;
    std::unique_ptr<Recorder> recorder;
};

class SoundFaults : public testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(engine::buildAudioSystem(), status::noError); }
    ~SoundFaults() override { engine::tearDownAudioSystem(); }

    /// Expects that a sink plays the tone of the samples in at least one window of 200 ms within
    /// the first ten seconds. On a busy machine other windows may have underruns.
    void expectTone(const QString &sink)
    {
        recorder = server.record(sink);
        const auto begin = recorder->waitForSound(0, 0.05, 15.0);
        ASSERT_GE(begin, 0) << "no sound on " << sink.toStdString();
#ifdef __SANITIZE_THREAD__
        return; // too slow to play in time; this build only tests the threads
#endif
        double heard = 0.0;
        for (int part = 0; part < 50; ++part) {
            const std::size_t from =
                static_cast<std::size_t>(begin) + static_cast<std::size_t>(part) * frames(0.2);
            ASSERT_TRUE(recorder->waitForSize(from + frames(0.2)));
            const std::vector<float> samples = recorder->samples(from, from + frames(0.2));
            heard = peakOf(samples) > 0.05F ? frequencyOf(samples) : 0.0;
            if (std::abs(heard - 440.0) <= 2.0)
                return;
        }
        ADD_FAILURE() << "heard on " << sink.toStdString() << " is " << heard << " Hz";
    }

    PrivateSoundServer server;
    std::unique_ptr<Recorder> recorder;
};

/// Waits until the engine reports the status `wanted` for the sound. It polls like the program,
/// because some faults of a device are not signalled.
inline bool waitForSoundStatus(Status wanted)
{
    using namespace std::chrono;
    const auto end = steady_clock::now() + seconds(40); // a test that waits longer fails
    while (engine::soundStatus() != wanted) {
        if (steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(milliseconds(20));
    }
    return true;
}

} // namespace lyrabox::test
