// The page Sound in the real program, by mouse and keys, as it is heard. The song has one tone on
// the left, one on the right and one in the middle.

#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <numbers>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Positions in the main window at the size of ProgramWithPane, like those of Places.h.
namespace at {
constexpr QPoint soundTab{1072, 347};
constexpr QPoint both{857, 381};
constexpr QPoint mono{911, 381};
constexpr QPoint left{964, 381};
constexpr QPoint right{1018, 381};
constexpr QPoint swapped{1073, 381};
constexpr QPoint balanceLeft{893, 413};
constexpr QPoint balanceRight{996, 413};
constexpr QPoint centre{945, 445};
constexpr QPoint centreLeft{893, 445};
constexpr QPoint centreRight{1002, 445};
constexpr QPoint centreField{1030, 445};
constexpr QPoint tune{875, 555};
constexpr QPoint ownA{951, 555};
constexpr QPoint original{864, 594};
constexpr QPoint normal{1073, 594};
constexpr QPoint title{660, 640}; ///< takes the keyboard from a field
} // namespace at

class ProgramWithSound : public ProgramWithPane {
protected:
    static constexpr double leftTone = 600.0;
    static constexpr double rightTone = 1500.0;
    static constexpr double middleTone = 3000.0;

    /// A song with the three tones, one with other tones on its sides, and one with equal channels.
    void startWithSongs(int row = 0)
    {
        const QString folder =
            makeFolder(u"Sounds"_s, {{.title = u"C mono"_s, .frequency = 800.0, .seconds = 120.0}});
        addSong(folder, u"A three"_s, tone(leftTone) + u'+' + tone(middleTone),
                tone(rightTone) + u'+' + tone(middleTone));
        addSong(folder, u"B same"_s, tone(leftTone) + u'+' + tone(middleTone),
                tone(rightTone) + u'+' + tone(middleTone));
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(3));
        doubleClickSong(row);
        ASSERT_TRUE(hearsAnything());
        openPane();
        click(at::soundTab);
    }

    static QString tone(double hertz) { return u"0.2*sin(2*PI*%1*t)"_s.arg(hertz); }

    static void addSong(const QString &folder, const QString &title, const QString &leftSound,
                        const QString &rightSound)
    {
        runFfmpeg({u"-f"_s, u"lavfi"_s, u"-i"_s,
                   u"aevalsrc=%1|%2:s=44100:d=180"_s.arg(leftSound, rightSound), u"-metadata"_s,
                   u"title="_s + title, QDir(folder).filePath(title + u".flac"_s)});
    }

    /// The amplitude of a tone in the last quarter of a second.
    static double levelOf(const std::vector<float> &samples, double hertz)
    {
        const double turn = 2.0 * std::numbers::pi * hertz / Recorder::sampleRate;
        const double window = 2.0 * std::numbers::pi / static_cast<double>(samples.size());
        double real = 0.0;
        double imaginary = 0.0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            const auto place = static_cast<double>(i);
            const double value = samples[i] * (1.0 - std::cos(window * place));
            real += value * std::cos(turn * place);
            imaginary += value * std::sin(turn * place);
        }
        return 2.0 * std::hypot(real, imaginary) / static_cast<double>(samples.size());
    }

    /// The tones of a loudspeaker: L, R and M for the middle; ? for one that fades.
    static QString tonesOf(const std::vector<float> &samples)
    {
        QString tones;
        for (const auto &[name, hertz] :
             {std::pair(u'L', leftTone), {u'R', rightTone}, {u'M', middleTone}}) {
            const double level = levelOf(samples, hertz);
            if (level > 0.06)
                tones += name;
            else if (level > 0.015)
                tones += u'?';
        }
        return tones;
    }

    /// "LM RM" for the song as it was made.
    QString tonesNow() const
    {
        constexpr std::size_t frames = Recorder::sampleRate / 4;
        const std::size_t size = recorder->size();
        const std::size_t from = size < frames ? 0 : size - frames;
        return tonesOf(recorder->samples(from, size)) + u' ' +
               tonesOf(recorder->rightSamples(from, size));
    }

    /// Waits until the song is recognised by its sound. If that takes long, a line at the bottom of
    /// the pane says so, and the controls are elsewhere.
    bool isRecognised() const
    {
        return waitUntil([this] { return !kept().empty() && !kept().front().song.audio.isEmpty(); },
                         60.0);
    }

    bool hearsTones(const QString &tones) const
    {
        const bool heard = waitUntil([&] { return tonesNow() == tones; });
        EXPECT_TRUE(heard) << "heard is " << tonesNow().toStdString() << ", not "
                           << tones.toStdString();
        return heard;
    }

    /// The records of all practice files.
    std::vector<PracticeRecord> kept() const
    {
        std::vector<PracticeRecord> records;
        const QDir folder(settingsFile(u"Practice"_s));
        for (const QString &name : folder.entryList({u"*.json"_s}, QDir::Files)) {
            QFile file(folder.filePath(name));
            if (name == u"Index.json"_s || !file.open(QIODevice::ReadOnly))
                continue;
            if (const auto reading = readPractice(file.readAll()))
                records.push_back(reading->record);
        }
        return records;
    }
};

