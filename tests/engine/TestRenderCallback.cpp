#include "EngineFixture.h"

#include <algorithm>
#include <limits>
#include <random>

namespace lyrabox::test {
namespace {

constexpr std::uint32_t slice = TimePitchUnit::sliceFrames;
constexpr float untouched = 0.5F; ///< differs from every frame index
constexpr std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();

/// The buffers after one call of the render routine.
struct Rendered {
    std::array<std::vector<float>, maximumChannels> channels;
};

class RenderCallback : public EngineFixture {
protected:
    RenderCallback() { EXPECT_EQ(engine::buildAudioSystem(), 0); }

    static Rendered render(std::uint32_t frames, std::uint32_t bufferFrames)
    {
        Rendered rendered;
        AudioBufferList list{.mNumberBuffers = maximumChannels};
        for (std::uint32_t i = 0; i < maximumChannels; ++i) {
            rendered.channels[i].assign(bufferFrames, untouched);
            list.mBuffers[i].mDataByteSize = bufferFrames * 4;
            list.mBuffers[i].mData = rendered.channels[i].data();
        }
        EXPECT_EQ(engine::renderCallback(nullptr, frames, list), 0);
        return rendered;
    }
    static Rendered render(std::uint32_t frames) { return render(frames, frames); }
};

TEST_F(RenderCallback, CopiesEveryChannelFromThePosition)
{
    loadSong(10000);
    engine::seekToFrame(300);
    const Rendered rendered = render(slice);
    for (std::uint32_t i = 0; i < slice; ++i) {
        EXPECT_EQ(rendered.channels[0][i], static_cast<float>(300 + i));
        EXPECT_EQ(rendered.channels[1][i], -static_cast<float>(300 + i));
    }
    EXPECT_EQ(engine::currentFrame(), 300U + slice);
}

TEST_F(RenderCallback, TheSongEndsWithExactlyTwoBuffersLeft)
{
    loadSong(10000);
    engine::setOutputRunning(true);
    engine::seekToFrame(10000 - 2 * slice);
    const Rendered rendered = render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_EQ(engine::currentFrame(), 10000U - 2 * slice);
    EXPECT_THAT(rendered.channels[0], testing::Each(untouched));
}

TEST_F(RenderCallback, RendersOneMoreBufferWithOneFrameMoreThanTwoBuffersLeft)
{
    loadSong(10000);
    engine::setOutputRunning(true);
    engine::seekToFrame(10000 - 2 * slice - 1);
    const Rendered rendered = render(slice);
    EXPECT_FALSE(engine::trackHasEnded());
    EXPECT_EQ(rendered.channels[0].front(), static_cast<float>(10000 - 2 * slice - 1));
    render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), 10000U - 2 * slice);
}

TEST_F(RenderCallback, StartingAgainAtTheEndEndsAgain)
{
    loadSong(1000);
    engine::setOutputRunning(true);
    engine::seekToFrame(999);
    audio.pull(1024);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), 1000U - 2 * slice);

    engine::setTrackHasEnded(false);
    engine::setOutputRunning(true);
    EXPECT_TRUE(engine::outputIsRunning());
    audio.pull(1024);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_FALSE(engine::outputIsRunning());
}

TEST_F(RenderCallback, ASongShorterThanTwoBuffersParksBelowZero)
{
    loadSong(100);
    engine::setOutputRunning(true);
    render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), largest - (2 * slice - 100) + 1);
    // The distance from there to the end is two buffers again.
    engine::setTrackHasEnded(false);
    render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
}

TEST_F(RenderCallback, TheEndComesBeforeTheLoop)
{
    loadSong(10000);
    engine::setLoopStartFrame(0);
    engine::setLoopEndFrame(5000);
    engine::setIsLooping(true);
    engine::seekToFrame(10000 - slice);
    render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), 10000U - 2 * slice);
}

TEST_F(RenderCallback, LoopJumpsToItsStartAtOrPastItsEnd)
{
    loadSong(10000);
    engine::setLoopStartFrame(1000);
    engine::setLoopEndFrame(2000);
    engine::setIsLooping(true);

    engine::seekToFrame(1999);
    EXPECT_EQ(render(slice).channels[0].front(), 1999.0F);
    EXPECT_EQ(render(slice).channels[0].front(), 1000.0F);
    EXPECT_EQ(engine::currentFrame(), 1000U + slice);

    engine::seekToFrame(2000);
    EXPECT_EQ(render(slice).channels[0].front(), 1000.0F);
}

TEST_F(RenderCallback, LoopEndOfZeroRestartsAtEveryCallback)
{
    loadSong(10000);
    engine::setLoopStartFrame(4000);
    engine::setLoopEndFrame(0);
    engine::setIsLooping(true);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(render(slice).channels[0].front(), 4000.0F);
}

