#include "practice/PracticeFiles.h"

#include "practice/PracticeFixture.h"
#include "practice/PracticeIndex.h"

#include <cerrno>
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

QString named(const QString &title, const QString &audio = u"9f2c41d0aa"_s)
{
    return practiceFileName(title, audio, [](const QString &) { return false; });
}

TEST(PracticeFileName, IsTheTitleAndTheFirstDigitsOfTheHash)
{
    EXPECT_EQ(named(u"Corner Shop Blues"_s), u"Corner Shop Blues - 9f2c41d0.json"_s);
    EXPECT_EQ(named(u"Corner Shop Blues"_s, {}), u"Corner Shop Blues.json"_s);
    EXPECT_EQ(named(u"\u4e16\u754c \U0001f3b8"_s, {}), u"\u4e16\u754c \U0001f3b8.json"_s);
}

TEST(PracticeFileName, IsSafeOnEveryFileSystem)
{
    EXPECT_EQ(named(u"../../etc/passwd"_s, {}), u"etc passwd.json"_s);
    EXPECT_EQ(named(u"AC/DC: \"Live\"? <1> | a*b\\c"_s, {}), u"AC DC Live 1 a b c.json"_s);
    EXPECT_EQ(named(u".hidden\n\tline"_s, {}), u"hidden line.json"_s);
    EXPECT_EQ(named(QString(), {}), u"Song.json"_s);
    EXPECT_EQ(named(u"///"_s, {}), u"Song.json"_s);
    EXPECT_EQ(named(u"Index"_s, {}), u"Index (2).json"_s);
    const QString large = named(QString(300, u'\u4e16'));
    EXPECT_LE(QFile::encodeName(large + u".unreadable-9999"_s).size(), 255);
    EXPECT_TRUE(large.endsWith(u" - 9f2c41d0.json"_s));
}

TEST(PracticeFileName, GetsANumberIfItIsTaken)
{
    const auto isTaken = [](const QString &name) {
        return name == u"A - 9f2c41d0.json" || name == u"A (2) - 9f2c41d0.json";
    };
    EXPECT_EQ(practiceFileName(u"A"_s, u"9f2c41d0"_s, isTaken), u"A (3) - 9f2c41d0.json"_s);
}

TEST(PracticeFileName, IsNeverAPathOrAnotherKindOfFile)
{
    EXPECT_TRUE(isPracticeFileName(u"a.json"_s));
    for (const QString &name :
         {u"Index.json"_s, u"Pedals.json"_s, u".json"_s, u".a.json"_s, u"../a.json"_s, u"/a.json"_s, u"a.json.new"_s,
          u"a.json.unreadable-1"_s, u"a.txt"_s, QString()})
        EXPECT_FALSE(isPracticeFileName(name)) << qPrintable(name);
}

TEST(PracticeFolder, LiesInTheFolderForData)
{
    EXPECT_EQ(practiceFolder(),
              QFile::decodeName(qgetenv("XDG_DATA_HOME")) + u"/Lyrabox/Practice"_s);
    EXPECT_FALSE(QDir(practiceFolder()).exists());
}

TEST(PracticeIndex, KnowsOneStateOfASongFile)
{
    PracticeIndex index;
    const files::FileStamp song{.device = 1, .inode = ~0ULL, .size = 3, .changed = -4};
    EXPECT_TRUE(index.put(song, u"a.json"_s));
    EXPECT_FALSE(index.put(song, u"a.json"_s));
    index = PracticeIndex::fromText(index.text());
    EXPECT_EQ(index.fileOf(song), u"a.json"_s);
    for (const files::FileStamp &other :
         {files::FileStamp{2, ~0ULL, 3, -4}, files::FileStamp{1, 2, 3, -4},
          files::FileStamp{1, ~0ULL, 4, -4}, files::FileStamp{1, ~0ULL, 3, -5}})
        EXPECT_EQ(index.fileOf(other), std::nullopt);
    EXPECT_TRUE(index.put({1, ~0ULL, 9, 9}, u"b.json"_s));
    EXPECT_EQ(index.fileOf(song), std::nullopt) << "only the latest state is kept";
}

