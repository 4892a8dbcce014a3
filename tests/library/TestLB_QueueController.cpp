#include "library/LB_QueueController.h"

#include "library/LibraryFixture.h"

#include <QAbstractItemModel>

#include <set>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr std::uint64_t notFound = LB_QueueController::notFound;

struct QueueFixture : LibraryFixture {
    void enqueue(const TrackRecordList &list) { queue.setPlayQueueWithListID(list, u"L"_s); }

    void pressShuffle(bool on)
    {
        shuffleButton.setState(on ? 1 : 0);
        queue.setIsShuffling(on);
        queue.shuffleButtonPressed(&shuffleButton);
    }

    StateButton shuffleButton;
};

TrackRecordList sortedByAddress(TrackRecordList list)
{
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

TEST(LB_QueueController, PutsTheCurrentSongFirstInAShuffledQueue)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s});
    f.queue.setIsShuffling(true);
    f.queue.playTrack(list[3]);
    f.enqueue(list);
    EXPECT_EQ(f.queue.content().front(), list[3]);
    EXPECT_EQ(f.queue.currentIndex(), 0U);
    EXPECT_EQ(sortedByAddress(f.queue.content()), sortedByAddress(list));
    EXPECT_EQ(f.queue.orderedArray(), list);
}

TEST(LB_QueueController, DrawsThePositionsAfterTheFirstOneByOne)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s});
    f.enqueue(list);
    std::vector<std::uint32_t> draws{7, 5, 4294967295U, 0}; // Modulo 4, 3, 2 and 1 this gives 3, 2,
                                                            // 1 and 0.
    std::size_t next = 0;
    f.queue.setRandomSource([&] { return draws.at(next++); });
    EXPECT_EQ(LibraryFixture::titlesOf(f.queue.shuffledArray()),
              (QStringList{u"A"_s, u"E"_s, u"B"_s, u"C"_s, u"D"_s}));
    EXPECT_EQ(next, draws.size());
}

TEST(LB_QueueController, KeepsTheFirstSongFirstIfTheCurrentOneIsNotInTheList)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s, u"D"_s});
    f.queue.setIsShuffling(true);
    f.queue.playTrack(f.track(u"elsewhere"_s));
    for (int i = 0; i < 20; ++i) {
        f.enqueue(list);
        ASSERT_EQ(f.queue.content().front(), list.front());
    }
}

TEST(LB_QueueController, ShufflesEveryOrderOfTheRest)
{
    QueueFixture f;
    f.enqueue(f.trackList({u"A"_s, u"B"_s, u"C"_s, u"D"_s}));
    std::set<QStringList> orders;
    for (int i = 0; i < 1000 && orders.size() < 6; ++i)
        orders.insert(LibraryFixture::titlesOf(f.queue.shuffledArray()));
    EXPECT_EQ(orders.size(), 6U);
}

TEST(LB_QueueController, ShufflesAnEmptyListAndAListOfOneSong)
{
    QueueFixture f;
    EXPECT_TRUE(f.queue.shuffledArray().empty());
    const TrackRecordList one = f.trackList({u"A"_s});
    f.enqueue(one);
    EXPECT_EQ(f.queue.shuffledArray(), one);
}

TEST(LB_QueueController, FindsTheCurrentSongInTheQueuedList)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s});
    f.queue.playTrack(list[1]);
    f.enqueue(list);
    EXPECT_EQ(f.queue.currentIndex(), 1U);
    EXPECT_EQ(f.queue.queuedListID(), u"L"_s);
}

TEST(LB_QueueController, FindsTheCurrentSongInARebuiltListByItsInode)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s});
    TrackRecordList rebuilt;
    for (const TrackRecordRef &record : list)
        rebuilt.push_back(std::make_shared<TrackRecord>(*record));
    f.queue.playTrack(list[2]);
    f.enqueue(rebuilt);
    EXPECT_EQ(f.queue.currentIndex(), 2U);
}

TEST(LB_QueueController, PrefersTheSameRecordIfASongIsInTheListTwice)
{
    QueueFixture f;
    TrackRecordList list = f.trackList({u"A"_s, u"B"_s});
    list.push_back(std::make_shared<TrackRecord>(*list[0]));
    f.queue.playTrack(list[2]);
    f.enqueue(list);
    EXPECT_EQ(f.queue.currentIndex(), 2U);
}

TEST(LB_QueueController, KeepsThePositionIfTheCurrentSongIsNotInTheQueuedList)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s, u"C"_s});
    f.queue.playTrack(list[2]);
    f.enqueue(list);
    f.enqueue(f.trackList({u"X"_s, u"Y"_s}));
    EXPECT_EQ(f.queue.currentIndex(), 2U);
}

