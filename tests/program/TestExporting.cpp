// Exports in the real program, by keys. The files are checked by other programs: ffprobe, ffmpeg
// and another player.

#include "program/PaneOnScreen.h"
#include "support/Heard.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = 44100.0;

/// What another program writes to its standard output.
QByteArray
outputOf(const QString &program, const QStringList &arguments,
         const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    QProcess process;
    dieWithTheTest(process);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

class ProgramThatExports : public ProgramWithPane {
protected:
    ProgramThatExports()
    {
        EXPECT_TRUE(QDir().mkpath(folder()));
        setUserDefault(u"exportFolder"_s, folder());
        setFormat(u"wavFloat"_s);
    }

    void setFormat(const QString &format) { setUserDefault(u"exportFormat"_s, format); }

    QString folder() const { return homeFolder() + u"/Phone"_s; }
    /// Everything in the folder, hidden files as well.
    QStringList written() const
    {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    bool comesToHave(const QStringList &files) const
    {
        const bool came = waitUntil([&] { return written() == files; }, 150.0);
        EXPECT_TRUE(came) << written().join(u", "_s).toStdString();
        return came;
    }
    QString path(const QString &file) const { return folder() + u'/' + file; }

    /// Makes a loop of the song, from `second` on, and keeps it.
    void keepLoop(int second, double length = 1.93)
    {
        display.key(u"w"_s);
        display.drag(placeOf(second + 0.02), placeOf(second + 0.02 + length));
        ASSERT_TRUE(hears(stepFrequency(second)));
        display.key(u"k"_s);
    }

    /// The frames of the loop of that number in the practice file, from 0; 0 until it is there.
    std::uint64_t loopFrames(int number) const
    {
        const QDir practice(settingsFile(u"Practice"_s));
        for (const QString &name : practice.entryList({u"*.json"_s}, QDir::Files)) {
            QFile file(practice.filePath(name));
            if (name == u"Index.json"_s || !file.open(QIODevice::ReadOnly))
                continue;
            const QJsonObject loop =
                QJsonDocument::fromJson(file.readAll())[u"loops"_s][number].toObject();
            if (!loop.isEmpty())
                return framesOf(loop[u"to"_s]) - framesOf(loop[u"from"_s]);
        }
        return 0;
    }
    std::uint64_t waitForLoop(int number) const
    {
        EXPECT_TRUE(waitUntil([&] { return loopFrames(number) > 0; }));
        return loopFrames(number);
    }

    /// Opens the export window; the keyboard is in its first control.
    QString openExport()
    {
        display.key(u"ctrl+e"_s);
        QString window = display.waitForWindow(u"^Export"_s);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == window; }));
        return window;
    }
    void closeExport()
    {
        display.key(u"Escape"_s);
        EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));
    }

    /// The left channel as ffmpeg decodes it.
    std::vector<float> decoded(const QString &file) const
    {
        const QByteArray bytes =
            outputOf(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path(file), u"-af"_s,
                                   u"pan=mono|c0=c0"_s, u"-f"_s, u"f32le"_s, u"-"_s});
        std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
        return samples;
    }
    static double toneIn(const std::vector<float> &samples, double second)
    {
        const auto begin = samples.begin() + static_cast<std::ptrdiff_t>(second * rate);
        return frequencyOf({begin, begin + static_cast<std::ptrdiff_t>(0.2 * rate)});
    }
    /// What ffprobe says of a file.
    QJsonObject probed(const QString &file) const
    {
        return QJsonDocument::fromJson(
                   outputOf(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-of"_s, u"json"_s,
                                           u"-show_format"_s, u"-show_streams"_s, path(file)}))
            .object();
    }

    /// Whether the program writes a file in the folder.
    bool isWriting() const { return reads(folder() + u'/'); }

private:
    static std::uint64_t framesOf(const QJsonValue &time)
    {
        const QStringList parts = time.toString().split(u':');
        return static_cast<std::uint64_t>(
            qRound64((parts.value(0).toDouble() * 60.0 + parts.value(1).toDouble()) * rate));
    }
};

