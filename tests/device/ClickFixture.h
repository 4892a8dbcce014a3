#pragma once

#include "device/Fixtures.h"
#include "engine/ClicksAndLeadIns.h"
#include "platform/audio/ClickTable.h"
#include "support/FakeSong.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <vector>

namespace lyrabox::test {

/// The whole path of the sound to a sink of a private server. The song has a short pulse at every
/// beat in the left channel and silence in the right one, which holds the clicks.
class ClicksOnServer : public testing::Test {
protected:
    static constexpr std::uint64_t songFrames = 120 * 44100;
    static constexpr std::uint64_t firstBeat = 5000;
    static constexpr std::uint64_t period = 11025; ///< a quarter of a second
    static constexpr std::uint64_t pulseFrames = 8;
    static constexpr double msPerFrame = 1000.0 / rate;

    explicit ClicksOnServer(PrivateSoundServer::Sinks sinks = PrivateSoundServer::Sinks::Plain)
        : server(PrivateSoundServer::At::Once, sinks)
    {
        song->frames = songFrames;
        song->sample = [](std::uint32_t channel, std::uint64_t frame) {
            const bool isPulse = frame >= firstBeat && (frame - firstBeat) % period < pulseFrames;
            return channel == 0 && isPulse ? 0.8F : 0.0F;
        };
    }

    ~ClicksOnServer() override
    {
        engine::tearDownAudioSystem();
        engine::setSongReaderFactory({});
    }

    void SetUp() override
    {
        engine::setSongReaderFactory(fakeSongReaderFactory(song));
        ASSERT_EQ(engine::buildAudioSystem(), status::noError);
        ASSERT_EQ(engine::loadAudioFile(QUrl::fromLocalFile(u"/songs/pulses.wav"_s)), 0);
        engine::setClickSound({.loudness = 1.0F, .side = ClickSide::Right, .hasAccents = false});
        recorder = server.record(u"a"_s);
    }

    static std::shared_ptr<const ClickTable> clickAtEveryBeat()
    {
        std::vector<SongBeat> beats;
        for (std::uint64_t frame = firstBeat; frame < songFrames; frame += period)
            beats.push_back(
                {.frame = frame, .beat = static_cast<std::uint8_t>(1 + beats.size() % 4)});
        return clickTable(beats, {});
    }

    /// Both channels of the recording, in a window.
    struct Window {
        std::size_t from = 0;
        std::vector<float> left;
        std::vector<float> right;
    };

    /// What is recorded in the next `seconds`.
    Window listen(double seconds)
    {
        const std::size_t from = recorder->size();
        recorder->waitForSize(from + frames(seconds));
        return {from, recorder->samples(from, from + frames(seconds)),
                recorder->rightSamples(from, from + frames(seconds))};
    }

    /// Where sounds begin that are louder than `level`. Those within 0.1 s of another are its part.
    static std::vector<std::size_t> onsets(const std::vector<float> &heard, float level)
    {
        std::vector<std::size_t> found;
        for (std::size_t i = 0; i < heard.size(); ++i) {
            if (std::abs(heard[i]) >= level && (found.empty() || i > found.back() + frames(0.1)))
                found.push_back(i);
        }
        return found;
    }

    /// The centre of the pulse next to `place`, less half its length.
    static double pulseAt(const std::vector<float> &heard, std::size_t place, double speed)
    {
        constexpr std::size_t reach = 1800;
        double energy = 0.0;
        double centre = 0.0;
        for (std::size_t i = place - std::min(place, reach);
             i < std::min(place + reach, heard.size()); ++i) {
            const double sample = heard[i];
            energy += sample * sample;
            centre += sample * sample * static_cast<double>(i);
        }
        return centre / energy - 0.5 * static_cast<double>(pulseFrames) / speed;
    }

    /// By how much the clicks miss their pulses, in ms.
    struct Misses {
        double mean = 0.0;
        double worst = 0.0;
        int count = 0;
    };

    static Misses missesIn(const Window &window, double speed)
    {
        constexpr std::size_t edge = 2000; // a click's pulse must be in the window as well
        Misses misses;
        for (const std::size_t click : onsets(window.right, 0.02F)) {
            if (click < edge || click + edge > window.left.size())
                continue;
            const double late =
                std::abs(static_cast<double>(click) - pulseAt(window.left, click, speed));
            misses.mean += late * msPerFrame;
            misses.worst = std::max(misses.worst, late * msPerFrame);
            ++misses.count;
        }
        misses.mean /= std::max(misses.count, 1);
        return misses;
    }

    PrivateSoundServer server;
    std::unique_ptr<Recorder> recorder;
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
};

} // namespace lyrabox::test