TEST(LB_QueueController, StartsTheSongThatItPlays)
{
    QueueFixture f;
    f.errorField.setText(u"old"_s);
    f.queue.playTrack(f.track(u"A"_s));
    EXPECT_EQ(f.playingTitle(), u"A"_s);
    EXPECT_TRUE(f.playButtonIsOn());
    EXPECT_TRUE(f.audio().isRunning());
    EXPECT_EQ(f.errorField.text(), QString());
}

TEST(LB_QueueController, EmptiesThePlayerIfTheChosenSongCannotBeLoaded)
{
    QueueFixture f;
    const TrackRecordRef broken = f.track(u"Broken"_s);
    f.failToLoad(broken, 1718449215);
    f.queue.playTrack(broken);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'Broken' (fmt?)"_s);
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_FALSE(f.playButtonIsOn());
}

TEST(LB_QueueController, ReportsAndSkipsASongThatCannotBeLoadedGoingForward)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"One"_s, u"Two"_s, u"Three"_s});
    f.failToLoad(list[1], -43);
    f.queue.playTrack(list[0]);
    f.enqueue(list);
    f.queue.playNextTrack();
    EXPECT_EQ(f.errorField.text(), u"Error loading 'Two' (-43)"_s);
    EXPECT_EQ(f.playingTitle(), u"Three"_s);
    EXPECT_EQ(f.queue.currentIndex(), 2U);
    EXPECT_TRUE(f.audio().isRunning());
}

TEST(LB_QueueController, ShowsMarkupAndPlaceholdersInATitleLiterally)
{
    QueueFixture f;
    const TrackRecordRef broken = f.track(u"<b>100%2</b> %1"_s);
    f.failToLoad(broken, -43);
    f.queue.playTrack(broken);
    EXPECT_EQ(f.errorField.text(), u"Error loading '<b>100%2</b> %1' (-43)"_s);
    EXPECT_EQ(f.errorField.textFormat(), Qt::PlainText);
}

TEST(LB_QueueController, LoadsNothingAtTheLastSongAndEmptiesThePlayerAtTheNextStep)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s});
    f.queue.playTrack(list[1]);
    f.enqueue(list);
    f.queue.playNextTrack();
    EXPECT_EQ(f.playingTitle(), u"B"_s);
    EXPECT_EQ(f.queue.currentIndex(), 2U);
    EXPECT_EQ(f.errorField.text(), QString());
    f.queue.playNextTrack();
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.queue.content(), list);
}

TEST(LB_QueueController, UpdatesTheTableOnceWhenItSkipsThousandsOfBrokenSongs)
{
    constexpr int broken = 5000;
    QueueFixture f;
    QStringList titles{u"first"_s};
    for (int i = 0; i < broken; ++i)
        titles.append(u"broken %1"_s.arg(i));
    titles.append(u"last"_s);
    f.showPlaylist(titles);
    const TrackRecordList list = f.tracks.content();
    for (std::size_t i = 1; i <= broken; ++i)
        f.failToLoad(list[i], -43);
    f.queue.playTrack(list.front());
    f.enqueue(list);
    int visits = 0;
    QObject::connect(f.tracks.model(), &QAbstractItemModel::dataChanged, [&visits] { ++visits; });

    f.queue.playNextTrack();
    EXPECT_EQ(f.playingTitle(), u"last"_s);
    EXPECT_EQ(f.tracks.model()->firstPlayingRow(), broken + 1);
    EXPECT_LT(visits, 10);

    f.failToLoad(list.front(), -43);
    visits = 0;
    f.queue.playPreviousTrack();
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.queue.currentIndex(), 0U);
    EXPECT_EQ(f.tracks.model()->firstPlayingRow(), -1);
    EXPECT_LT(visits, 10);
}

TEST(LB_QueueController, ReportsHowManySongsAreSkippedAndStopsWhenTheUserWants)
{
    QueueFixture f;
    TrackRecordList list = f.trackList({u"first"_s});
    for (int i = 1; i <= 100; ++i) {
        list.push_back(f.track(u"broken %1"_s.arg(i)));
        f.failToLoad(list.back(), -43);
    }
    list.push_back(f.track(u"last"_s));
    f.queue.playTrack(list.front());
    f.enqueue(list);
    std::chrono::milliseconds now{};
    std::vector<std::pair<qint64, qint64>> told;
    f.queue.setProgressClock([&now] { return now += std::chrono::milliseconds(100); });
    f.queue.setProgressHook([&](qint64 done, qint64 total) { told.emplace_back(done, total); });
    std::size_t patience = 5;
    f.queue.setStopProbe([&] { return [&] { return told.size() == patience; }; });

    f.queue.playNextTrack();
    EXPECT_EQ(told, (std::vector<std::pair<qint64, qint64>>{
                        {3, 101}, {4, 101}, {5, 101}, {6, 101}, {7, 101}}));
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.queue.currentIndex(), 7U);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'broken 7' (-43)"_s);
    EXPECT_FALSE(f.queue.isSkipping());

    told.clear();
    patience = 2;
    f.queue.playPreviousTrack();
    EXPECT_EQ(told, (std::vector<std::pair<qint64, qint64>>{{3, 7}, {4, 7}}));
    EXPECT_EQ(f.queue.currentIndex(), 3U);
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'broken 3' (-43)"_s);

    f.queue.setStopProbe({});
    f.queue.playNextTrack();
    EXPECT_EQ(f.playingTitle(), u"last"_s);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'broken 100' (-43)"_s);
}

