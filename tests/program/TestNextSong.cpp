// The next song is decoded while the present one plays.

#include "program/Places.h"
#include "support/SampleAudio.h"
#include "support/program/RunningProgram.h"

#include <QDir>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// "Alpha" at 300 Hz, and "Beta" at 400 Hz, which takes nine seconds to read.
class ProgramWithASlowNextSong : public RunningProgram {
protected:
    enum class Advance { On, Off };

    void startAndPlayAlpha(Advance advance = Advance::On)
    {
        // Even if the whole suite runs without it.
        setVariable(u"LYRABOX_READY_SONGS"_s, advance == Advance::On ? u"1"_s : u"0"_s);
        folder = makeFolder(u"Tones"_s, {{u"Alpha"_s, 300.0, 120.0}});
        slowFile = QDir(folder).filePath(u"beta.mp3"_s);
        ASSERT_TRUE(makeSampleAt(slowFile, {.extension = u"mp3"_s,
                                            .frequency = 400.0,
                                            .amplitude = 0.4,
                                            .seconds = 60.0,
                                            .tags = {{u"title"_s, u"Beta"_s}},
                                            .options = {u"-b:a"_s, u"128k"_s}}));
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(2));
        doubleClickSong(0);
        ASSERT_TRUE(hears(300.0));
    }

    /// Waits until the file stays closed. A list that is built meanwhile, for example because a
    /// disk was mounted, lets the reading begin again.
    bool waitUntilItIsReady() const
    {
        int closed = 0;
        return waitUntil(
            [&] {
                recorder->waitFor(0.1);
                closed = reads(slowFile) ? 0 : closed + 1;
                return closed == 10;
            },
            90.0);
    }

    /// The longest silence in the recording from sample `begin` on, in seconds.
    double longestSilence(std::size_t begin) const
    {
        std::size_t longest = 0;
        std::size_t silent = 0;
        for (const float sample : recorder->samples(begin)) {
            silent = std::abs(sample) < 0.001F ? silent + 1 : 0;
            longest = std::max(longest, silent);
        }
        return static_cast<double>(longest) / Recorder::sampleRate;
    }

    QString folder;
};

TEST_F(ProgramWithASlowNextSong, PlaysItWithoutTheWaitAtItsKeyOnceItIsReady)
{
    startAndPlayAlpha();
    ASSERT_TRUE(waitUntil([this] { return reads(slowFile); })) << "it is not made ready";
    ASSERT_TRUE(waitUntilItIsReady());
    EXPECT_TRUE(hears(300.0));
    const std::size_t begin = recorder->size();
    display.key(u"ctrl+Right"_s);
    EXPECT_TRUE(hears(400.0));
    EXPECT_LT(longestSilence(begin), 3.0);
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithASlowNextSong, EndsWhileItIsMadeReady)
{
    startAndPlayAlpha();
    ASSERT_TRUE(waitUntil([this] { return reads(slowFile); }));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithASlowNextSong, DoesNotReadItInAdvanceWhenThatIsTurnedOff)
{
    startAndPlayAlpha(Advance::Off);
    for (int i = 0; i < 10; ++i) {
        ASSERT_TRUE(recorder->waitFor(0.1));
        EXPECT_FALSE(reads(slowFile));
    }
}

} // namespace
