// Files that are broken, of another version, changed by other programs, or that cannot be written.

#include "practice/PracticeFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using Problem = PracticeStore::Problem;

namespace {

class PracticeStoreTroubles : public PracticeFixture {};

TEST_F(PracticeStoreTroubles, KeepsAnUnreadableFileAsideBeforeItWritesAnother)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString name = names().first();
    written(inPractice(name), "{ broken");
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(store->problem(), Problem::Unreadable);
    EXPECT_TRUE(store->record().loops.empty());
    store->save();
    EXPECT_EQ(names(), QStringList{name}) << "nothing is written before an edit";
    ASSERT_TRUE(store->apply({newLoop(u"B"_s)}));
    store->save();
    EXPECT_EQ(names(), (QStringList{name, name + u".unreadable-1"_s}));
    EXPECT_EQ(content(inPractice(name + u".unreadable-1"_s)), "{ broken");
    EXPECT_EQ(loopNames(readPractice(content(inPractice(name)))->record), QStringList{u"B"_s});
    EXPECT_EQ(store->problem(), Problem::None);
}

TEST_F(PracticeStoreTroubles, KeepsAFileAsideThatItReadsOnlyInPart)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString name = names().first();
    QByteArray odd = content(inPractice(name));
    odd.replace("\"loops\": [", "\"loops\": [{\"from\": \"yesterday\"},");
    written(inPractice(name), odd);
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(store->problem(), Problem::PartlyRead);
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    ASSERT_TRUE(store->apply({newLoop(u"B"_s)}));
    store->save();
    EXPECT_EQ(content(inPractice(name + u".unreadable-1"_s)), odd);
}

TEST_F(PracticeStoreTroubles, OpensAFileOfALaterVersionReadOnly)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString name = names().first();
    QByteArray later = content(inPractice(name));
    later.replace("\"lyrabox practice\": 1", "\"lyrabox practice\": 2");
    written(inPractice(name), later);
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(store->problem(), Problem::NewerVersion);
    EXPECT_TRUE(store->isReadOnly());
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    EXPECT_FALSE(store->apply({newLoop(u"B"_s)}));
    store->save();
    EXPECT_EQ(content(inPractice(name)), later);
}

TEST_F(PracticeStoreTroubles, NeverWritesAFileOfALaterVersionThatWasFoundLate)
{
    keepLoop(song(u"a.mp3"_s), u"A"_s);
    const QString name = names().first();
    QByteArray later = content(inPractice(name));
    later.replace("\"lyrabox practice\": 1", "\"lyrabox practice\": 2");
    written(inPractice(name), later);
    for (const bool isUndone : {true, false}) {
        const QString copy = song(isUndone ? u"b.mp3"_s : u"c.mp3"_s);
        m_control.isHeld = true;
        const auto store = makeStore();
        store->openSong(of(copy));
        ASSERT_TRUE(store->apply({newLoop(u"B"_s)}));
        store->save();
        if (isUndone) {
            ASSERT_TRUE(store->undo());
            store->save();
        }
        m_control.release();
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
        EXPECT_EQ(loopNames(store->record()), QStringList{isUndone ? u"A"_s : u"B"_s});
        store->save();
        EXPECT_EQ(content(inPractice(name)), later);
    }
}

TEST_F(PracticeStoreTroubles, KeepsEditsInMemoryWhileTheFolderCannotBeWritten)
{
    const QString blocker = written(m_folder.filePath(u"data"_s), "a file in the folder's place");
    const QString path = song(u"a.mp3"_s);
    const auto store = makeStore();
    store->openSong(of(path));
    ASSERT_TRUE(store->apply({newLoop(u"A"_s)}));
    store->save();
    EXPECT_EQ(store->problem(), Problem::NotWritable);
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    store->openSong(of(song(u"b.mp3"_s, "tags", "other sound")));
    EXPECT_EQ(store->problem(), Problem::None);
    store->openSong(of(path));
    EXPECT_EQ(loopNames(store->record()), QStringList{u"A"_s});
    ASSERT_TRUE(QFile::remove(blocker));
    store->save();
    EXPECT_EQ(store->problem(), Problem::None);
    ASSERT_EQ(names().size(), 1);
    const auto again = makeStore();
    again->openSong(of(path));
    EXPECT_EQ(loopNames(again->record()), QStringList{u"A"_s});
}

TEST_F(PracticeStoreTroubles, SaysThatTheFolderCannotBeWrittenAfterTheDelay)
{
    written(m_folder.filePath(u"data"_s), "a file in the folder's place");
    const auto store = makeStore(std::chrono::milliseconds(0));
    store->openSong(of(song(u"a.mp3"_s)));
    ASSERT_TRUE(store->apply({newLoop(u"A"_s)}));
    EXPECT_TRUE(eventually([&] { return store->problem() == Problem::NotWritable; }));
}

TEST_F(PracticeStoreTroubles, ReadsAFileThatAnotherProgramChanged)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString name = names().first();
    QByteArray theirs = content(inPractice(name));
    theirs.replace("\"A\"", "\"Theirs\"");
    for (const bool isReplaced : {false, true, false}) {
        const auto store = makeStore();
        store->openSong(of(path));
        if (isReplaced) {
            ASSERT_TRUE(QFile::remove(inPractice(name)));
        }
        written(inPractice(name), theirs);
        EXPECT_TRUE(
            eventually([&] { return loopNames(store->record()).value(0).endsWith(u"Theirs"_s); }));
        theirs.replace("Theirs", "Again Theirs");
        written(inPractice(name), theirs);
        EXPECT_TRUE(
            eventually([&] { return loopNames(store->record()).value(0).startsWith(u"Again"_s); }));
        theirs.replace("Again ", "");
    }
    EXPECT_EQ(names(), QStringList{name});
}

TEST_F(PracticeStoreTroubles, KeepsBothIfAnotherProgramChangedTheFileAndThereAreEdits)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString name = names().first();
    const auto store = makeStore();
    store->openSong(of(path));
    ASSERT_TRUE(store->apply({newLoop(u"Mine"_s, 9000)}));
    QByteArray theirs = content(inPractice(name));
    theirs.replace("\"A\"", "\"Theirs\"");
    written(inPractice(name), theirs);
    store->save();
    EXPECT_EQ(store->problem(), Problem::ChangedElsewhere);
    EXPECT_EQ(names(), (QStringList{name, name + u".changed-1"_s}));
    EXPECT_EQ(content(inPractice(name + u".changed-1"_s)), theirs);
    EXPECT_EQ(loopNames(readPractice(content(inPractice(name)))->record),
              (QStringList{u"A"_s, u"Mine"_s}));
}

} // namespace