TEST_F(ProgramThatExports, TheLoopThatSoundsIsWrittenAtItsSpeedAndOften)
{
    startAndPlay();
    openPane();
    keepLoop(10);
    display.key(u"minus"_s, 4); // 80 %
    const std::uint64_t frames = waitForLoop(0);
    openExport();
    display.key(u"Tab"_s, 2);
    display.type(u"3"_s);
    display.key(u"Return"_s); // ends the number
    display.key(u"shift+Tab"_s);
    display.key(u"Return"_s);
    ASSERT_TRUE(comesToHave({u"Steps - Loop 1 80 %.wav"_s}));
    const std::vector<float> samples = decoded(written().first());
    EXPECT_EQ(samples.size(), static_cast<std::size_t>(std::llround(3.0 * frames / 0.8)));
    const double pass = static_cast<double>(frames) / 0.8 / rate;
    for (int number = 0; number < 3; ++number) {
        EXPECT_NEAR(toneIn(samples, number * pass + 0.5), stepFrequency(10), 3.0);
        EXPECT_NEAR(toneIn(samples, number * pass + 1.8), stepFrequency(11), 3.0);
    }
    EXPECT_TRUE(hearsAnything()) << "playing goes on";
    closeExport();
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(userDefault(u"exportFormat"_s), u"wavFloat"_s);
}

TEST_F(ProgramThatExports, TheSongIsWrittenBitForBitAndAFileIsReplacedOnlyIfThatIsWanted)
{
    startAndPlay();
    openPane();
    QFile old(path(u"Steps.wav"_s));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("old") == 3);
    old.close();
    const QString window = openExport();
    const auto asks = [&] { return display.activeWindow() != window; };
    display.key(u"Return"_s);
    ASSERT_TRUE(waitUntil(asks));
    display.key(u"Escape"_s);
    ASSERT_TRUE(waitUntil([&] { return !asks(); }));
    EXPECT_EQ(QFileInfo(path(u"Steps.wav"_s)).size(), 3);
    display.key(u"Return"_s);
    ASSERT_TRUE(waitUntil(asks));
    display.key(u"Tab"_s);
    display.key(u"space"_s);
    ASSERT_TRUE(waitUntil([&] { return QFileInfo(path(u"Steps.wav"_s)).size() > 1000; }, 60.0));
    const auto samplesOf = [](const QString &file) {
        return outputOf(u"ffmpeg"_s,
                        {u"-v"_s, u"error"_s, u"-i"_s, file, u"-f"_s, u"f32le"_s, u"-"_s});
    };
    const QByteArray song = samplesOf(homeFolder() + u"/Steps/steps.flac"_s);
    EXPECT_EQ(song.size(), seconds * 44'100 * 8);
    EXPECT_TRUE(samplesOf(path(u"Steps.wav"_s)) == song);
    const QJsonObject stream = probed(u"Steps.wav"_s)[u"streams"_s][0].toObject();
    EXPECT_EQ(stream[u"codec_name"_s], u"pcm_f32le"_s);
    EXPECT_EQ(stream[u"sample_rate"_s], u"44100"_s);
    EXPECT_EQ(stream[u"channels"_s], 2);
    closeExport();
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramThatExports, EveryLoopBecomesAFileOfItsOwn)
{
    setFormat(u"flac"_s);
    startAndPlay();
    openPane();
    keepLoop(4);
    keepLoop(14);
    const std::uint64_t first = waitForLoop(0);
    const std::uint64_t second = waitForLoop(1);
    openExport();
    display.key(u"Right"_s, 2);
    display.key(u"Return"_s);
    ASSERT_TRUE(comesToHave({u"Steps - Loop 1.flac"_s, u"Steps - Loop 2.flac"_s}));
    const std::vector<float> one = decoded(u"Steps - Loop 1.flac"_s);
    const std::vector<float> other = decoded(u"Steps - Loop 2.flac"_s);
    EXPECT_EQ(one.size(), first);
    EXPECT_EQ(other.size(), second);
    EXPECT_NEAR(toneIn(one, 0.5), stepFrequency(4), 3.0);
    EXPECT_NEAR(toneIn(other, 0.5), stepFrequency(14), 3.0);
    closeExport();
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramThatExports, TheLadderIsATaggedMp3ThatAnotherPlayerPlays)
{
    setFormat(u"mp3"_s);
    startAndPlay();
    openPane();
    keepLoop(10, 0.5);
    const std::uint64_t frames = waitForLoop(0);
    openExport();
    display.key(u"Tab"_s, 3);
    display.key(u"space"_s); // As the Ladder
    display.key(u"Return"_s);
    const QString file = u"Steps - Loop 1 60-100 %.mp3"_s;
    ASSERT_TRUE(comesToHave({file}));
    double length = 0.0; // three passes at each speed
    for (int percent = 60; percent <= 100; percent += 5)
        length += 3.0 * static_cast<double>(frames) / rate * 100.0 / percent;
    const QJsonObject format = probed(file)[u"format"_s].toObject();
    EXPECT_EQ(format[u"tags"_s][u"title"_s], u"Steps - Loop 1 60-100 %"_s);
    EXPECT_NEAR(static_cast<double>(decoded(file).size()) / rate, length, 0.3);
    closeExport();
    EXPECT_EQ(quit(), 0);

    // The other player writes what it plays to a file, so it need not wait for a sound server.
    const QString heard = homeFolder() + u"/heard.raw"_s;
    const QByteArray said =
        outputOf(u"mpv"_s, {u"--no-config"_s, u"--no-video"_s, u"--ao=pcm"_s,
                            u"--ao-pcm-waveheader=no"_s, u"--audio-format=float"_s,
                            u"--audio-channels=mono"_s, u"--ao-pcm-file="_s + heard,
                            u"--term-playing-msg=plays ${metadata/by-key/Title}"_s, path(file)});
    EXPECT_TRUE(said.contains("plays Steps - Loop 1 60-100 %")) << said.toStdString();
    QFile raw(heard);
    ASSERT_TRUE(raw.open(QIODevice::ReadOnly));
    const QByteArray bytes = raw.readAll();
    std::vector<float> samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
    std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(float));
    EXPECT_NEAR(static_cast<double>(samples.size()) / rate, length, 0.3);
    EXPECT_NEAR(toneIn(samples, 0.3), stepFrequency(10), 3.0);
    EXPECT_NEAR(toneIn(samples, length - 0.4), stepFrequency(10), 3.0);
}

