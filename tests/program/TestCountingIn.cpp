// The click and the count-in in the real program, by keys, as they are heard.

#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class CountingProgram : public ProgramWithPane {
protected:
    static constexpr double rate = Recorder::sampleRate;
    static constexpr std::uint64_t beat = 22050; // 120 beats a minute
    static constexpr double beatSeconds = 0.5;

    /// Where sounds begin after silence, in seconds of the recording: those that are heard from
    /// sample `from` on, up to now. On a busy machine a gap may divide a click; both parts are one.
    std::vector<double> onsets(std::size_t from) const
    {
        const std::vector<float> heard = recorder->samples(from);
        constexpr std::size_t quiet = 2205; // a click is shorter than the gap to the next one
        std::vector<double> found;
        std::size_t silent = quiet; // it is silent when a test begins to listen
        for (std::size_t i = 0; i < heard.size(); ++i) {
            if (std::abs(heard[i]) < 0.01F) {
                ++silent;
                continue;
            }
            const double second = static_cast<double>(from + i) / rate;
            if (silent >= quiet && (found.empty() || second > found.back() + beatSeconds / 2))
                found.push_back(second);
            silent = 0;
        }
        return found;
    }

    /// Expects sounds at every beat. The first one may have begun before. On a busy machine gaps
    /// make some of the beats longer, but none shorter.
    static void expectBeats(const std::vector<double> &onsets)
    {
        std::vector<double> lengths;
        for (std::size_t i = 2; i < onsets.size(); ++i)
            lengths.push_back(onsets[i] - onsets[i - 1]);
        std::ranges::sort(lengths);
        ASSERT_FALSE(lengths.empty());
        EXPECT_NEAR(lengths.front(), beatSeconds, 0.05);
        EXPECT_NEAR(lengths[lengths.size() / 3], beatSeconds, 0.05);
    }

    /// Gives the song that plays beats in bars of 4, from its start on.
    void giveBeats()
    {
        display.key(u"m"_s); // so that there is a file
        const QDir folder(settingsFile(u"Practice"_s));
        QString name;
        ASSERT_TRUE(waitUntil([&] {
            QStringList files = folder.entryList({u"*.json"_s}, QDir::Files);
            files.removeAll(u"Index.json"_s);
            name = files.value(0);
            return !name.isEmpty() && QFile::exists(folder.filePath(u"Index.json"_s));
        }));
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        PracticeRecord record = readPractice(file.readAll())->record;
        file.close();
        record.beats.grid = BeatGrid({{.frame = 0, .bar = 1}, {.frame = 80 * beat, .bar = 21}});
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(practiceText(record));
        file.close();
    }

    /// Leaves the song paused at `second`, in a wave that shows all of it.
    void pauseAt(double second)
    {
        display.key(u"space"_s);
        ASSERT_TRUE(hearsSilence());
        display.key(u"w"_s);
        display.click(placeOf(second));
    }
};

TEST_F(CountingProgram, ACountInRunsOnToThePickUpAndTheMusicComesInTime)
{
    startAndPlay();
    openPane();
    giveBeats();
    pauseAt(5.5); // the fourth beat of a bar
    display.key(u"shift+c"_s);
    const std::size_t from = recorder->size();
    display.key(u"space"_s);
    ASSERT_TRUE(hears(stepFrequency(5), 10.0) || hears(stepFrequency(6), 2.0));
    const std::vector<double> heard = onsets(from);
    ASSERT_EQ(heard.size(), 8U) << "a bar, three beats of the next one, and the music";
    expectBeats(heard);

    // Paused while it counts, it counts again. The user does not wait for it: a click goes on.
    display.key(u"space"_s);
    ASSERT_TRUE(hearsSilence());
    display.click(placeOf(8.0));
    std::size_t again = recorder->size();
    display.key(u"space"_s);
    ASSERT_TRUE(waitUntil([&] { return onsets(again).size() >= 2; }));
    display.key(u"space"_s);
    ASSERT_TRUE(hearsSilence());
    again = recorder->size();
    display.key(u"space"_s);
    ASSERT_TRUE(waitUntil([&] { return onsets(again).size() >= 3; })) << "it counts from one";
    display.click(placeOf(12.5));
    EXPECT_TRUE(hears(stepFrequency(12), 3.0));

    // Without the count-in it plays at once.
    display.key(u"shift+c"_s);
    display.key(u"space"_s);
    ASSERT_TRUE(hearsSilence());
    again = recorder->size();
    display.key(u"space"_s);
    ASSERT_TRUE(hearsAnything());
    EXPECT_EQ(onsets(again).size(), 1U);
    EXPECT_EQ(quit(), 0);
    EXPECT_FALSE(userDefault(u"countInAmount"_s).isValid()) << "no setting was changed";
}

TEST_F(CountingProgram, TheClickIsSwitchedByItsKeyAndStaysOnForTheNextSong)
{
    const QString folder =
        makeFolder(u"Quiet"_s, {{u"Alpha"_s, 200.0, 30.0, 0.0004}, {u"Beta"_s, 300.0, 30.0, 0.4}});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(0);
    openPane();
    giveBeats();
    EXPECT_TRUE(hearsSilence());
    display.key(u"c"_s);
    ASSERT_TRUE(hearsAnything());
    std::size_t from = recorder->size();
    ASSERT_TRUE(waitUntil([&] { return onsets(from).size() >= 7; }));
    expectBeats(onsets(from));
    display.key(u"c"_s);
    EXPECT_TRUE(hearsSilence());
    display.key(u"c"_s);
    display.key(u"ctrl+Right"_s); // the next song, which has no beats
    EXPECT_TRUE(hears(300.0));
    display.key(u"ctrl+Left"_s);
    from = recorder->size();
    EXPECT_TRUE(waitUntil([&] { return onsets(from).size() >= 4; })) << "it is still on";
    EXPECT_EQ(quit(), 0);
}

} // namespace
