#include "hostile/HostileSongs.h"
#include "platform/foundation/Status.h"
#include "support/SampleAudio.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isSanitized = true; // Sanitizers take memory of their own and several times as long.
#else
constexpr bool isSanitized = false;
#endif

constexpr long maxKibibytes = 64 << 10; ///< In addition to the decoded song.
constexpr long maxMilliseconds = 2000;  ///< Processor time per song.

/// A line of the probe's output; see SongProbe.cpp.
struct Report {
    int signal = -1;
    Status tags = 0;
    Status load = 0;
    std::uint64_t frames = 0;
    long kibibytes = 0;
    long milliseconds = 0;
};

bool isSongStatus(Status status)
{
    constexpr std::array known = {status::noError, status::notEnoughMemory,
                                  status::unsupportedFileType, status::unsupportedDataFormat,
                                  status::invalidFile};
    return std::find(known.begin(), known.end(), status) != known.end();
}

/// Writes songs to files in a folder and runs the probe on them.
class HostileSongsTest : public testing::Test {
protected:
    QStringList write(const HostileSongs &songs)
    {
        QStringList paths;
        for (const HostileSong &song : songs) {
            const QString path = m_folder.filePath(song.name);
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
            EXPECT_EQ(file.write(song.bytes), song.bytes.size());
            if (song.length > 0) {
                EXPECT_TRUE(file.resize(song.length)); // The hole takes no space on the disk.
            }
            paths.append(path);
        }
        return paths;
    }

    QStringList probeArguments(const QStringList &paths)
    {
        QFile list(m_folder.filePath(u"list"_s));
        EXPECT_TRUE(list.open(QIODevice::WriteOnly));
        for (const QString &path : paths)
            list.write(QFile::encodeName(path) + '\n');
        const long seconds = 1 + maxMilliseconds * (isSanitized ? 10 : 1) / 1000;
        return {QString::number(seconds),
                sampleFile({.extension = u"mp3"_s, .seconds = 0.5, .artwork = true}),
                list.fileName()};
    }

    std::vector<Report> probe(const QStringList &paths)
    {
        QProcess process;
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process.start(QStringLiteral(HOSTILE_PROBE), probeArguments(paths));
        EXPECT_TRUE(process.waitForFinished(280000));
        EXPECT_EQ(process.exitCode(), 0);
        std::vector<Report> reports;
        QTextStream output(process.readAllStandardOutput());
        while (!output.atEnd()) {
            Report report;
            output >> report.signal >> report.tags >> report.load >> report.frames >>
                report.kibibytes >> report.milliseconds >> Qt::ws;
            reports.push_back(report);
        }
        return reports;
    }

    /// Every song must play or be refused within the limits of time and memory.
    std::vector<Report> expectWithinLimits(const HostileSongs &songs)
    {
        const std::vector<Report> reports = probe(write(songs));
        EXPECT_EQ(reports.size(), songs.size());
        for (std::size_t i = 0; i < std::min(reports.size(), songs.size()); ++i) {
            SCOPED_TRACE(qPrintable(songs[i].name));
            const Report &report = reports[i];
            EXPECT_EQ(report.signal, 0);
            EXPECT_TRUE(isSongStatus(report.tags)) << report.tags;
            EXPECT_TRUE(isSongStatus(report.load)) << report.load;
            if (isSanitized)
                continue;
            EXPECT_LE(report.milliseconds, maxMilliseconds);
            const auto decoded = static_cast<long>(report.frames * 8 / 1024);
            EXPECT_LE(report.kibibytes, decoded + maxKibibytes) << report.frames << " frames";
        }
        m_folder = QTemporaryDir();
        return reports;
    }

    QTemporaryDir m_folder;
};

class DamagedSongs : public HostileSongsTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(DamagedSongs, PlayOrAreRefused)
{
    ASSERT_LT(GetParam(), soundSongs().size());
    const HostileSong &sound = soundSongs()[GetParam()];
    SCOPED_TRACE(qPrintable(sound.name));
    HostileSongs songs = damaged(sound);
    songs.insert(songs.begin(), sound);
    const std::vector<Report> reports = expectWithinLimits(songs);
    // Intact songs must play. Otherwise the test proves nothing.
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.front().load, status::noError);
    EXPECT_NEAR(static_cast<double>(reports.front().frames), 22050.0, 2500.0);
    const auto played = std::count_if(reports.begin(), reports.end(),
                                      [](const Report &report) { return report.frames > 0; });
    EXPECT_GT(played, 5) << "too few of the damaged songs play";
}

INSTANTIATE_TEST_SUITE_P(OfEveryFormat, DamagedSongs,
                         testing::Range(std::size_t{0}, std::size_t{29}));

TEST_F(HostileSongsTest, TheRangeAboveCoversEveryFormat)
{
    EXPECT_EQ(soundSongs().size(), 29U); // The size of the range above.
}

TEST_F(HostileSongsTest, AbsurdNumbersPlayOrAreRefused)
{
    expectWithinLimits(absurdSongs());
}

TEST_F(HostileSongsTest, BombsPlayOrAreRefused)
{
    expectWithinLimits(bombs());
}

TEST_F(HostileSongsTest, EndlessStructuresPlayOrAreRefused)
{
    expectWithinLimits(endlessSongs());
}