/// A long export: the song 99 times at 50 %.
class ProgramWithALongExport : public ProgramThatExports {
protected:
    void beginLongExport()
    {
        startAndPlay();
        openPane();
        display.key(u"minus"_s, 10);
        exportManyTimes();
    }
    void exportManyTimes()
    {
        openExport();
        display.key(u"Tab"_s);
        display.type(u"99"_s);
        display.key(u"Return"_s);
        display.key(u"shift+Tab"_s);
        display.key(u"Return"_s);
        ASSERT_TRUE(waitUntil([&] { return isWriting(); }));
    }
};

/// A busy machine may interrupt the sound, but not all the time.
TEST_F(ProgramWithALongExport, PlayingGoesOnWithoutAnInterruption)
{
    setFormat(u"mp3"_s);
    startAndPlay();
    doubleClickSong(1);
    ASSERT_TRUE(hears(250.0));
    openPane();
    exportManyTimes();
    bool isWhole = false;
    for (int part = 0; part < 12 && !isWhole; ++part) {
        const std::size_t begin = recorder->size();
        const std::size_t end = begin + Recorder::sampleRate;
        ASSERT_TRUE(recorder->waitForSize(end));
        const std::vector<float> heard = recorder->samples(begin, end);
        isWhole = peakOf(heard) > 0.1F && tearsIn(heard, 250.0).empty();
    }
    EXPECT_TRUE(isWhole);
    EXPECT_TRUE(isWriting());
    closeExport();
    EXPECT_EQ(quit(), 0);
}

TEST_F(ProgramWithALongExport, ACancelledOneLeavesNoFile)
{
    beginLongExport();
    display.key(u"shift+Tab"_s, 4); // over Export, Close, Cancel Export
    display.key(u"Delete"_s);
    EXPECT_TRUE(waitUntil([&] { return !isWriting(); }));
    EXPECT_EQ(written(), QStringList());
    EXPECT_TRUE(hearsAnything());
    closeExport();
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(written(), QStringList());
}

TEST_F(ProgramWithALongExport, QuittingCancelsItAndLeavesNoFile)
{
    beginLongExport();
    closeExport();
    EXPECT_TRUE(isWriting()) << "it goes on without its window";
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(written(), QStringList());
}

TEST_F(ProgramWithALongExport, AKillLeavesNoFile)
{
    beginLongExport();
    killAtOnce();
    EXPECT_EQ(written(), QStringList());
    start();
    ASSERT_TRUE(waitForSongs(2));
    EXPECT_EQ(quit(), 0);
    EXPECT_EQ(written(), QStringList());
}

TEST_F(ProgramThatExports, AFailureIsToldAlthoughTheWindowIsClosed)
{
    startAndPlay();
    openPane();
    display.key(u"minus"_s, 2); // the stretcher takes its time
    openExport();
    display.key(u"Return"_s);
    ASSERT_TRUE(waitUntil([&] { return isWriting(); }));
    closeExport();
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    ASSERT_TRUE(waitUntil([&] { return display.hasWindow(u"^Export"_s); }, 150.0));
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() != mainWindow(); }));
    display.key(u"Escape"_s);
    EXPECT_TRUE(waitUntil([&] { return display.activeWindow() == mainWindow(); }));
    EXPECT_FALSE(QFile::exists(folder()));
    EXPECT_EQ(quit(), 0);
}

} // namespace
