#include "app/practice/SoundWords.h"

#include "app/practice/SoundSettings.h"
#include "platform/foundation/UserDefaults.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

QString tuningOf(double cents, double ownA = 440.0)
{
    const SongTuning song{.cents = cents, .lowest = cents, .highest = cents};
    return soundWords::tuning(heardTuning(song, 0.0, ownA));
}

QString driftOf(double lowest, double cents, double highest)
{
    return soundWords::tuning(
        heardTuning({.cents = cents, .lowest = lowest, .highest = highest}, 0.0, 440.0));
}

TEST(TuningInWords, IsInWholeCentsWithTheASong)
{
    EXPECT_EQ(tuningOf(-23.4), u"23 cents flat (A = 434)"_s);
    EXPECT_EQ(tuningOf(30.5), u"31 cents sharp (A = 448)"_s);
    EXPECT_EQ(tuningOf(0.49), u"In tune (A = 440)"_s);
    EXPECT_EQ(tuningOf(-0.49), u"In tune (A = 440)"_s);
    EXPECT_EQ(tuningOf(-49.9), u"50 cents flat (A = 427)"_s);
}

TEST(TuningInWords, ShowsTenthsOfHertzWhereWholeOnesWouldHideTheDifference)
{
    EXPECT_EQ(tuningOf(-0.5), u"1 cent flat (A = 439.9)"_s);
    EXPECT_EQ(tuningOf(1.4), u"1 cent sharp (A = 440.4)"_s);
    EXPECT_EQ(tuningOf(-3.0), u"3 cents flat (A = 439)"_s);
}

TEST(TuningInWords, IsAgainstTheMusiciansA)
{
    EXPECT_EQ(tuningOf(-23.4, 442.0), u"31 cents flat (A = 434)"_s);
    EXPECT_EQ(tuningOf(9.8, 442.5), u"In tune (A = 442.5)"_s);
}

TEST(TuningInWords, IsARangeIfTheSongDrifts)
{
    EXPECT_EQ(driftOf(-31.2, -20.0, -12.0), u"Drifts: 12 to 31 cents flat (A = 432 to 437)"_s);
    EXPECT_EQ(driftOf(-0.2, 8.0, 14.0), u"Drifts: 0 to 14 cents sharp (A = 440 to 444)"_s);
    EXPECT_EQ(driftOf(-8.0, 2.0, 15.0),
              u"Drifts: 8 cents flat to 15 cents sharp (A = 438 to 444)"_s);
}

TEST(KeysInWords, AreSpelledWithTheFewestSigns)
{
    EXPECT_EQ(soundWords::keys({.first = {.tonic = 9, .isMinor = true}, .second = {.tonic = 0}}),
              u"A minor (or C major)"_s);
    const auto relatives = [](int major) {
        return soundWords::keys(
            {.first = {.tonic = major}, .second = {.tonic = (major + 9) % 12, .isMinor = true}});
    };
    EXPECT_EQ(relatives(1), u"D♭ major (or B♭ minor)"_s);
    EXPECT_EQ(relatives(3), u"E♭ major (or C minor)"_s);
    EXPECT_EQ(relatives(4), u"E major (or C♯ minor)"_s);
    EXPECT_EQ(relatives(6), u"F♯ major (or D♯ minor)"_s);
    EXPECT_EQ(relatives(8), u"A♭ major (or F minor)"_s);
    EXPECT_EQ(relatives(11), u"B major (or G♯ minor)"_s);
}

TEST(Instruments, ReadTheirNotesHigherAndAreNamedAfterThat)
{
    const QStringList names = soundWords::instruments();
    ASSERT_EQ(names.size(), instrumentCount);
    const auto readsOf = [&names](const QString &name) {
        return readAbove(static_cast<int>(names.indexOf(name)));
    };
    EXPECT_EQ(readsOf(u"in C"_s), 0);
    EXPECT_EQ(readsOf(u"in B♭"_s), 2) << "a sounding C is read as a D";
    EXPECT_EQ(readsOf(u"in E♭"_s), 9);
    EXPECT_EQ(readsOf(u"in F"_s), 7);
    EXPECT_EQ(readsOf(u"in A"_s), 3);
    EXPECT_EQ(readsOf(u"in G"_s), 5);
    EXPECT_EQ(readsOf(u"Capo 1"_s), 11) << "a sounding C is gripped as a B";
    EXPECT_EQ(readsOf(u"Capo 11"_s), 1);
}

TEST(SoundSettingsStored, AreReadAgainAndNonsenseIsTheUsual)
{
    userDefaults().clear();
    EXPECT_EQ(storedSoundSettings(), SoundSettings());
    for (int instrument = 0; instrument < instrumentCount; ++instrument) {
        const SoundSettings settings{.ownA = 442.5, .instrument = instrument};
        store(settings);
        reopenUserDefaults();
        EXPECT_EQ(storedSoundSettings(), settings);
    }
    userDefaults().setValue(u"tuningA"_s, 1000);
    userDefaults().setValue(u"instrument"_s, u"kazoo"_s);
    EXPECT_EQ(storedSoundSettings(), (SoundSettings{.ownA = 480.0, .instrument = 0}));
    userDefaults().setValue(u"tuningA"_s, u"nan"_s);
    EXPECT_EQ(storedSoundSettings(), SoundSettings());
    userDefaults().clear();
}

} // namespace
