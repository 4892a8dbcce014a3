#include "platform/audio/ClickMixer.h"

#include "platform/audio/ClickSchedule.h"
#include "platform/audio/ClickTable.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace lyrabox {
namespace {

/// A time/pitch stage whose account the test sets. Its sound is constant.
class AccountedStage final : public TimePitchUnit {
public:
    explicit AccountedStage(ClickSchedule &schedule) : m_schedule(schedule) {}

    Status initialize() override { return 0; }
    float parameter(std::uint32_t) const override { return 0.0F; }
    Status setParameter(std::uint32_t, float) override { return 0; }
    void reset() override { m_mustReset = true; }
    Status connect(RenderingUnit *) override { return 0; }
    Account account() const noexcept override { return m_account; }
    bool isPlayingOut() const noexcept override { return playsOut; }

    void render(std::uint32_t frames, AudioBufferList &ioData) noexcept override
    {
        if (std::exchange(m_mustReset, false)) {
            m_account.held = 0.0;
            ++m_account.resets;
        }
        for (std::uint32_t i = 0; i < 2; ++i)
            std::fill_n(static_cast<float *>(ioData.mBuffers[i].mData), frames, level);
        const double wanted = held + frames * speed - m_account.held;
        const auto pulled = static_cast<std::uint32_t>(std::max(0.0, std::ceil(wanted)));
        if (leadInDone < leadIn.frames) {
            m_schedule.readLeadIn(leadIn, leadInDone, pulled);
            leadInDone += pulled;
        } else if (pulled > 0) {
            m_schedule.readSong(position, pulled);
            position += pulled;
        }
        m_account.held += pulled - frames * speed;
    }

    std::uint64_t position = 0;
    double held = 0.0; ///< that it tries to hold
    double speed = 1.0;
    float level = 0.0F;
    bool playsOut = false;
    LeadIn leadIn; ///< read first; whole pulls
    std::uint32_t leadInDone = 0;

private:
    ClickSchedule &m_schedule;
    Account m_account;
    bool m_mustReset = false;
};

class ClickMixerTest : public testing::Test {
protected:
    ClickMixerTest()
    {
        mixer.initialize();
        EXPECT_EQ(mixer.connect(&stage, &schedule), 0);
        schedule.setSound({.loudness = 1.0F, .hasAccents = false});
    }

    void setBeats(const std::vector<std::uint64_t> &frames)
    {
        std::vector<SongBeat> beats;
        for (const std::uint64_t frame : frames)
            beats.push_back(
                {.frame = frame, .beat = static_cast<std::uint8_t>(1 + beats.size() % 4)});
        schedule.setTable(clickTable(beats, {}));
    }

    void pull(std::uint32_t frames)
    {
        const std::size_t before = left.size();
        left.resize(before + frames);
        right.resize(before + frames);
        AudioBufferList list;
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, frames * 4, left.data() + before};
        list.mBuffers[1] = {1, frames * 4, right.data() + before};
        mixer.render(frames, list);
    }
    void pullAll(std::uint32_t frames)
    {
        for (; frames > 0; frames -= 128)
            pull(128);
    }

    /// Where sound begins in a channel after 500 frames of silence.
    static std::vector<std::size_t> starts(const std::vector<float> &channel)
    {
        std::vector<std::size_t> found;
        std::size_t last = 0;
        for (std::size_t i = 0; i < channel.size(); ++i) {
            if (channel[i] == 0.0F)
                continue;
            if (found.empty() || i > last + 500)
                found.push_back(i);
            last = i;
        }
        return found;
    }

    ClickSchedule schedule;
    AccountedStage stage{schedule};
    ClickMixer mixer;
    std::vector<float> left;
    std::vector<float> right;
};

TEST_F(ClickMixerTest, DeliversSilenceBeforeItIsConnected)
{
    ClickMixer lonely;
    lonely.initialize();
    std::vector<float> samples(256, 1.0F);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0] = {1, 128 * 4, samples.data()};
    list.mBuffers[1] = {1, 128 * 4, samples.data() + 128};
    lonely.render(128, list);
    EXPECT_THAT(samples, testing::Each(0.0F));
    EXPECT_NE(lonely.connect(nullptr, &schedule), 0);
    EXPECT_NE(lonely.connect(&stage, nullptr), 0);
}

TEST_F(ClickMixerTest, PassesTheSoundUnchangedWhileNothingIsDue)
{
    stage.level = 0.123F;
    setBeats({1'000'000});
    pullAll(12800);
    EXPECT_THAT(left, testing::Each(0.123F));
    EXPECT_THAT(right, testing::Each(0.123F));
}

TEST_F(ClickMixerTest, BeginsAClickAtTheFrameOfItsBeat)
{
    setBeats({0, 5000, 10001, 15127, 20224});
    pullAll(25600);
    EXPECT_THAT(starts(left), testing::ElementsAre(0, 5000, 10001, 15127, 20224));
    EXPECT_EQ(left, right);
}

TEST_F(ClickMixerTest, WaitsForWhatTheStageHoldsAtItsSpeed)
{
    stage.held = 3000.0;
    stage.speed = 0.5;
    pullAll(256);
    setBeats({5000, 8000});
    pullAll(25600);
    const auto found = starts(left);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_NEAR(static_cast<double>(found[0]), 10000.0, 3.0);
    EXPECT_NEAR(static_cast<double>(found[1]), 16000.0, 3.0);
}

TEST_F(ClickMixerTest, DropsTheClicksOfFramesThatAResetDrops)
{
    stage.held = 3000.0;
    setBeats({2000, 9000});
    pullAll(256); // beat 2000 is read, but not heard yet
    stage.reset();
    stage.position = 8900;
    pullAll(2560);
    EXPECT_THAT(starts(left), testing::ElementsAre(256 + 100));
}

