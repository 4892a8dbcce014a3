#include "library/SongsAhead.h"

#include "library/LibraryFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

#include <random>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TrackRecordRef record(const QString &title, const QString &inode)
{
    return TransportFixture::track(title, inode);
}

QUrl urlOf(const QString &title)
{
    return QUrl::fromLocalFile(u"/songs/%1.wav"_s.arg(title));
}

TEST(SongsAhead, AreTheNextSongAndThenTheSelectedOne)
{
    const TrackRecordRef a = record(u"A"_s, u"1"_s);
    const TrackRecordRef b = record(u"B"_s, u"2"_s);
    const TrackRecordRef c = record(u"C"_s, u"3"_s);
    EXPECT_THAT(songsAhead(a, b, c), ElementsAre(urlOf(u"B"_s), urlOf(u"C"_s)));
    EXPECT_THAT(songsAhead(a, nullptr, c), ElementsAre(urlOf(u"C"_s)));
    EXPECT_THAT(songsAhead(nullptr, b, nullptr), ElementsAre(urlOf(u"B"_s)));
    EXPECT_THAT(songsAhead(a, nullptr, nullptr), IsEmpty());
}

TEST(SongsAhead, AreNeverThePresentSongNorTheSameFileTwice)
{
    const TrackRecordRef a = record(u"A"_s, u"1"_s);
    const TrackRecordRef b = record(u"B"_s, u"2"_s);
    const TrackRecordRef otherRecordOfA = record(u"A"_s, u"(null)"_s);
    const TrackRecordRef otherNameOfA = record(u"Link"_s, u"1"_s);
    EXPECT_THAT(songsAhead(a, a, otherRecordOfA), IsEmpty());
    EXPECT_THAT(songsAhead(a, otherNameOfA, b), ElementsAre(urlOf(u"B"_s)));
    EXPECT_THAT(songsAhead(a, b, record(u"B"_s, u"2"_s)), ElementsAre(urlOf(u"B"_s)));
    // Unknown inodes say nothing.
    EXPECT_THAT(songsAhead(record(u"X"_s, u"(null)"_s), record(u"Y"_s, u"(null)"_s), nullptr),
                ElementsAre(urlOf(u"Y"_s)));
}

TEST(SongsAhead, AreOnlyLocalFiles)
{
    auto remote = record(u"A"_s, u"1"_s);
    remote->fileURL = QUrl(u"http://localhost/a.mp3"_s);
    EXPECT_THAT(songsAhead(nullptr, remote, std::make_shared<TrackRecord>()), IsEmpty());
}

/// A list of existing files with a queue, and the songs made ready for it.
class SongsMadeReady : public testing::Test {
protected:
    SongsMadeReady()
    {
        library.transport.song->frames = 1000;
        library.showPlaylist({u"A"_s, u"B"_s, u"C"_s, u"D"_s});
        ahead = std::make_unique<SongsAhead>(&library.queue, &library.tracks, &ready);
    }

    ~SongsMadeReady() override
    {
        ahead.reset();
        library.audio().emptyPlayer();
    }

    TrackRecordRef song(int row) { return library.tracks.arrangedObjects().at(row); }
    void select(int row) { library.table.selectRow(row); }

    void play(int row)
    {
        select(row);
        library.tracks.trackSelectedForPlayback();
    }

