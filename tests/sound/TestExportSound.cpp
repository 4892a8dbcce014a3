#include "engine/ClicksAndLeadIns.h"
#include "engine/SongChannels.h"
#include "export/SongExport.h"
#include "sound/Player.h"
#include "support/CollectingWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;

namespace {

constexpr std::uint64_t songFrames = 400'000;

/// A tone with noise, so that every frame differs from every other.
float exportedSong(std::uint32_t channel, std::uint64_t frame)
{
    static const Player::Song hum = tone(220.0, 0.3);
    return hum(channel, frame) + noiseAt(static_cast<std::int64_t>(frame), channel, 0.3F);
}

CollectedSong exported(ExportRequest request)
{
    const auto song = std::make_shared<FakeSong>();
    song->frames = songFrames;
    song->sample = exportedSong;
    const auto result = std::make_shared<CollectedSong>();
    request.source = QStringLiteral("/songs/a.wav");
    EXPECT_EQ(
        exportSong(request,
                   {.reader = fakeSongReaderFactory(song), .writer = collectingWriters(result)}, {},
                   [](double) {}),
        0);
    return *result;
}

/// Compares the frames behind the output's fade at the start.
void expectSame(const CollectedSong &written, const Stereo &heard, std::size_t frames)
{
    ASSERT_GE(written.left.size(), frames);
    ASSERT_GE(heard.size(), frames);
    for (std::size_t i = OutputRenderer::fadeFrames; i < frames; ++i) {
        ASSERT_EQ(written.left[i], heard.left[i]) << i;
        ASSERT_EQ(written.right[i], heard.right[i]) << i;
    }
}

equalizer::Levels unevenLevels(float level)
{
    equalizer::Levels levels{};
    for (std::size_t id = 2; id < levels.size(); id += 3) {
        levels[id] = level;
        level = -level;
    }
    return levels;
}

TEST(ExportSound, At75PercentWithTheEqualizerIsSampleForSampleWhatPlayingFromThatPlaceGives)
{
    Player player(exportedSong, songFrames);
    engine::setPlaybackRate(0.75F);
    Player::setUnevenEqualizer(6.0F);
    engine::seekToFrame(50'000);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(300'000);

    const CollectedSong written =
        exported({.passes = {{.start = 50'000, .rate = 0.75F}}, .levels = unevenLevels(6.0F)});
    expectSame(written, heard, 300'000);
}

TEST(ExportSound, TransposedIsSampleForSampleWhatPlayingGives)
{
    Player player(exportedSong, songFrames);
    engine::setPitchCents(-300.0F);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(200'000);
    expectSame(exported({.pitchCents = -300.0F}), heard, 200'000);
}

TEST(ExportSound, HasTheSeamsOfALoopAsInPlaying)
{
    constexpr std::uint64_t start = 30'000;
    constexpr std::uint64_t end = start + 300ULL * TimePitchUnit::sliceFrames;
    Player player(exportedSong, songFrames);
    engine::setPlaybackRate(0.8F);
    Player::setUnevenEqualizer(4.0F);
    engine::setLoopStartFrame(start);
    engine::setLoopEndFrame(end);
    engine::setIsLooping(true);
    engine::seekToFrame(start);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(180'000);
    const CollectedSong written =
        exported({.passes = repeatedPass({.start = start, .end = end, .rate = 0.8F}, 4),
                  .levels = unevenLevels(4.0F)});
    EXPECT_EQ(written.left.size(), 192'000U);
    expectSame(written, heard, 180'000);
}

TEST(ExportSound, HasTheCountInsAndClicksAsInPlaying)
{
    constexpr std::uint64_t start = 30'000;
    constexpr std::uint64_t end = start + 300ULL * TimePitchUnit::sliceFrames;
    LeadIn leadIn{.frames = 64 * TimePitchUnit::sliceFrames, .clickCount = 2};
    leadIn.clicks[0] = {.frame = 0, .kind = ClickKind::Accent};
    leadIn.clicks[1] = {.frame = 4096, .kind = ClickKind::Beat};
    auto table = std::make_shared<ClickTable>();
    for (std::uint64_t i = 0; i < 10; ++i)
        table->clicks.push_back({.frame = start + i * 4096});

    Player player(exportedSong, songFrames);
    engine::setPlaybackRate(0.75F);
    engine::setClicks(table);
    engine::setLeadInAtWrap(leadIn);
    engine::setLeadInAtStart(leadIn);
    engine::setLoopStartFrame(start);
    engine::setLoopEndFrame(end);
    engine::setIsLooping(true);
    engine::seekToFrame(start);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(150'000);
    const CollectedSong written = exported(
        {.passes = repeatedPass({.start = start, .end = end, .rate = 0.75F, .before = leadIn}, 3),
         .clicks = table});
    expectSame(written, heard, 150'000);
}

constexpr ChannelTools withoutMiddle{.balance = 30, .centre = -80};

TEST(ExportSound, WithCentreIsSampleForSampleWhatPlayingFromThatPlaceGives)
{
    Player player(exportedSong, songFrames);
    engine::setChannelTools(withoutMiddle);
    engine::setPlaybackRate(0.75F);
    engine::seekToFrame(50'001);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(100'000);
    expectSame(exported({.passes = {{.start = 50'001, .rate = 0.75F}}, .channels = withoutMiddle}),
               heard, 100'000);
}

TEST(ExportSound, WithCentreBeginsAtTheSongsStartAsPlayingDoes)
{
    Player player(exportedSong, songFrames);
    engine::setChannelTools(withoutMiddle);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(20'000);
    expectSame(exported({.channels = withoutMiddle}), heard, 20'000);
}

TEST(ExportSound, WithSwappedChannelsIsWhatPlayingGives)
{
    constexpr ChannelTools swapped{.mode = ChannelMode::Swapped};
    Player player(exportedSong, songFrames);
    engine::setChannelTools(swapped);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(20'000);
    expectSame(exported({.channels = swapped}), heard, 20'000);
}

TEST(ExportSound, WithCentreHasTheSeamsOfLoopsAsInPlaying)
{
    for (const std::uint64_t slices : {3ULL, 40ULL, 300ULL}) {
        constexpr std::uint64_t start = 30'000;
        const std::uint64_t end = start + slices * TimePitchUnit::sliceFrames;
        Player player(exportedSong, songFrames);
        engine::setChannelTools(withoutMiddle);
        engine::setLoopStartFrame(start);
        engine::setLoopEndFrame(end);
        engine::setIsLooping(true);
        engine::seekToFrame(start);
        engine::setOutputRunning(true);
        const Stereo heard = player.pull(60'000);
        // Centre looks ahead: behind the last pass the loop would go on.
        const int passes = static_cast<int>((60'000 + 4096) / (end - start)) + 1;
        expectSame(exported({.passes = repeatedPass({.start = start, .end = end}, passes),
                             .channels = withoutMiddle}),
                   heard, 60'000);
    }
}

TEST(ExportSound, WithCentreHasTheCountInsAsInPlaying)
{
    constexpr std::uint64_t start = 30'000;
    constexpr std::uint64_t end = start + 100ULL * TimePitchUnit::sliceFrames;
    constexpr LeadIn leadIn{.frames = 10 * TimePitchUnit::sliceFrames};
    Player player(exportedSong, songFrames);
    engine::setChannelTools(withoutMiddle);
    engine::setLeadInAtWrap(leadIn);
    engine::setLeadInAtStart(leadIn);
    engine::setLoopStartFrame(start);
    engine::setLoopEndFrame(end);
    engine::setIsLooping(true);
    engine::seekToFrame(start);
    engine::setOutputRunning(true);
    const Stereo heard = player.pull(40'000);
    expectSame(exported({.passes = repeatedPass({.start = start, .end = end, .before = leadIn}, 4),
                         .channels = withoutMiddle}),
               heard, 40'000);
}

} // namespace
