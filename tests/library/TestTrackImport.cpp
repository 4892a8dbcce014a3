#include "library/TrackImport.h"

#include "library/LibraryFixture.h"
#include "platform/foundation/Files.h"
#include "platform/foundation/MonotonicClock.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

TrackRecord recordFromLibrary(const MusicTrack &track)
{
    TrackRecord record;
    fillFromLibrary(record, &track);
    return record;
}

TrackRecord recordFromFile(const QMap<QString, QString> &information, const QUrl &url)
{
    TrackRecord record;
    fillFromFile(record, information, url);
    return record;
}

ProgressPacer silent()
{
    return {{}, monotonicTime, 0};
}

TEST(TrackImport, ReadsASongWhateverItsNameAsLongAsItIsValidText)
{
    const QTemporaryDir folder;
    const QString sample = sampleFile({.extension = u"flac"_s, .seconds = 0.1});
    const QStringList names = {u"<b>bold<br> & co.flac"_s,
                               u"line\nbreak\tand tab.flac"_s,
                               u"\u202Eright to left\u202C \u05E9\u05DC\u05D5\u05DD.flac"_s,
                               u"e\u0301 and \u00E9.flac"_s,
                               u"100% #1 ? [a] {b} \\ \".flac"_s,
                               u"%41%00.flac"_s,
                               u"-i.flac"_s,
                               u" .flac"_s,
                               QString(250, u'x') + u".flac"_s};
    for (const QString &name : names)
        ASSERT_TRUE(QFile::copy(sample, folder.filePath(name))) << qPrintable(name);
    QStringList found;
    for (const files::Entry &entry : files::shallowEntries(folder.path())) {
        const std::optional<OpenedAudioFile> opened = openAudioFile(entry.path);
        ASSERT_TRUE(opened) << qPrintable(entry.path);
        const QUrl url = QUrl::fromLocalFile(entry.path);
        EXPECT_EQ(url.toLocalFile(), entry.path);
        found.append(recordFromFile(opened->information, url).title.value_or(QString()));
    }
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(names));
}

TEST(TrackImport, SkipsANameThatIsNotValidText)
{
    const QTemporaryDir folder;
    const QByteArray native = QFile::encodeName(folder.path()) + "/\xff\xc3(.flac";
    const QByteArray sample = QFile::encodeName(sampleFile({.extension = u"flac"_s}));
    ASSERT_EQ(::link(sample.constData(), native.constData()), 0);
    for (const files::Entry &entry : files::shallowEntries(folder.path()))
        EXPECT_FALSE(openAudioFile(entry.path));
    EXPECT_FALSE(openAudioFile(QFile::decodeName(native)));
}

} // namespace

TEST(TrackFromLibrary, TurnsMillisecondsIntoSecondsAsFloat)
{
    MusicTrack track;
    track.totalTime = 215373;
    const QVariant seconds = recordFromLibrary(track).durationSeconds;
    EXPECT_EQ(seconds.typeId(), QMetaType::Float);
    EXPECT_EQ(seconds.toFloat(), 215.373F);
}

TEST(TrackFromLibrary, UsesTheDecodedFileNameForAMissingName)
{
    MusicTrack track;
    track.location = u"file:///music/An%20Artist/Song%20One.m4a"_s;
    EXPECT_EQ(recordFromLibrary(track).title, u"Song One.m4a"_s);
    track.name = u"One"_s;
    EXPECT_EQ(recordFromLibrary(track).title, u"One"_s);
}

TEST(TrackFromLibrary, HasNeitherLocationNorTitleForAMissingTrack)
{
    TrackRecord record;
    fillFromLibrary(record, nullptr);
    EXPECT_TRUE(record.fileURL.isEmpty());
    EXPECT_EQ(record.title, std::nullopt);
    EXPECT_EQ(record.artist, QString());
    EXPECT_EQ(record.album, QString());
    EXPECT_EQ(record.durationSeconds.typeId(), QMetaType::Float);
    EXPECT_EQ(record.durationValue(), 0.0);
}

TEST(TrackFromLibrary, KeepsTheNameOfATrackWithoutLocation)
{
    MusicTrack track;
    track.name = u"Gone"_s;
    track.artist = u"Somebody"_s;
    const TrackRecord record = recordFromLibrary(track);
    EXPECT_TRUE(record.fileURL.isEmpty());
    EXPECT_EQ(record.title, u"Gone"_s);
    EXPECT_EQ(record.artist, u"Somebody"_s);
}

TEST(TrackFromLibrary, ReadsTheLocalHostAsThisMachine)
{
    MusicTrack track;
    track.location = u"file://localhost/music/a%23b.mp3"_s;
    EXPECT_EQ(recordFromLibrary(track).fileURL.toLocalFile(), u"/music/a#b.mp3"_s);
}