    bool isReady(int row) { return ready.isReady(song(row)->fileURL); }
    bool becomesReady(int row)
    {
        return QTest::qWaitFor([&] { return isReady(row); }, 30'000);
    }

    /// Lets pending updates happen.
    static void settle()
    {
        for (int i = 0; i < 3; ++i)
            QCoreApplication::processEvents();
    }

    void pressShuffle(bool on)
    {
        shuffleButton.setState(on ? 1 : 0);
        library.queue.setIsShuffling(on);
        library.queue.shuffleButtonPressed(&shuffleButton);
    }

    LibraryFixture library;
    engine::ReadySongs ready;
    std::unique_ptr<SongsAhead> ahead;
    StateButton shuffleButton;
};

TEST_F(SongsMadeReady, TheNextSongOfTheQueueOnceThePresentOneIsStarted)
{
    settle();
    EXPECT_FALSE(ready.isDecoding());
    play(0);
    EXPECT_TRUE(becomesReady(1));
    EXPECT_FALSE(isReady(0));
    library.queue.playNextTrack();
    EXPECT_EQ(library.playingTitle(), u"B"_s);
    EXPECT_TRUE(becomesReady(2));
}

TEST_F(SongsMadeReady, NothingBeforeThePresentSongIsStarted)
{
    library.transport.playPauseButton->setState(0);
    library.audio().loadTrackObject(song(0));
    library.queue.setPlayQueueWithListID(library.tracks.content(), u"P1"_s);
    settle();
    EXPECT_FALSE(ready.isDecoding());
    EXPECT_FALSE(isReady(1));
    library.audio().setIsRunning(true);
    EXPECT_TRUE(becomesReady(1));
}

TEST_F(SongsMadeReady, APauseKeepsWhatIsReady)
{
    play(0);
    ASSERT_TRUE(becomesReady(1));
    library.audio().setIsRunning(false);
    settle();
    EXPECT_TRUE(isReady(1));
}

TEST_F(SongsMadeReady, NothingAtTheEndOfTheQueue)
{
    play(3);
    settle();
    EXPECT_FALSE(ready.isDecoding());
}

TEST_F(SongsMadeReady, ShufflingReplacesTheNextSong)
{
    play(0);
    ASSERT_TRUE(becomesReady(1));
    library.queue.setRandomSource([] { return 1U; }); // A C D B
    pressShuffle(true);
    const TrackRecordRef next = library.queue.nextTrack();
    ASSERT_TRUE(next && next != song(1));
    EXPECT_TRUE(QTest::qWaitFor([&] { return ready.isReady(next->fileURL); }, 30'000));
    EXPECT_FALSE(isReady(1));
}

TEST_F(SongsMadeReady, TheSelectedSongOnceItHasRested)
{
    play(0);
    ASSERT_TRUE(becomesReady(1));
    select(3);
    settle();
    EXPECT_FALSE(ready.isDecoding()) << "the selection has not rested";
    EXPECT_TRUE(becomesReady(3));
    EXPECT_TRUE(isReady(1));
    select(2);
    settle();
    EXPECT_FALSE(isReady(3)) << "the row is no longer selected";
    EXPECT_TRUE(becomesReady(2));
}

TEST_F(SongsMadeReady, MarksOfRowsThatChangeKeepTheSelectedSong)
{
    play(0);
    select(3);
    ASSERT_TRUE(becomesReady(3));
    library.tracks.updateSongSettings(); // selects the row again
    settle();
    EXPECT_TRUE(isReady(3));
}

TEST_F(SongsMadeReady, ASongThatIsFilteredOutIsDropped)
{
    play(0);
    select(3);
    ASSERT_TRUE(becomesReady(3));
    const QUrl url = song(3)->fileURL;
    library.search(u"A"_s);
    settle();
    EXPECT_FALSE(ready.isReady(url));
}

TEST_F(SongsMadeReady, NothingWhileAListIsBuilt)
{
    play(0);
    ASSERT_TRUE(becomesReady(1));
    library.queue.playNextTrack();
    const QUrl next = song(2)->fileURL;
    std::vector<bool> decoding;
    LB_TrackController &tracks = library.tracks;
    QObject::connect(&tracks, &LB_TrackController::buildingListChanged, &tracks, [&] {
        decoding.push_back(ready.isDecoding());
        settle(); // as when the window is painted meanwhile
        decoding.push_back(ready.isDecoding() || ready.isReady(next));
    });
    settle();
    EXPECT_TRUE(ready.isDecoding() || ready.isReady(next));
    ready.drop();
    settle();
    library.showPlaylist({u"X"_s}, u"P2"_s);
    ASSERT_EQ(decoding.size(), 4U);
    EXPECT_FALSE(decoding[0]);
    EXPECT_FALSE(decoding[1]);
}

TEST_F(SongsMadeReady, NothingWhileTheBatteryIsLow)
{
    ahead->setBatteryIsLow(true);
    play(0);
    settle();
    EXPECT_FALSE(ready.isDecoding());
    EXPECT_FALSE(isReady(1));
    ahead->setBatteryIsLow(false);
    EXPECT_TRUE(becomesReady(1));
    ahead->setBatteryIsLow(true);
    EXPECT_TRUE(isReady(1)) << "what is ready has cost its energy already";
}

/// Takes the random actions of a musician, one after another.
class RandomUse : public SongsMadeReady {
protected:
    RandomUse()
    {
        // Every song has its own length, so that a wrong song shows.
        library.transport.song->framesOf = &RandomUse::framesOf;
        QStringList titles;
        for (int i = 0; i < 20; ++i)
            titles.append(QString::number(i));
        library.showPlaylist(titles, u"Many"_s);
        ahead->setRestTime(std::chrono::milliseconds(0));
    }

    static std::uint64_t framesOf(const QString &path) { return 1000 + qHash(path) % 50'000; }

    int pick(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

    void act()
    {
        const int row = pick(library.tracks.model()->rowCount());
        switch (pick(9)) {
        case 0:
            play(row);
            break;
        case 1:
            library.queue.playNextTrack();
            break;
        case 2:
            if (library.queue.hasPreviousTrack())
                library.queue.playPreviousTrack();
            break;
        case 3:
            pressShuffle(pick(2) == 1);
            break;
        case 4:
            library.clickHeader(TrackTableModel::Title);
            break;
        case 5:
            library.search(QString::number(pick(3)));
            library.search({});
            break;
        case 6:
            library.audio().setIsRunning(pick(2) == 1);
            break;
        case 7:
            ahead->setBatteryIsLow(pick(4) == 0);
            break;
        default:
            select(row);
            break;
        }
    }

private:
    std::mt19937 m_random{7};
};

TEST_F(RandomUse, PlaysTheRightSongsFromMemoryAndFromTheirFiles)
{
    QSignalSpy ended(&ready, &engine::ReadySongs::ended);
    int loads = 0;
    int reads = 0;
    for (int action = 0; action < 500; ++action) {
        const TrackRecordRef before = library.audio().currentTrack();
        act();
        const TrackRecordRef now = library.audio().currentTrack();
        if (now) {
            ASSERT_EQ(library.audio().totalFrames(), framesOf(now->fileURL.toLocalFile()));
        }
        loads += now != before ? 1 : 0;
        if (pick(3) > 0)
            settle();
        // The selection may rest meanwhile and cancel the decoding, which then does not end.
        if (pick(4) == 0) {
            ASSERT_TRUE(QTest::qWaitFor([this] { return !ready.isDecoding(); }, 30'000));
        }
        reads += ready.isReady(now ? now->fileURL : QUrl()) ? 1 : 0;
    }
    EXPECT_GT(loads, 50);
    EXPECT_GT(ended.count(), 20);
    EXPECT_EQ(reads, 0) << "the present song is kept twice";
}

} // namespace
