#pragma once

#include "engine/AudioEngine.h"
#include "support/FakeAudioUnits.h"
#include "support/FakeSong.h"

#include <gmock/gmock.h>

#include <memory>

namespace lyrabox::test {

/// The engine alone, on a fake chain that is not built yet.
class EngineFixture : public testing::Test {
protected:
    EngineFixture()
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory(audio.factory());
        engine::setSongReaderFactory(fakeSongReaderFactory(song));
    }

    ~EngineFixture() override
    {
        engine::tearDownAudioSystem();
        engine::setAudioUnitFactory({});
        engine::setSongReaderFactory({});
        engine::setAvailableMemoryProbe({});
    }

    Status loadSong(std::uint64_t frames)
    {
        song->frames = frames;
        return engine::loadAudioFile(QUrl::fromLocalFile(QStringLiteral("/songs/a.wav")));
    }

    void buildAndPlay(std::uint64_t frames)
    {
        ASSERT_EQ(engine::buildAudioSystem(), 0);
        ASSERT_EQ(loadSong(frames), 0);
        engine::setOutputRunning(true);
    }

    FakeAudio audio;
    std::shared_ptr<FakeSong> song = std::make_shared<FakeSong>();
};

} // namespace lyrabox::test