TEST_F(ProgramWithSound, EveryChoiceOfTheChannelsIsHeardAndTakenBack)
{
    startWithSongs();
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    click(at::mono);
    ASSERT_TRUE(hearsTones(u"LRM LRM"_s));
    ASSERT_TRUE(isRecognised());
    click(at::left);
    ASSERT_TRUE(hearsTones(u"LM LM"_s));
    click(at::right);
    ASSERT_TRUE(hearsTones(u"RM RM"_s));
    click(at::swapped);
    ASSERT_TRUE(hearsTones(u"RM LM"_s));
    display.key(u"ctrl+z"_s);
    ASSERT_TRUE(hearsTones(u"RM RM"_s));
    click(at::both);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    click(at::balanceRight);
    ASSERT_TRUE(hearsTones(u" RM"_s));
    display.key(u"ctrl+z"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    click(at::balanceLeft);
    ASSERT_TRUE(hearsTones(u"LM "_s));
    click(at::normal);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithSound, TheMiddleIsTakenOutAndComparedByMouseAndKeys)
{
    startWithSongs();
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    display.key(u"e"_s);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    ASSERT_TRUE(isRecognised());
    display.key(u"o"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s)) << "the original";
    click(at::original);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    display.key(u"e"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    const QPoint origin = frame.topLeft();
    display.drag(origin + at::centre, origin + at::centreRight);
    ASSERT_TRUE(hearsTones(u"M M"_s)) << "only the middle";
    display.key(u"ctrl+z"_s); // the whole drag
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    click(at::centreLeft);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    click(at::centreField);
    display.key(u"ctrl+a"_s);
    display.type(u"100"_s);
    display.key(u"Return"_s);
    ASSERT_TRUE(hearsTones(u"M M"_s));
    click(at::title);
    display.key(u"alt+i"_s); // Practice > Sound > Channels Swapped, then Normal Sound
    display.key(u"n"_s);
    display.key(u"n"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    display.key(u"alt+i"_s);
    display.key(u"n"_s);
    display.key(u"s"_s);
    ASSERT_TRUE(hearsTones(u"RM LM"_s));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithSound, BelongsToItsSongAndIsThereAgainAfterARestart)
{
    startWithSongs();
    display.key(u"e"_s);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    ASSERT_TRUE(waitUntil([this] { return !kept().empty() && kept().front().sound.tuning; }, 30.0))
        << "what is found is kept as well";
    display.key(u"ctrl+Right"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s)) << "the next song has its own sound";
    display.key(u"ctrl+Left"_s);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    display.key(u"ctrl+3"_s); // the pane is closed, the song goes on
    ASSERT_TRUE(waitUntil([this] { return listsReachTheTransport(); }));
    ASSERT_TRUE(hearsTones(u"L R"_s));
    display.key(u"ctrl+Right"_s);
    ASSERT_TRUE(hearsTones(u"LM RM"_s));
    display.key(u"ctrl+Left"_s);
    display.key(u"ctrl+3"_s);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    EXPECT_EQ(quit(), 0);
    ASSERT_EQ(kept().size(), 1U);
    EXPECT_EQ(kept().front().sound.channels, (ChannelTools{.centre = -100}));
    EXPECT_TRUE(kept().front().sound.tuning);

    start();
    ASSERT_TRUE(waitForSongs(3));
    const std::size_t restart = recorder->size();
    doubleClickSong(0);
    ASSERT_TRUE(hearsTones(u"L R"_s));
    // The middle is not heard for a moment at the start, either.
    const std::ptrdiff_t begin = recorder->waitForSound(restart);
    ASSERT_GE(begin, 0);
    const auto first = static_cast<std::size_t>(begin);
    ASSERT_TRUE(recorder->waitForSize(first + 2205));
    EXPECT_LT(levelOf(recorder->samples(first, first + 2205), middleTone), 0.02);
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithSound, AMonoSongKeepsItsMiddle)
{
    startWithSongs(2);
    ASSERT_TRUE(hears(800.0));
    // The wave is measured, so the channels are compared soon; until then the key works.
    ASSERT_TRUE(waitUntil([this] {
        display.key(u"e"_s);
        display.key(u"m"_s); // so that there is a file
        return !kept().empty() && kept().front().sound.tuning;
    }));
    const std::size_t markers = kept().front().markers.size();
    const int centre = kept().front().sound.channels.centre;
    display.key(u"e"_s);
    click(at::centreLeft);
    display.key(u"m"_s);
    ASSERT_TRUE(waitUntil([&] { return kept().front().markers.size() > markers; }));
    EXPECT_EQ(kept().front().sound.channels.centre, centre);
    EXPECT_TRUE(hears(800.0));
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithSound, IsTunedToTheMusiciansA)
{
    const QString folder =
        makeFolder(u"Melody"_s, {{.title = u"Z"_s, .frequency = 800.0, .seconds = 12.0}});
    // A, C, E, A, a second each, 40 cents flat.
    runFfmpeg(
        {u"-f"_s, u"lavfi"_s, u"-i"_s,
         u"aevalsrc=0.3*sin(2*PI*429.95*t*pow(2\\,(3*eq(mod(floor(t)\\,4)\\,1)+7*eq(mod(floor("
         "t)\\,4)\\,2))/12)):s=44100:d=60"_s,
         u"-ac"_s, u"2"_s, u"-metadata"_s, u"title=Melody"_s,
         QDir(folder).filePath(u"melody.flac"_s)});
    showFolder(folder);
    start();
    ASSERT_TRUE(waitForSongs(2));
    doubleClickSong(0);
    ASSERT_TRUE(hears(429.95));
    openPane();
    click(at::soundTab);
    // The key does nothing before the tuning is known.
    ASSERT_TRUE(waitUntil(
        [this] {
            display.key(u"shift+t"_s);
            return std::abs(toneNow() - 440.0) < 1.0;
        },
        20.0));
    click(at::ownA);
    display.key(u"ctrl+a"_s);
    display.type(u"450"_s);
    display.key(u"Return"_s);
    click(at::tune);
    EXPECT_TRUE(waitUntil([this] { return std::abs(toneNow() - 450.0) < 1.0; }, 20.0)) << toneNow();
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"tuningA"_s).toDouble(), 450.0);
}

} // namespace