TEST(LB_QueueController, GoesBackAndSkipsASongThatCannotBeLoaded)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"One"_s, u"Two"_s, u"Three"_s});
    f.failToLoad(list[1], -43);
    f.queue.playTrack(list[2]);
    f.enqueue(list);
    f.queue.playPreviousTrack();
    EXPECT_EQ(f.playingTitle(), u"One"_s);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'Two' (-43)"_s);
    EXPECT_FALSE(f.queue.canPlayPreviousTrack());
}

TEST(LB_QueueController, EmptiesThePlayerIfTheFirstSongCannotBeLoadedGoingBack)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"One"_s, u"Two"_s});
    f.failToLoad(list[0], -43);
    f.queue.playTrack(list[1]);
    f.enqueue(list);
    f.queue.playPreviousTrack();
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.errorField.text(), u"Error loading 'One' (-43)"_s);
}

TEST(LB_QueueController, CanPlayThePreviousTrackUnlessAtTheFirst)
{
    QueueFixture f;
    EXPECT_FALSE(f.queue.canPlayPreviousTrack());
    f.enqueue(f.trackList({u"A"_s, u"B"_s}));
    f.pressShuffle(false); // Nothing is loaded.
    EXPECT_EQ(f.queue.currentIndex(), notFound);
    EXPECT_TRUE(f.queue.canPlayPreviousTrack());
}

TEST(LB_QueueController, LoadsNothingFromAPositionOutsideTheContent)
{
    QueueFixture f;
    const TrackRecordList list = f.trackList({u"A"_s, u"B"_s});
    f.enqueue(list);
    f.queue.playTrack(f.track(u"elsewhere"_s));
    f.pressShuffle(false);
    ASSERT_EQ(f.queue.currentIndex(), notFound);
    f.queue.playPreviousTrack();
    EXPECT_EQ(f.queue.currentIndex(), notFound - 1);
    EXPECT_EQ(f.playingTitle(), u"elsewhere"_s);
    f.queue.playNextTrack();
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.errorField.text(), QString());
}

TEST(LB_QueueController, GoesBackFromTheFirstSongWithoutHarm)
{
    QueueFixture f;
    f.enqueue(f.trackList({u"A"_s}));
    f.queue.playPreviousTrack(); // The caller has not asked canPlayPreviousTrack().
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_EQ(f.errorField.text(), QString());
}

TEST(LB_QueueController, DrawsANewOrderEachTimeShuffleIsSwitchedOn)
{
    QueueFixture f;
    QStringList titles;
    for (int i = 0; i < 40; ++i)
        titles.append(QString::number(i));
    const TrackRecordList list = f.trackList(titles);
    f.queue.playTrack(list[5]);
    f.enqueue(list);
    f.pressShuffle(true);
    const TrackRecordList first = f.queue.content();
    EXPECT_EQ(f.queue.currentIndex(), 0U);
    f.pressShuffle(false);
    EXPECT_EQ(f.queue.content(), list);
    EXPECT_EQ(f.queue.currentIndex(), 5U);
    f.pressShuffle(true);
    EXPECT_NE(f.queue.content(), first);
    EXPECT_EQ(f.queue.content().front(), list[5]);
}

TEST(LB_QueueController, RemembersShuffleOnlyWhenItsButtonIsPressed)
{
    QueueFixture f;
    f.queue.setIsShuffling(true);
    f.enqueue(f.trackList({u"A"_s}));
    EXPECT_FALSE(userDefaults().contains(defaultsKey::shuffle));
    f.pressShuffle(true);
    EXPECT_TRUE(userDefaults().value(defaultsKey::shuffle).toBool());
    f.pressShuffle(false);
    EXPECT_TRUE(userDefaults().contains(defaultsKey::shuffle));
    EXPECT_FALSE(userDefaults().value(defaultsKey::shuffle).toBool());
}

TEST(LB_QueueController, RestoresTheRememberedShuffleAtStart)
{
    QueueFixture f;
    f.queue.awakeFromNib();
    EXPECT_FALSE(f.queue.isShuffling());
    userDefaults().setValue(defaultsKey::shuffle, true);
    f.queue.awakeFromNib();
    EXPECT_TRUE(f.queue.isShuffling());
}