TEST_F(RenderCallback, LoopPointsHaveNoEffectWithLoopingOff)
{
    loadSong(10000);
    for (const std::uint64_t loopPoint : {std::uint64_t{0}, std::uint64_t{5000}, largest}) {
        engine::setLoopStartFrame(loopPoint);
        engine::setLoopEndFrame(0);
        engine::seekToFrame(600);
        EXPECT_EQ(render(slice).channels[0].front(), 600.0F);
        EXPECT_EQ(engine::currentFrame(), 600U + slice);
    }
}

TEST_F(RenderCallback, ALoopStartBeyondTheSongGivesSilenceAndThePositionAdvances)
{
    loadSong(10000);
    engine::setLoopStartFrame(50000);
    engine::setLoopEndFrame(0);
    engine::setIsLooping(true);
    EXPECT_THAT(render(slice).channels[0], testing::Each(0.0F));
    EXPECT_EQ(engine::currentFrame(), 50000U + slice);
}

TEST_F(RenderCallback, LoopStartInTheLastBufferIsFollowedBySilence)
{
    loadSong(10000);
    engine::setLoopStartFrame(9990);
    engine::setLoopEndFrame(0);
    engine::setIsLooping(true);
    const Rendered rendered = render(slice);
    EXPECT_EQ(rendered.channels[0][9], 9999.0F);
    EXPECT_EQ(rendered.channels[0][10], 0.0F);
    EXPECT_EQ(rendered.channels[0].back(), 0.0F);
}

TEST_F(RenderCallback, APositionJustBelowZeroIsSilenceUpToTheFirstFrame)
{
    loadSong(10000);
    engine::seekToFrame(largest - 9); // ten frames before frame 0
    const Rendered rendered = render(slice);
    EXPECT_EQ(rendered.channels[1][9], 0.0F);
    EXPECT_EQ(rendered.channels[1][11], -1.0F);
    EXPECT_EQ(engine::currentFrame(), slice - 10U);
}

TEST_F(RenderCallback, APositionWhoseByteOffsetOverflowsIsSilence)
{
    loadSong(10000);
    engine::seekToFrame(std::uint64_t{1} << 62); // times four bytes is 2^64
    EXPECT_THAT(render(slice).channels[0], testing::Each(0.0F));
}

TEST_F(RenderCallback, TheEndMarginIsComputedIn32Bits)
{
    loadSong(10000);
    engine::seekToFrame(0);
    // Twice 2^31 is 0 in 32 bits. So this is not the end, although only 10,000 frames are left.
    render(std::uint32_t{1} << 31, 16);
    EXPECT_FALSE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), std::uint64_t{1} << 31);
}

TEST_F(RenderCallback, BuffersBeyondTheChannelsAreNotTouched)
{
    loadSong(10000);
    engine::seekToFrame(300);
    // The list claims more buffers than the engine has channels, and it has them.
    constexpr std::uint32_t count = maximumChannels + 3;
    struct LongList {
        AudioBufferList list;
        std::array<AudioBuffer, count> more;
    } longList{};
    std::array<std::vector<float>, count> channels;
    AudioBuffer *const buffers = longList.list.mBuffers.data();
    for (std::uint32_t i = 0; i < count; ++i) {
        channels[i].assign(slice, untouched);
        const AudioBuffer buffer{1, slice * 4, channels[i].data()};
        if (i < maximumChannels)
            buffers[i] = buffer;
        else
            longList.more[i - maximumChannels] = buffer;
    }
    longList.list.mNumberBuffers = count;
    EXPECT_EQ(engine::renderCallback(nullptr, slice, longList.list), 0);
    for (std::uint32_t i = 0; i < maximumChannels; ++i)
        EXPECT_EQ(std::abs(channels[i].front()), 300.0F);
    for (std::uint32_t i = maximumChannels; i < count; ++i)
        EXPECT_THAT(channels[i], testing::Each(untouched)) << i;
    EXPECT_EQ(engine::currentFrame(), 300U + slice);
}

TEST_F(RenderCallback, NoSongIsTheEnd)
{
    engine::setOutputRunning(true);
    EXPECT_FALSE(engine::trackHasEnded());
    const Rendered rendered = render(slice);
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_FALSE(engine::outputIsRunning());
    EXPECT_THAT(rendered.channels[0], testing::Each(untouched));
}

TEST_F(RenderCallback, ASeekDuringTheSongsLastCallbackIsKeptOrDroppedAsAWhole)
{
    // At the end of the song the render routine calls the output's stop(). A test can interfere
    // only there, so this output seeks when it is stopped.
    class SeekingOutput : public OutputUnit {
    public:
        Status initialize() override { return 0; }
        float parameter(std::uint32_t /*id*/) const override { return 0.0F; }
        Status setParameter(std::uint32_t /*id*/, float /*value*/) override { return 0; }
        void reset() override {}
        Status connect(RenderingUnit * /*source*/) override { return 0; }
        Status start() override { return 0; }
        Status stop() noexcept override
        {
            if (armed) {
                armed = false;
                engine::seekToFrame(1234);
            }
            return 0;
        }
        bool isRunning() const noexcept override { return false; }
        bool armed = false;
    };
    SeekingOutput *output = nullptr;
    auto factory = audio.factory();
    factory.output = [&output] {
        auto unit = std::make_unique<SeekingOutput>();
        output = unit.get();
        return unit;
    };
    engine::setAudioUnitFactory(factory);
    ASSERT_EQ(engine::buildAudioSystem(), 0);
    loadSong(10000);
    engine::seekToFrame(9999);
    output->armed = true;
    render(slice);
    // The end was decided before the seek. Position and flag agree.
    EXPECT_TRUE(engine::trackHasEnded());
    EXPECT_EQ(engine::currentFrame(), 10000U - 2U * slice);
}

