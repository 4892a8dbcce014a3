#include "platform/analysis/Attacks.h"

#include "platform/analysis/MadeSong.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace lyrabox;
using test::MadeSong;
using test::songRate;

namespace {

constexpr std::size_t fiveSeconds = 5 * 44100;
constexpr std::uint64_t threeMilliseconds = 132;
constexpr auto end = std::numeric_limits<std::uint64_t>::max();

/// Places after the first half second at a tempo, none of them at a step of the analysis.
std::vector<std::size_t> places(double beatsPerMinute)
{
    std::vector<std::size_t> frames;
    for (double beat = 0.0;; beat += 1.0) {
        const auto frame =
            static_cast<std::size_t>(22'077.0 + beat * 60.0 / beatsPerMinute * songRate);
        if (frame + 8000 > fiveSeconds)
            return frames;
        frames.push_back(frame);
    }
}

std::vector<std::uint64_t> framesOf(const std::vector<Attack> &attacks)
{
    std::vector<std::uint64_t> frames;
    for (const Attack &attack : attacks)
        frames.push_back(attack.frame);
    return frames;
}

/// The attacks after the beginning of the song, which is one itself unless it is silent.
std::vector<Attack> laterAttacks(const MadeSong &song)
{
    return findAttacks(song.samples(), 2000, end);
}

/// Expects an attack at each of the places, exact to 3 ms, and no other.
void expectAttacks(const MadeSong &song, const std::vector<std::size_t> &expected)
{
    const auto found = framesOf(laterAttacks(song));
    ASSERT_EQ(found.size(), expected.size()) << testing::PrintToString(found);
    for (std::size_t i = 0; i < found.size(); ++i)
        EXPECT_NEAR(static_cast<double>(found[i]), static_cast<double>(expected[i]),
                    threeMilliseconds);
}

using Sound = std::function<void(MadeSong &)>;

void silence(MadeSong &) {}
void noise(MadeSong &song)
{
    song.addNoise(0.03);
}
void chord(MadeSong &song)
{
    song.addChord({130.8, 164.8, 196.0}, 0.08);
    song.addNoise(0.01);
}

/// Makes songs of one background and one kind of event at three tempi and looks for the events.
void expectEventsFound(const Sound &background,
                       const std::function<void(MadeSong &, std::size_t)> &event)
{
    for (const double tempo : {60.0, 120.0, 187.0}) {
        SCOPED_TRACE(tempo);
        MadeSong song(fiveSeconds);
        background(song);
        for (const std::size_t place : places(tempo))
            event(song, place);
        expectAttacks(song, places(tempo));
    }
}

const auto click = [](MadeSong &song, std::size_t at) { song.addClick(at, 0.5F); };
const auto note = [](MadeSong &song, std::size_t at) {
    song.addPluck(at, 220.0 + 40.0 * static_cast<double>(at / 11025 % 7), 0.3, 0.3);
};
const auto bassNote = [](MadeSong &song, std::size_t at) {
    song.addPluck(at, 55.0 + 10.0 * static_cast<double>(at / 11025 % 7), 0.3, 0.3);
};

} // namespace

TEST(Attacks, ClicksAreFoundInSilence)
{
    expectEventsFound(silence, click);
}
TEST(Attacks, ClicksAreFoundInNoise)
{
    expectEventsFound(noise, click);
}
TEST(Attacks, ClicksAreFoundOverAChord)
{
    expectEventsFound(chord, click);
}
TEST(Attacks, NotesAreFoundInSilence)
{
    expectEventsFound(silence, note);
}
TEST(Attacks, NotesAreFoundInNoise)
{
    expectEventsFound(noise, note);
}
TEST(Attacks, NotesAreFoundOverAChord)
{
    expectEventsFound(chord, note);
}
TEST(Attacks, LowNotesAreFoundInNoise)
{
    expectEventsFound(noise, bassNote);
}

TEST(Attacks, SoftClicksAreFoundOverAChord)
{
    expectEventsFound(chord, [](MadeSong &song, std::size_t at) { song.addClick(at, 0.15F); });
}

TEST(Attacks, OfLowNotesThatRunTogetherMostAreFoundAndNothingElse)
{
    MadeSong song(2 * fiveSeconds);
    song.addNoise(0.03);
    std::vector<std::size_t> notes;
    for (std::size_t at = 22'077; at + 8000 < song.left.size(); at += 5513) { // eight a second
        song.addPluck(at, 50.0 + 10.0 * static_cast<double>(notes.size() * 3 % 7), 0.3, 0.3);
        notes.push_back(at);
    }
    std::size_t found = 0;
    for (const std::uint64_t frame : framesOf(laterAttacks(song))) {
        const bool isNote = std::any_of(notes.begin(), notes.end(), [frame](std::size_t at) {
            return frame + threeMilliseconds >= at && frame <= at + threeMilliseconds;
        });
        EXPECT_TRUE(isNote) << frame;
        found += isNote ? 1 : 0;
    }
    EXPECT_GE(found, notes.size() * 95 / 100) << notes.size();
}

TEST(Attacks, ANoteInOneChannelIsFound)
{
    MadeSong song(fiveSeconds);
    song.addPluck(60'000, 300.0, 0.3, 0.3);
    std::fill(song.right.begin(), song.right.end(), 0.0F);
    expectAttacks(song, {60'000});
}

TEST(Attacks, ANoteInOppositePhaseIsFound)
{
    MadeSong song(fiveSeconds);
    song.addPluck(60'000, 300.0, 0.3, 0.3);
    std::transform(song.left.begin(), song.left.end(), song.right.begin(), std::negate<>());
    expectAttacks(song, {60'000});
}

TEST(Attacks, ASongThatBeginsAtOnceBeginsWithAnAttack)
{
    MadeSong song(fiveSeconds);
    song.addPluck(0, 300.0, 0.3, 0.3);
    const auto attacks = findAttacks(song.samples(), 0, end);
    ASSERT_EQ(attacks.size(), 1U);
    EXPECT_LE(attacks.front().frame, threeMilliseconds);
}

TEST(Attacks, StrongerAttacksHaveAGreaterStrength)
{
    MadeSong song(fiveSeconds);
    song.addChord({300.0, 400.0}, 0.05);
    song.addClick(60'000, 0.1F);
    song.addClick(120'000, 0.8F);
    const auto attacks = laterAttacks(song);
    ASSERT_EQ(attacks.size(), 2U);
    EXPECT_GT(attacks[0].strength, 0.0F);
    EXPECT_GT(attacks[1].strength, 1.5F * attacks[0].strength);
    EXPECT_LE(attacks[1].strength, 1.0F);
}

TEST(Attacks, SilenceHasNone)
{
    EXPECT_TRUE(findAttacks(MadeSong(fiveSeconds).samples(), 0, end).empty());
}

TEST(Attacks, SteadySoundsHaveNone)
{
    for (const double frequency : {41.2, 110.0, 440.0, 1234.5, 9000.0}) {
        MadeSong song(fiveSeconds);
        song.addTone(0, frequency, 0.4);
        EXPECT_TRUE(laterAttacks(song).empty()) << frequency;
    }
    for (const Sound &sound : {Sound(noise), Sound(chord)}) {
        MadeSong song(fiveSeconds);
        sound(song);
        EXPECT_EQ(framesOf(laterAttacks(song)), std::vector<std::uint64_t>{});
    }
}

TEST(Attacks, AVibratoHasNone)
{
    MadeSong song(fiveSeconds);
    for (std::size_t i = 0; i < fiveSeconds; ++i) {
        const double time = static_cast<double>(i) / songRate;
        const double phase = 2.0 * std::numbers::pi * 440.0 * time + 2.4 * std::sin(34.6 * time);
        for (int partial = 1; partial <= 10; ++partial)
            song.left[i] += static_cast<float>(0.1 * std::sin(partial * phase) / partial);
    }
    song.right = song.left;
    EXPECT_EQ(framesOf(laterAttacks(song)), std::vector<std::uint64_t>{});
}

TEST(Attacks, TheEndOfANoteIsNone)
{
    for (const double fade : {1e-9, 0.002, 0.005, 0.05}) {
        MadeSong song(fiveSeconds);
        song.addChord({440.3}, 0.3);
        for (std::size_t i = 100'000; i < fiveSeconds; ++i) {
            const double gain =
                std::max(0.0, 1.0 - static_cast<double>(i - 100'000) / songRate / fade);
            song.left[i] *= static_cast<float>(gain);
            song.right[i] *= static_cast<float>(gain);
        }
        EXPECT_EQ(framesOf(laterAttacks(song)), std::vector<std::uint64_t>{}) << fade;
    }
}

TEST(Attacks, TheEndOfTheSongIsNone)
{
    for (const std::size_t frames : {fiveSeconds, fiveSeconds - 100, fiveSeconds - 400}) {
        MadeSong song(frames);
        song.addChord({440.3}, 0.3);
        EXPECT_EQ(framesOf(laterAttacks(song)), std::vector<std::uint64_t>{}) << frames;
    }
}

TEST(Attacks, AClickRightBeforeTheEndOfTheSongIsFound)
{
    for (const std::size_t distance : {100, 200, 300, 500}) {
        MadeSong song(fiveSeconds);
        song.addClick(fiveSeconds - distance, 0.5F);
        expectAttacks(song, {fiveSeconds - distance});
    }
}

TEST(Attacks, APartOfTheSongHasTheAttacksThatTheWholeHasThere)
{
    MadeSong song(20 * 44100);
    song.addNoise(0.03);
    std::mt19937 random(4);
    for (std::size_t at = 5000; at < song.left.size(); at += 2000 + random() % 12'000)
        song.addPluck(at, 100.0 + static_cast<double>(random() % 400), 0.3, 0.2);
    const auto whole = findAttacks(song.samples(), 0, end);
    EXPECT_GT(whole.size(), 80U);
    for (int run = 0; run < 60; ++run) {
        const std::uint64_t from = random() % song.left.size();
        const std::uint64_t to = from + random() % 40'000;
        std::vector<Attack> expected;
        std::copy_if(
            whole.begin(), whole.end(), std::back_inserter(expected),
            [&](const Attack &attack) { return attack.frame >= from && attack.frame < to; });
        EXPECT_EQ(findAttacks(song.samples(), from, to), expected) << from << " to " << to;
    }
}

TEST(Attacks, AnEmptySongHasNone)
{
    const MadeSong song(0);
    EXPECT_TRUE(findAttacks(song.samples(), 0, end).empty());
    EXPECT_FALSE(nearestAttack(song.samples(), 0, 100, 100));
}

TEST(Attacks, AShortSongHasOneAtItsBeginningOrNone)
{
    for (const std::size_t frames : {1, 2, 100, 255, 511, 512, 513, 1500}) {
        MadeSong song(frames);
        std::fill(song.left.begin(), song.left.end(), 0.5F);
        for (const std::uint64_t frame : framesOf(findAttacks(song.samples(), 0, end)))
            EXPECT_EQ(frame, 0U) << frames;
    }
}

TEST(Attacks, EmptyPartsHaveNone)
{
    MadeSong song(fiveSeconds);
    song.addClick(60'000, 0.5F);
    EXPECT_TRUE(findAttacks(song.samples(), 60'000, 60'000).empty());
    EXPECT_TRUE(findAttacks(song.samples(), 70'000, 50'000).empty());
    EXPECT_TRUE(findAttacks(song.samples(), fiveSeconds, end).empty());
    EXPECT_TRUE(findAttacks(song.samples(), end, end).empty());
}

TEST(Attacks, DamagedSamplesCountAsSilence)
{
    MadeSong song(fiveSeconds);
    song.addNoise(0.01);
    song.addClick(60'000, 0.5F);
    MadeSong repaired = song;
    const float damage[]{NAN, INFINITY, -INFINITY, 1e30F};
    for (std::size_t i = 0; i < 400; ++i) {
        song.left[i * 500] = damage[i % 4];
        repaired.left[i * 500] = 0.0F;
    }
    EXPECT_EQ(findAttacks(song.samples(), 0, end), findAttacks(repaired.samples(), 0, end));
    std::fill(song.left.begin(), song.left.end(), NAN);
    std::fill(song.right.begin(), song.right.end(), -INFINITY);
    EXPECT_TRUE(findAttacks(song.samples(), 0, end).empty());
}

TEST(Attacks, AStoppedSearchReturnsAtOnce)
{
    MadeSong song(fiveSeconds);
    song.addClick(60'000, 0.5F);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(findAttacks(song.samples(), 0, end, stop.get_token()).empty());
}

TEST(NearestAttack, ClicksMarked120MillisecondsLateAreFoundAtEverySpeed)
{
    MadeSong song(fiveSeconds);
    chord(song);
    for (const std::size_t place : places(60.0))
        song.addClick(place, 0.3F);
    for (const double speed : {0.5, 0.75, 1.0}) {
        for (const std::size_t place : places(60.0)) {
            const auto inSong = [speed](double seconds) {
                return static_cast<std::uint64_t>(seconds * speed * songRate);
            };
            const auto attack =
                nearestAttack(song.samples(), place + inSong(0.12), inSong(0.25), inSong(0.05));
            ASSERT_TRUE(attack);
            EXPECT_NEAR(static_cast<double>(attack->frame), static_cast<double>(place),
                        threeMilliseconds);
        }
    }
}

TEST(NearestAttack, OnlyAttacksWithinTheReachCount)
{
    MadeSong song(fiveSeconds);
    song.addClick(60'000, 0.5F);
    ASSERT_EQ(framesOf(laterAttacks(song)), std::vector<std::uint64_t>{60'000});
    EXPECT_TRUE(nearestAttack(song.samples(), 63'000, 3000, 0));
    EXPECT_FALSE(nearestAttack(song.samples(), 63'000, 2999, 10'000));
    EXPECT_TRUE(nearestAttack(song.samples(), 58'000, 0, 2000));
    EXPECT_FALSE(nearestAttack(song.samples(), 58'000, 10'000, 1999));
    EXPECT_TRUE(nearestAttack(song.samples(), 60'000, 0, 0));
    EXPECT_TRUE(nearestAttack(song.samples(), end, end, end));
}

TEST(NearestAttack, TheNearestWinsAndOfTwoTheEarlierOne)
{
    MadeSong song(fiveSeconds);
    song.addClick(60'000, 0.5F);
    song.addClick(70'000, 0.5F);
    EXPECT_EQ(nearestAttack(song.samples(), 64'000, 11'025, 11'025)->frame, 60'000U);
    EXPECT_EQ(nearestAttack(song.samples(), 66'000, 11'025, 11'025)->frame, 70'000U);
    EXPECT_EQ(nearestAttack(song.samples(), 65'000, 11'025, 11'025)->frame, 60'000U);
}