TEST(TrackFromFile, FallsBackToTheFileNameAndToNothing)
{
    const TrackRecord record =
        recordFromFile({}, QUrl::fromLocalFile(u"/music/100% live #1.mp3"_s));
    EXPECT_EQ(record.title, u"100% live #1.mp3"_s);
    EXPECT_EQ(record.artist, QString());
    EXPECT_EQ(record.album, QString());
    EXPECT_EQ(record.durationSeconds.typeId(), QMetaType::Float);
    EXPECT_EQ(record.durationValue(), 0.0);
}

TEST(TrackFromFile, UsesTheTagsUnchanged)
{
    const TrackRecord record = recordFromFile({{u"title"_s, u"T"_s},
                                               {u"artist"_s, u"A"_s},
                                               {u"album"_s, u"B"_s},
                                               {u"approximate duration in seconds"_s, u"12.75"_s}},
                                              QUrl::fromLocalFile(u"/music/a.mp3"_s));
    EXPECT_EQ(record.title, u"T"_s);
    EXPECT_EQ(record.artist, u"A"_s);
    EXPECT_EQ(record.album, u"B"_s);
    EXPECT_EQ(record.durationSeconds, QVariant(u"12.75"_s));
    EXPECT_EQ(record.durationValue(), 12.75);
}

TEST(OpenAudioFile, ReadsTagsAndInode)
{
    const QString path =
        sampleFile({.extension = u"flac"_s, .seconds = 2.0, .tags = {{u"title"_s, u"A Title"_s}}});
    const std::optional<OpenedAudioFile> file = openAudioFile(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->information.value(u"title"_s), u"A Title"_s);
    EXPECT_NEAR(file->information.value(u"approximate duration in seconds"_s).toDouble(), 2.0, 0.1);
    EXPECT_EQ(file->inode, files::inodeText(path));
    EXPECT_NE(file->inode, u"(null)"_s);
}

TEST(OpenAudioFile, RefusesEverythingExceptRegularFiles)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.mp3"_s);
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    EXPECT_FALSE(openAudioFile(pipe));
    EXPECT_FALSE(openAudioFile(folder.path()));
    EXPECT_FALSE(openAudioFile(folder.filePath(u"missing.mp3"_s)));
}

TEST(OpenAudioFiles, KeepsTheOrderOfThePathsWhicheverIsReadyFirst)
{
    QStringList paths;
    for (int i = 0; i < 500; ++i)
        paths.append(QString::number(i));
    ProgressPacer progress = silent();
    const auto results = openAudioFiles(
        paths,
        [](const QString &path) -> std::optional<OpenedAudioFile> {
            const int number = path.toInt();
            if (number % 3 == 0)
                return std::nullopt;
            std::atomic<int> spin = (number * 7919) % 4096; // Uneven work.
            while (spin > 0)
                --spin;
            return OpenedAudioFile{{}, path};
        },
        progress);
    ASSERT_EQ(results.size(), 500U);
    for (int i = 0; i < 500; ++i) {
        const auto &result = results[static_cast<std::size_t>(i)];
        ASSERT_EQ(result.has_value(), i % 3 != 0);
        if (result) {
            ASSERT_EQ(result->inode, paths.at(i));
        }
    }
}

TEST(OpenAudioFiles, LeavesOutAFileThatThrows)
{
    ProgressPacer progress = silent();
    const auto results = openAudioFiles(
        {u"good"_s, u"bad"_s, u"good"_s},
        [](const QString &path) -> std::optional<OpenedAudioFile> {
            if (path == u"bad"_s)
                throw std::bad_alloc();
            return OpenedAudioFile{};
        },
        progress);
    EXPECT_TRUE(results[0]);
    EXPECT_FALSE(results[1]);
    EXPECT_TRUE(results[2]);
}

TEST(OpenAudioFiles, AbandonsAHangingFileWhenTheUserStops)
{
    std::promise<void> answer;
    const auto isAnswered = answer.get_future().share();
    const auto hasEnded = std::make_shared<std::promise<void>>();
    std::chrono::milliseconds now{};
    ProgressPacer progress([](qint64, qint64) {},
                           [&now] { return now += std::chrono::seconds(1); });
    const auto hangs = std::make_shared<std::atomic<bool>>(false);
    progress.setStopProbe([hangs] { return [hangs] { return hangs->load(); }; });
    const auto results = openAudioFiles(
        {u"good"_s, u"hangs"_s},
        [isAnswered, hasEnded, hangs](const QString &path) -> std::optional<OpenedAudioFile> {
            if (path == u"hangs"_s) {
                *hangs = true;
                isAnswered.wait();
                hasEnded->set_value();
            }
            return OpenedAudioFile{};
        },
        progress);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_TRUE(results[0]);
    answer.set_value();
    hasEnded->get_future().wait();
}

TEST(OpenAudioFiles, ReturnsAtOnceForNoFiles)
{
    ProgressPacer progress = silent();
    EXPECT_TRUE(openAudioFiles({}, openAudioFile, progress).empty());
}