TEST_F(ClickMixerTest, FadesASoundingClickOutAtAReset)
{
    setBeats({100});
    pullAll(256);
    stage.reset();
    stage.position = 20000;
    pullAll(256);
    EXPECT_NE(left[255], 0.0F);
    EXPECT_NE(left[256 + 20], 0.0F);
    for (std::size_t i = 256 + 64; i < left.size(); ++i)
        ASSERT_EQ(left[i], 0.0F) << i;
}

TEST_F(ClickMixerTest, PutsTheClickOnOneSide)
{
    setBeats({0});
    schedule.setSound({.loudness = 0.5F, .side = ClickSide::Left});
    pullAll(2560);
    EXPECT_GT(*std::max_element(left.begin(), left.end()), 0.4F);
    EXPECT_THAT(right, testing::Each(0.0F));
}

TEST_F(ClickMixerTest, PutsTheClickOnTheOtherSide)
{
    setBeats({0});
    schedule.setSound({.loudness = 0.5F, .side = ClickSide::Right});
    pullAll(2560);
    EXPECT_GT(*std::max_element(right.begin(), right.end()), 0.4F);
    EXPECT_THAT(left, testing::Each(0.0F));
}

TEST_F(ClickMixerTest, EveryTimbreHasAccentsThatAreLouderThanBeats)
{
    for (const auto timbre : {ClickTimbre::Tick, ClickTimbre::Wood, ClickTimbre::Beep}) {
        for (const bool hasAccents : {true, false}) {
            left.clear();
            right.clear();
            schedule.setSound({.loudness = 1.0F, .timbre = timbre, .hasAccents = hasAccents});
            setBeats({stage.position + 100, stage.position + 20100});
            pullAll(40960);
            const auto peak = [this](std::size_t from) {
                return *std::max_element(left.begin() + static_cast<std::ptrdiff_t>(from),
                                         left.begin() + static_cast<std::ptrdiff_t>(from + 15000));
            };
            if (hasAccents)
                EXPECT_GT(peak(0), 1.3F * peak(20000));
            else
                EXPECT_EQ(peak(0), peak(20000));
            EXPECT_LE(peak(0), 1.0001F);
        }
    }
}

TEST_F(ClickMixerTest, EveryTimbreReachesHalfItsPeakWithinAMillisecondAndEndsInSilence)
{
    for (const auto timbre : {ClickTimbre::Tick, ClickTimbre::Wood, ClickTimbre::Beep}) {
        left.clear();
        right.clear();
        schedule.setSound({.loudness = 1.0F, .timbre = timbre});
        setBeats({stage.position + 10});
        pullAll(12800);
        const float peak = *std::max_element(left.begin(), left.end());
        const auto early = *std::max_element(left.begin() + 10, left.begin() + 10 + 44);
        EXPECT_GT(early, 0.5F * peak);
        std::size_t last = 0;
        for (std::size_t i = 0; i < left.size(); ++i)
            last = std::abs(left[i]) > 0.001F * peak ? i : last;
        EXPECT_LT(last, 0.085 * 44100.0);
        EXPECT_LT(std::abs(left[last]), 0.01F * peak);
    }
}

TEST_F(ClickMixerTest, PlaysTheClicksOfACountInWithoutATable)
{
    stage.leadIn = {.frames = 2560, .clickCount = 2};
    stage.leadIn.clicks[0] = {.frame = 0, .kind = ClickKind::Accent};
    stage.leadIn.clicks[1] = {.frame = 1900, .kind = ClickKind::Beat};
    pullAll(5120);
    EXPECT_THAT(starts(left), testing::ElementsAre(0, 1900));
}

TEST_F(ClickMixerTest, OfANewChainDropsTheClicksThatTheFormerOneHeld)
{
    stage.held = 3000.0;
    setBeats({500, 1500, 2500, 9000});
    pullAll(256); // all but the last are read, and none is heard
    left.clear();
    right.clear();
    AccountedStage newStage(schedule);
    newStage.position = stage.position;
    ClickMixer newMixer;
    newMixer.initialize();
    newMixer.connect(&newStage, &schedule);
    for (int i = 0; i < 100; ++i) {
        newStage.speed = i < 10 ? 0.0 : 1.0; // at first it still warms up
        left.resize(left.size() + 128);
        right.resize(right.size() + 128);
        AudioBufferList list;
        list.mNumberBuffers = 2;
        list.mBuffers[0] = {1, 128 * 4, left.data() + left.size() - 128};
        list.mBuffers[1] = {1, 128 * 4, right.data() + right.size() - 128};
        newMixer.render(128, list);
    }
    EXPECT_THAT(starts(left), testing::ElementsAre(10 * 128 + 9000 - 3256));
}

TEST_F(ClickMixerTest, PlaysOutAsLongAsItsSource)
{
    EXPECT_FALSE(mixer.isPlayingOut());
    stage.playsOut = true;
    EXPECT_TRUE(mixer.isPlayingOut());
}

TEST_F(ClickMixerTest, ManyClicksAtOnceTakeTheVoicesOfTheOldest)
{
    std::vector<std::uint64_t> beats;
    for (std::uint64_t i = 0; i < 100; ++i)
        beats.push_back(i * closestClicks);
    setBeats(beats);
    schedule.setSound({.loudness = 1.0F, .timbre = ClickTimbre::Beep});
    stage.speed = 8.0;
    pullAll(12800);
    for (const float sample : left)
        ASSERT_TRUE(std::isfinite(sample) && std::abs(sample) < 16.0F);
    EXPECT_EQ(left.back(), 0.0F);
}

} // namespace
} // namespace lyrabox