/// A slow reference of the render routine, frame by frame.
struct Model {
    std::uint64_t total;
    std::uint64_t position;
    std::uint64_t loopStart;
    std::uint64_t loopEnd;
    bool looping;
    bool ended = false;

    std::vector<float> render(std::uint32_t frames, std::uint32_t bufferFrames)
    {
        std::vector<float> rendered(bufferFrames, untouched);
        const std::uint32_t margin = frames + frames;
        if (total - position <= margin) {
            ended = true;
            position = total - margin;
            return rendered;
        }
        if (looping && position >= loopEnd)
            position = loopStart;
        for (std::uint32_t i = 0; i < bufferFrames; ++i) {
            const std::uint64_t frame = position + i;
            rendered[i] = frame < total ? static_cast<float>(frame) : 0.0F;
        }
        position += frames;
        return rendered;
    }
};

TEST_F(RenderCallback, MatchesAReferenceAtTenThousandRandomPositionsAndLoops)
{
    std::mt19937_64 random(20240607);
    const auto below = [&random](std::uint64_t limit) { return random() % limit; };
    const auto anyFrame = [&](std::uint64_t total) -> std::uint64_t {
        switch (below(8)) {
        case 0:
            return 0;
        case 1:
            return below(total + 1);
        case 2:
            return total + below(600);
        case 3:
            return total - below(600); // may wrap
        case 4:
            return largest - below(600);
        case 5:
            return (below(4) << 62) + below(total + 600);
        case 6:
            return (std::uint64_t{1} << (32 + below(31))) - 300 + below(600);
        default:
            return random();
        }
    };

    for (int songNumber = 0; songNumber < 50; ++songNumber) {
        const std::uint64_t total = songNumber == 0 ? 0 : below(3000);
        ASSERT_EQ(loadSong(total), 0);
        for (int i = 0; i < 200; ++i) {
            Model model{.total = total,
                        .position = anyFrame(total),
                        .loopStart = anyFrame(total),
                        .loopEnd = anyFrame(total),
                        .looping = below(4) != 0};
            engine::seekToFrame(model.position);
            engine::setLoopStartFrame(model.loopStart);
            engine::setLoopEndFrame(model.loopEnd);
            engine::setIsLooping(model.looping);
            engine::setTrackHasEnded(false);
            for (int call = 0; call < 3; ++call) {
                const auto frames = static_cast<std::uint32_t>(below(20) == 0  ? random()
                                                               : below(2) == 0 ? slice
                                                                               : 1 + below(600));
                const auto bufferFrames = frames <= 600 && below(4) != 0
                                              ? frames
                                              : static_cast<std::uint32_t>(below(700));
                const auto before = model;
                const std::vector<float> expected = model.render(frames, bufferFrames);
                const Rendered rendered = render(frames, bufferFrames);
                const auto where = [&] {
                    return testing::Message()
                           << "total " << total << " position " << before.position << " loop "
                           << before.loopStart << "-" << before.loopEnd
                           << (before.looping ? " on" : " off") << " frames " << frames
                           << " buffer " << bufferFrames;
                };
                ASSERT_EQ(rendered.channels[0], expected) << where();
                for (std::size_t k = 0; k < expected.size(); ++k) {
                    const float other = expected[k] == untouched ? untouched : -expected[k];
                    ASSERT_EQ(rendered.channels[1][k], other) << where();
                }
                ASSERT_EQ(engine::currentFrame(), model.position) << where();
                ASSERT_EQ(engine::trackHasEnded(), model.ended) << where();
            }
        }
    }
}

TEST_F(RenderCallback, FillsAPartialFrameToItsLastByte)
{
    loadSong(1000);
    engine::setLoopStartFrame(997);
    engine::setLoopEndFrame(0);
    engine::setIsLooping(true);
    std::array<unsigned char, 18> bytes{};
    bytes.fill(0xee);
    AudioBufferList list{.mNumberBuffers = 1};
    list.mBuffers[0].mDataByteSize = 15;
    list.mBuffers[0].mData = bytes.data();
    engine::renderCallback(nullptr, slice, list);
    EXPECT_THAT(std::vector(bytes.begin() + 12, bytes.begin() + 15), testing::Each(0));
    EXPECT_THAT(std::vector(bytes.begin() + 15, bytes.end()), testing::Each(0xee));
}

} // namespace
} // namespace lyrabox::test
