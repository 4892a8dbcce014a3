#include "practice/PracticeFixture.h"

#include "platform/decoding/AudioFileReader.h"
#include "support/SampleAudio.h"

#include <QDeadlineTimer>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class PracticeStoreTest : public PracticeFixture {};

TEST_F(PracticeStoreTest, CreatesAndReadsNothingBeforeTheFirstEdit)
{
    {
        const auto store = makeStore();
        store->openSong(of(song(u"a.mp3"_s)));
        EXPECT_FALSE(store->isIdentifying());
        store->openSong(of(song(u"b.mp3"_s)));
        store->save();
        store->closeSong();
        store->openSong(of(song(u"a.mp3"_s)));
    }
    EXPECT_FALSE(QDir(m_folder.filePath(u"data"_s)).exists());
    EXPECT_EQ(m_control.hashed, 0);
}

TEST_F(PracticeStoreTest, WritesAnEditAfterTheDelayUnderANameForPeople)
{
    const auto store = makeStore(std::chrono::milliseconds(0));
    m_control.isHeld = true;
    store->openSong(of(song(u"a.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"Turnaround"_s)}));
    EXPECT_TRUE(store->isIdentifying());
    m_control.release();
    ASSERT_TRUE(eventually([&] {
        return !store->isIdentifying() && store->record().song.audio.size() == 40 &&
               names().size() == 1 && content(inPractice(names().first())).contains("audio");
    }));
}

TEST_F(PracticeStoreTest, NamesTheFileAfterTheSongAndItsHash)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    ASSERT_EQ(names().size(), 1);
    const auto reading = readPractice(content(inPractice(names().first())));
    ASSERT_TRUE(reading);
    EXPECT_EQ(names().first(),
              u"Corner Shop Blues - "_s + reading->record.song.audio.first(8) + u".json"_s);
    EXPECT_EQ(reading->record.song.title, u"Corner Shop Blues"_s);
    EXPECT_EQ(reading->record.song.artist, u"The Demo Band"_s);
    EXPECT_EQ(reading->record.song.length, 441000U);
}

TEST_F(PracticeStoreTest, KnowsAFileThatDidNotMoveAtOnceAndWithoutReadingIt)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const int hashed = m_control.hashed;
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    EXPECT_FALSE(store->isIdentifying());
    EXPECT_EQ(m_control.hashed, hashed);
}

TEST_F(PracticeStoreTest, FindsASongByItsSoundAndNextTimeAtOnce)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    const QString copy = song(u"b.ogg"_s, "other tags");
    {
        const auto store = makeStore();
        store->openSong(of(copy));
        EXPECT_TRUE(store->record().loops.empty());
        EXPECT_TRUE(store->isIdentifying());
        QSignalSpy changed(store.get(), &PracticeStore::recordChanged);
        ASSERT_TRUE(changed.wait(60000));
        EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
        EXPECT_FALSE(store->canUndo());
    }
    const auto store = makeStore();
    store->openSong(of(copy));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    EXPECT_EQ(names().size(), 1);
}

TEST_F(PracticeStoreTest, FindsAFileThatAnotherPersonMadeUnderAnyName)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    ASSERT_TRUE(QFile::rename(inPractice(names().first()), inPractice(u"from a friend.json"_s)));
    ASSERT_TRUE(QFile::remove(inPractice(practiceIndexName)));
    const auto store = makeStore();
    store->openSong(of(song(u"b.mp3"_s)));
    QSignalSpy changed(store.get(), &PracticeStore::recordChanged);
    ASSERT_TRUE(changed.wait(60000));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
}

TEST_F(PracticeStoreTest, LeavesOtherSongsAlone)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    keepLoop(song(u"b.mp3"_s, "tags", "other sound"), u"B"_s);
    EXPECT_EQ(names().size(), 2);
    const auto store = makeStore();
    store->openSong(of(song(u"c.mp3"_s, "tags", "third sound")));
    ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
    EXPECT_TRUE(store->record().loops.empty());
}