TEST(PracticeIndex, LeavesOutWhatIsNoEntry)
{
    const PracticeIndex index = PracticeIndex::fromText(R"({"lyrabox practice index": 1, "songs": {
        "1 2 3 4": "good.json", "1 3 3 4": "../../evil.json", "1 4 3 4": "/etc/evil.json", "1 5 3 4": 7,
        "1 6 3": "short.json", "1 7 3 4 5": "long.json", "-1 8 3 4": "negative.json", "a b c d": "x.json"}})");
    EXPECT_EQ(index.fileOf({1, 2, 3, 4}), u"good.json"_s);
    EXPECT_EQ(index.text().count(".json"), 1);
    for (const char *text : {"", "[]", "{}", "{\"lyrabox practice index\": 2}", "nonsense"})
        EXPECT_EQ(PracticeIndex::fromText(text).text(), PracticeIndex().text());
}

TEST(PracticeFile, ThatIsAPipeOrTooLargeIsNotRead)
{
    const QTemporaryDir folder;
    EXPECT_FALSE(loadPractice(folder.filePath(u"missing.json"_s)).stamp);
    EXPECT_FALSE(loadPractice(folder.path()).stamp);
    QFile large(folder.filePath(u"large.json"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(qint64{1} << 40));
    const PracticeFile file = loadPractice(large.fileName());
    EXPECT_TRUE(file.stamp);
    EXPECT_FALSE(file.reading);
}

/// A record whose every entry contains one number.
PracticeRecord recordOf(int number)
{
    PracticeRecord record;
    const QString text = QString::number(number) + QString(number % 50, u'x');
    for (std::uint64_t i = 0; i < 50; ++i)
        record.loops.push_back({.name = text, .from = i, .to = i + 1});
    return record;
}

/// The number in a file; -1 if it is damaged.
int numberIn(const QString &path)
{
    const PracticeFile file = loadPractice(path);
    if (!file.reading || !file.reading->isWhole || file.reading->record.loops.size() != 50)
        return -1;
    for (const PracticeLoop &loop : file.reading->record.loops)
        if (loop.name != file.reading->record.loops.front().name)
            return -1;
    return QString(file.reading->record.loops.front().name).remove(u'x').toInt();
}

[[noreturn]] void writeWithoutAPause(const QString &folder, int number)
{
    std::optional<files::FileStamp> stamp = files::fileStamp(QDir(folder).filePath(u"song.json"_s));
    PracticeIndex index = PracticeIndex::inFolder(folder);
    for (;; ++number) {
        index.put({1, 2, number, 4}, u"song.json"_s);
        const PracticeWritten written = writePractice({.folder = folder,
                                                       .name = u"song.json"_s,
                                                       .text = practiceText(recordOf(number)),
                                                       .expected = stamp,
                                                       .index = index.text()});
        if (!written.isWritten || written.keptOther)
            _exit(1);
        stamp = written.stamp;
    }
}

TEST(PracticeFaults, AKillAtAnyMomentLeavesTheFileOldOrNew)
{
    const int asked = qEnvironmentVariableIntValue("LYRABOX_FAULT_ROUNDS");
    const int rounds = asked > 0 ? asked : 100;
    const QTemporaryDir data;
    const QString folder = data.filePath(u"Practice"_s);
    const QString path = QDir(folder).filePath(u"song.json"_s);
    std::mt19937 dice(20'26);
    std::uniform_int_distribution<useconds_t> moment(0, 15'000);
    int before = 0;
    for (int round = 0; round < rounds; ++round) {
        const pid_t child = fork();
        if (child == 0)
            writeWithoutAPause(folder, before + 1);
        ASSERT_GT(child, 0);
        usleep(moment(dice)); // chooses the moment; the disk's speed decides what it hits
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it could not write";
        if (before == 0 && !QFile::exists(path))
            continue;
        const int found = numberIn(path);
        ASSERT_GE(found, before) << "damaged or older in round " << round;
        before = found;
        ASSERT_LE(QDir(folder).entryList(QDir::Files | QDir::Hidden).size(), 4)
            << "the files of killed programs pile up";
    }
    EXPECT_GT(before, 0) << "no kill came after a write";
}

} // namespace
