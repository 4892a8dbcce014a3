// Practice files that are shared, in the real program: a teacher's file is taken over into another
// encoding of the song, and its loop is heard at the right place.

#include "practice/PracticeText.h"
#include "program/PaneOnScreen.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double rate = 44100.0;
constexpr double toneFrom = 12.0;
constexpr double toneTo = 15.0;
constexpr double toneFrequency = 1000.0;
constexpr double leadIn = 0.5;

class ProgramWithShared : public ProgramWithPane {
protected:
    /// A piece of music with a tone alone for three seconds in the middle, as the teacher and the
    /// pupil have it.
    void makeSongs()
    {
        m_teacher = makeFolder(u"Teacher"_s, {{u"Zeta"_s, 250.0, 20.0}});
        m_pupil = makeFolder(u"Pupil"_s, {{u"Zeta"_s, 250.0, 20.0}});
        const QString filter =
            u"[0:a]volume=0:enable='between(t,12,15)'[music];"
            "aevalsrc=0.4*sin(2*PI*1000*t)*between(t\\,12\\,15):d=25:s=44100,"
            "aformat=channel_layouts=stereo[tone];[music][tone]amix=inputs=2:duration=shortest:"
            "normalize=0"_s;
        const QString demo =
            QLatin1StringView(LYRABOX_SOURCE_DIR) + u"/resources/demo/01 Corner Shop Blues.mp3"_s;
        const QStringList input{u"-i"_s, demo,           u"-map_metadata"_s,
                                u"-1"_s, u"-metadata"_s, u"title=Alpha"_s};
        ASSERT_TRUE(runFfmpeg(
            input + QStringList{u"-filter_complex"_s, filter, u"-vn"_s, m_teacher + u"/a.flac"_s}));
        ASSERT_TRUE(
            runFfmpeg(input + QStringList{u"-filter_complex"_s, filter + u",adelay=500:all=1"_s,
                                          u"-vn"_s, u"-b:a"_s, u"128k"_s, m_pupil + u"/b.mp3"_s}));
    }

    void playFirst(const QString &folder)
    {
        showFolder(folder);
        start();
        ASSERT_TRUE(waitForSongs(2));
        display.place(mainWindow(), frame);
        doubleClickSong(0);
        ASSERT_TRUE(hearsAnything());
    }

    /// The loops of the only practice file.
    std::vector<PracticeLoop> kept() const
    {
        QStringList files = QDir(settingsFile(u"Practice"_s)).entryList({u"*.json"_s}, QDir::Files);
        files.removeAll(u"Index.json"_s);
        QFile file(settingsFile(u"Practice/"_s + files.value(0)));
        if (files.isEmpty() || !file.open(QIODevice::ReadOnly))
            return {};
        const std::optional<PracticeReading> reading = readPractice(file.readAll());
        return reading ? reading->record.loops : std::vector<PracticeLoop>();
    }

    /// Whether the file at `path` is a practice file with anchors.
    static bool isShared(const QString &path)
    {
        QFile file(path);
        const auto reading =
            file.open(QIODevice::ReadOnly) ? readPractice(file.readAll()) : std::nullopt;
        return reading && !reading->record.song.anchors.empty();
    }

    QString m_teacher;
    QString m_pupil;
};

TEST_F(ProgramWithShared, ATeachersFileIsHeardAtTheRightPlaceOfAnotherEncoding)
{
    makeSongs();
    const QString file = homeFolder() + u"/lesson.json"_s;
    playFirst(m_teacher);
    openPane();
    display.key(u"w"_s); // the whole song
    // Within the tone. The song lasts for 25 seconds.
    const auto at = [](double second) { return placeOf(second * seconds / 25.06); };
    display.drag(at(toneFrom + 0.3), at(toneTo - 0.3));
    ASSERT_TRUE(hears(toneFrequency));
    display.key(u"k"_s);
    ASSERT_TRUE(waitUntil([&] { return kept().size() == 1; }));
    const PracticeLoop lesson = kept().front();
    ASSERT_GE(static_cast<double>(lesson.from), (toneFrom - 0.05) * rate);
    ASSERT_LE(static_cast<double>(lesson.to), (toneTo + 0.05) * rate);
    display.key(u"alt+i"_s);
    display.key(u"x"_s);
    display.key(u"s"_s);
    const QString dialog = display.waitForWindow(u"^Share Practice"_s);
    ASSERT_TRUE(waitUntil([&] { return display.activeWindow() == dialog; }));
    display.key(u"ctrl+a"_s);
    display.type(file);
    display.key(u"Return"_s);
    ASSERT_TRUE(waitUntil([&] { return isShared(file); }));
    EXPECT_EQ(quit(), 0);

    // The pupil has no practice files.
    ASSERT_TRUE(QDir(settingsFile(u"Practice"_s)).removeRecursively());
    playFirst(m_pupil);
    ASSERT_EQ(startSecond({file}), 0);
    ASSERT_TRUE(waitUntil([&] { return kept().size() == 1; }));
    const PracticeLoop loop = kept().front();
    EXPECT_NEAR(static_cast<double>(loop.from), static_cast<double>(lesson.from) + leadIn * rate,
                0.012 * rate);
    EXPECT_NEAR(static_cast<double>(loop.to), static_cast<double>(lesson.to) + leadIn * rate,
                0.012 * rate);
    display.key(u"1"_s);
    ASSERT_TRUE(hears(toneFrequency));
    const std::size_t begin = recorder->size();
    constexpr std::size_t part = Recorder::sampleRate / 5;
    constexpr std::size_t parts = 20;
    ASSERT_TRUE(recorder->waitForSize(begin + parts * part)) << "longer than the tone lasts";
    std::size_t tones = 0;
    for (std::size_t i = 0; i < parts; ++i) {
        if (std::abs(toneAt(begin + i * part) - toneFrequency) <= 5.0)
            ++tones;
    }
    // The rest are the seams, and gaps on a busy machine. With other music in the loop it would be
    // at most a half.
    EXPECT_GE(tones, parts * 2 / 3) << "the loop holds the tone alone";
    EXPECT_EQ(quit(), 0);
}

} // namespace