TEST_F(PracticeStoreTest, MergesEditsMadeBeforeTheSongWasRecognised)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    m_control.isHeld = true;
    const auto store = makeStore();
    store->openSong(of(song(u"b.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"B"_s, 9000)}));
    m_control.release();
    ASSERT_TRUE(eventually([&] { return store->record().loops.size() == 2; }));
    EXPECT_EQ(loopNames(store->record()), (QStringList{u"A"_s, u"B"_s}));
    store->save();
    EXPECT_EQ(names().size(), 1);
    ASSERT_TRUE(store->undo());
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
}

TEST_F(PracticeStoreTest, LeavesAFoundFileAsItIsIfTheEditsBeforeWereUndone)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    const QString path = inPractice(names().first());
    const auto stamp = files::fileStamp(path);
    m_control.isHeld = true;
    const auto store = makeStore();
    store->openSong(of(song(u"b.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"B"_s, 9000)}));
    ASSERT_TRUE(store->undo());
    m_control.release();
    ASSERT_TRUE(eventually([&] { return store->record().loops.size() == 1; }));
    store->save();
    EXPECT_EQ(files::fileStamp(path), stamp);
    EXPECT_EQ(names().size(), 1);
}

TEST_F(PracticeStoreTest, MovesAFileWrittenTooEarlyIntoTheOneThatIsFound)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    m_control.isHeld = true;
    const auto store = makeStore();
    store->openSong(of(song(u"b.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"B"_s, 9000)}));
    store->save();
    EXPECT_EQ(names().size(), 2);
    EXPECT_TRUE(names().contains(u"Corner Shop Blues.json"_s));
    m_control.release();
    ASSERT_TRUE(eventually([&] { return store->record().loops.size() == 2; }));
    store->save();
    ASSERT_EQ(names().size(), 1);
    EXPECT_EQ(loopNames(readPractice(content(inPractice(names().first())))->record),
              (QStringList{u"A"_s, u"B"_s}));
}

TEST_F(PracticeStoreTest, WritesTheHashLaterIfTheFileHadToBeWrittenWithoutIt)
{
    const QString path = song(u"a.mp3"_s);
    m_control.isHeld = true;
    {
        const auto store = makeStore();
        store->openSong(of(path));
        ASSERT_TRUE(store->apply({newLoop(u"A"_s)}));
    }
    m_control.release();
    EXPECT_EQ(names(), QStringList{u"Corner Shop Blues.json"_s});
    {
        const auto store = makeStore();
        store->openSong(of(path));
        EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
    }
    EXPECT_EQ(readPractice(content(inPractice(names().first())))->record.song.audio.size(), 40);
}

TEST_F(PracticeStoreTest, DoesNotPostponeWritingWhileEditsGoOn)
{
    const auto store = makeStore(std::chrono::milliseconds(200));
    store->openSong(of(song(u"a.mp3"_s)));
    QSignalSpy saved(store.get(), &PracticeStore::saved);
    PracticeLoop loop = newLoop(u"A"_s).loop;
    const QDeadlineTimer deadline(60000);
    while (saved.isEmpty() && !deadline.hasExpired()) {
        ++loop.from;
        ++loop.to;
        ASSERT_TRUE(store->apply({PutLoop{loop}}));
        QCoreApplication::processEvents();
    }
    EXPECT_FALSE(saved.isEmpty());
}

TEST_F(PracticeStoreTest, SavesWhenAnotherSongIsOpenedAndAtTheEnd)
{
    const QString a = song(u"a.mp3"_s);
    const QString b = song(u"b.mp3"_s, "tags", "other sound");
    {
        const auto store = makeStore();
        store->openSong(of(a));
        ASSERT_TRUE(store->apply({newLoop(u"A"_s)}));
        store->openSong(of(b));
        EXPECT_TRUE(store->record().loops.empty());
        ASSERT_TRUE(store->apply({newLoop(u"B"_s)}));
    }
    const auto store = makeStore();
    store->openSong(of(b));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"B"_s});
    store->openSong(of(a));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
}

TEST_F(PracticeStoreTest, SavesUndoneAndRedoneSteps)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    {
        const auto store = makeStore();
        store->openSong(of(path));
        const PracticeId id = store->record().loops.front().id;
        ASSERT_TRUE(store->apply({RemoveLoop{id}}));
        store->save();
        EXPECT_TRUE(readPractice(content(inPractice(names().first())))->record.loops.empty());
        ASSERT_TRUE(store->undo());
        EXPECT_NE(store->record().loop(id), nullptr);
    }
    EXPECT_EQ(readPractice(content(inPractice(names().first())))->record.loops.size(), 1U);
}

TEST_F(PracticeStoreTest, StopsHashingWhenTheSongIsClosed)
{
    m_control.isHeld = true;
    const auto store = makeStore();
    store->openSong(of(song(u"a.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"A"_s)}));
    ASSERT_TRUE(eventually([&] { return m_control.hashed == 1; }));
    store->closeSong();
    EXPECT_TRUE(eventually([&] { return m_control.stopped == 1; }));
    EXPECT_FALSE(store->isIdentifying());
    EXPECT_FALSE(store->hasSong());
}

TEST_F(PracticeStoreTest, FollowsARealSongThroughAMoveNewTagsAndAnotherContainer)
{
    const auto makeReader = [] { return std::make_unique<AudioFileReader>(); };
    const QString original = sampleFile({.extension = u"mp3"_s, .tags = {{u"title"_s, u"A"_s}}});
    {
        PracticeStore store(practice(), makeReader, m_runner);
        store.openSong(of(original));
        ASSERT_TRUE(store.apply({newLoop(u"A"_s)}));
        ASSERT_TRUE(eventually([&] { return !store.isIdentifying(); }));
    }
    const QString moved = m_folder.filePath(u"moved.mka"_s);
    ASSERT_TRUE(runFfmpeg(
        {u"-i"_s, original, u"-c"_s, u"copy"_s, u"-metadata"_s, u"title=Another"_s, moved}));
    PracticeStore store(practice(), makeReader, m_runner);
    store.openSong(of(moved));
    EXPECT_TRUE(eventually([&] { return store.record().loops.size() == 1; }));
}

} // namespace