TEST_F(HostileSongsTest, ListsOfOtherFilesAreRefused)
{
    const HostileSongs songs = disguises(sampleFile({.extension = u"flac"_s}));
    const std::vector<Report> reports = expectWithinLimits(songs);
    for (std::size_t i = 0; i < std::min(reports.size(), songs.size()); ++i) {
        if (songs[i].bytes.size() < 1000 && !songs[i].name.endsWith(u"m4a")) {
            EXPECT_EQ(reports[i].load, status::unsupportedFileType) << qPrintable(songs[i].name);
        }
    }
}

class OversizedSongs : public HostileSongsTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(OversizedSongs, PlayOrAreRefused)
{
    ASSERT_LT(GetParam(), oversizedSongs().size());
    const OversizedSong &song = oversizedSongs()[GetParam()];
    SCOPED_TRACE(song.name);
    // LYRABOX_OVERSIZED_MEGABYTES adds a larger size, which takes as much memory and disk.
    for (const int megabytes : {1, 16, isSanitized ? 0 : 64,
                                qEnvironmentVariableIntValue("LYRABOX_OVERSIZED_MEGABYTES")}) {
        if (megabytes == 0)
            continue;
        SCOPED_TRACE(megabytes);
        const std::vector<Report> reports =
            expectWithinLimits({{song.file, song.make(qsizetype{megabytes} << 20)}});
        ASSERT_EQ(reports.size(), 1U);
        if (song.plays && megabytes == 1) {
            EXPECT_EQ(reports[0].load, status::noError);
            EXPECT_GE(reports[0].frames, 15000U);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, OversizedSongs,
                         testing::Range(std::size_t{0}, oversizedSongs().size()),
                         [](const auto &kind) {
                             return std::string(oversizedSongs()[kind.param].name);
                         });

/// A system call of the traced process: its name and arguments.
struct Call {
    QString name;
    QString arguments;
};

std::vector<Call> callsIn(const QString &log)
{
    static const QRegularExpression call(u"^\\d+ +(\\w+)\\((.*)$"_s);
    std::vector<Call> calls;
    for (const QString &line : log.split(u'\n')) {
        if (const QRegularExpressionMatch match = call.match(line); match.hasMatch())
            calls.push_back({match.captured(1), match.captured(2)});
    }
    return calls;
}

TEST_F(HostileSongsTest, OnlyTheSongIsOpenedAndNoConnectionIsMade)
{
    const QString secret = m_folder.filePath(u"secret.flac"_s);
    ASSERT_TRUE(makeSampleAt(secret, {.extension = u"flac"_s}));
    HostileSongs songs = disguises(secret);
    for (const HostileSong &song : endlessSongs())
        songs.push_back(song);
    for (const HostileSong &song : soundSongs()) {
        songs.push_back(song);
        songs.push_back({u"half-"_s + song.name, song.bytes.left(song.bytes.size() / 2)});
    }
    const QString log = m_folder.filePath(u"trace"_s);
    QProcess strace;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s); // LeakSanitizer traces the process,
                                                                // too, and only one can.
    strace.setProcessEnvironment(environment);
    strace.start(u"strace"_s, QStringList{u"-f"_s, u"-qq"_s, u"-s"_s, u"4096"_s, u"-e"_s,
                                          u"trace=%file,%network"_s, u"-e"_s, u"signal=none"_s,
                                          u"-o"_s, log, QStringLiteral(HOSTILE_PROBE)} +
                                  probeArguments(write(songs)));
    ASSERT_TRUE(strace.waitForFinished(280000)) << qPrintable(strace.errorString());
    ASSERT_EQ(strace.exitCode(), 0) << strace.readAllStandardError().constData();

    QFile file(log);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const std::vector<Call> calls = callsIn(QString::fromUtf8(file.readAll()));
    const auto start = std::find_if(calls.begin(), calls.end(), [](const Call &call) {
        return call.arguments.contains(u"/hostile-probe-starts");
    });
    ASSERT_NE(start, calls.end());
    // The program reads the amount of memory. The allocator reads the others.
    const QStringList system = {u"/proc/meminfo"_s, u"/sys/devices/system/cpu/online"_s,
                                u"/proc/self/maps"_s, u"/proc/sys/vm/overcommit_memory"_s};
    std::set<QString> opened;
    for (auto call = start + 1; call != calls.end(); ++call) {
        static const QRegularExpression quoted(u"\"((?:[^\"\\\\]|\\\\.)*)\""_s);
        const QRegularExpressionMatch match = quoted.match(call->arguments);
        ASSERT_TRUE(match.hasMatch())
            << "a call without a path, such as a connection: " << qPrintable(call->name)
            << qPrintable(call->arguments.left(200));
        const QString path = match.captured(1);
        const bool isDescriptor = path.isEmpty() && call->arguments.contains(u"AT_EMPTY_PATH");
        if (isDescriptor || system.contains(path))
            continue;
        const bool isSong = path.startsWith(m_folder.path() + u'/') && path != secret &&
                            std::any_of(songs.begin(), songs.end(), [&](const HostileSong &song) {
                                return path == m_folder.filePath(song.name);
                            });
        EXPECT_TRUE(isSong) << qPrintable(call->name) << ' ' << qPrintable(path);
        if (call->name.startsWith(u"open"))
            opened.insert(path);
    }
    // Every song must have been opened. Otherwise the trace proves nothing.
    EXPECT_EQ(opened.size(), songs.size());
}

} // namespace
} // namespace lyrabox::test
