#include "library/LB_TrackController.h"

#include "library/LibraryFixture.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

void post(const QString &name)
{
    NotificationCenter::defaultCenter().post(name);
}

QStringList numbered(int count)
{
    QStringList titles;
    for (int i = 0; i < count; ++i)
        titles.append(u"Song %1"_s.arg(i));
    return titles;
}

QString header(const LibraryFixture &f, int column)
{
    return f.tracks.model()->headerData(column, Qt::Horizontal).toString();
}

} // namespace

TEST(LB_TrackController, StartsWithAnEmptyListWithoutIdentifier)
{
    const LibraryFixture f;
    EXPECT_EQ(f.tracks.listID(), std::nullopt);
    EXPECT_EQ(f.tracks.trackCount(), 0U);
    EXPECT_TRUE(f.tracks.sortDescriptors().empty());
    EXPECT_EQ(f.tracks.highlightedColumn(), -1);
}

TEST(LB_TrackController, RemovesTheFilterForAnEmptyTextAndFiltersForABlank)
{
    LibraryFixture f;
    f.showPlaylist({u"One Two"_s, u"Three"_s});
    f.search(u" "_s);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"One Two"_s}));
    EXPECT_EQ(f.tracks.trackCount(), 1U);
    f.search({});
    EXPECT_EQ(f.shownTitles(), (QStringList{u"One Two"_s, u"Three"_s}));
    EXPECT_EQ(f.tracks.trackCount(), 2U);
}

TEST(LB_TrackController, FindsSongsIgnoringCaseAndDiacritics)
{
    LibraryFixture f;
    f.showPlaylist({u"Café Society"_s, u"By"_s, u"Other"_s});
    f.tracks.content()[1]->artist = u"CAFE"_s;
    f.search(u"cafe"_s);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"Café Society"_s, u"By"_s}));
}

TEST(LB_TrackController, CountsOnlyTheRowsOfANewListThatPassTheSearch)
{
    LibraryFixture f;
    QSignalSpy spy(&f.tracks, &LB_TrackController::trackCountChanged);
    f.search(u"a"_s);
    f.showPlaylist({u"abc"_s, u"xyz"_s, u"cab"_s});
    EXPECT_EQ(f.tracks.trackCount(), 2U);
    ASSERT_EQ(spy.count(), 1);
    EXPECT_EQ(spy.front().front().toULongLong(), 2U);
    EXPECT_EQ(f.tracks.content().size(), 3U);
}

TEST(LB_TrackController, KeepsTheSelectedSongSelectedWhileItIsShown)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"ab"_s, u"abc"_s});
    f.table.selectRow(2);
    f.search(u"ab"_s);
    EXPECT_EQ(f.tracks.selectedRow(), 1);
    f.clickHeader(TrackTableModel::Title);
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(f.tracks.selectedRow(), 0);
    f.search(u"x"_s);
    EXPECT_EQ(f.tracks.selectedRow(), -1);
}

TEST(LB_TrackController, DeselectsEverythingInANewListAndScrollsUp)
{
    LibraryFixture f;
    f.table.resize(600, 300);
    f.table.show();
    f.showPlaylist(numbered(200));
    f.table.selectRow(150);
    f.table.scrollToBottom();
    f.showPlaylist(numbered(200), u"P2"_s);
    EXPECT_EQ(f.tracks.selectedRow(), -1);
    EXPECT_EQ(f.table.rowAt(0), 0);
}

TEST(LB_TrackController, DoesNotScrollWhenTheSearchHidesThePlayingSong)
{
    LibraryFixture f;
    f.table.resize(600, 300);
    f.table.show();
    f.showPlaylist(numbered(200));
    f.queue.playTrack(f.tracks.content()[150]);
    f.search(u"Song 1"_s); // Shows it.
    f.tracks.scrollToCurrentTrack();
    EXPECT_NE(f.table.rowAt(0), 0);
    f.search(u"Song 2"_s); // Hides it.
    f.tracks.scrollToCurrentTrack();
    EXPECT_EQ(f.table.rowAt(0), 0);
}

TEST(LB_TrackController, ScrollsThePlayingSongNearTheMiddle)
{
    LibraryFixture f;
    f.table.resize(600, 300);
    f.table.show();
    f.showPlaylist(numbered(200));
    f.queue.playTrack(f.tracks.content()[100]);
    const int first = f.table.rowAt(0);
    const int last = f.table.rowAt(f.table.viewport()->height() - 1);
    EXPECT_NEAR((first + last) / 2.0, 100.0, 2.0);
}

TEST(LB_TrackController, EmptiesPlayerAndQueueWhenPlayIsPressedOnAnEmptyList)
{
    LibraryFixture f;
    const TrackRecordRef song = f.track(u"A"_s);
    f.queue.playTrack(song);
    f.queue.setPlayQueueWithListID({song}, u"L"_s);
    post(notification::playPressedOnEmpty);
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    EXPECT_TRUE(f.queue.content().empty());
}

TEST(LB_TrackController, PlaysTheFirstSongWhenPlayIsPressedWithNothingLoaded)
{
    LibraryFixture f;
    f.showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    f.search(u"B"_s);
    post(notification::playPressedOnEmpty);
    EXPECT_EQ(f.playingTitle(), u"B"_s);
    EXPECT_EQ(LibraryFixture::titlesOf(f.queue.content()), (QStringList{u"A"_s, u"B"_s, u"C"_s}));
    EXPECT_EQ(f.queue.currentIndex(), 1U);
    EXPECT_EQ(f.queue.queuedListID(), u"P1"_s);
}

TEST(LB_TrackController, PlaysTheSelectedSongWhenPlayIsPressedWithNothingLoaded)
{
    LibraryFixture f;
    f.showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    f.queue.setIsShuffling(true);
    f.table.selectRow(2);
    post(notification::playPressedOnEmpty);
    EXPECT_EQ(f.playingTitle(), u"C"_s);
    EXPECT_EQ(f.queue.content().front(), f.tracks.content()[2]);
}

TEST(LB_TrackController, PlaysARandomSongWhenShuffling)
{
    LibraryFixture f;
    f.showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    f.queue.setIsShuffling(true);
    f.tracks.setRandomSource([] { return 4294967294U; }); // Modulo 3 this gives 2.
    post(notification::playPressedOnEmpty);
    EXPECT_EQ(f.playingTitle(), u"C"_s);
}

TEST(LB_TrackController, PlaysTheRowThatIsDoubleClicked)
{
    LibraryFixture f;
    f.showPlaylist({u"A"_s, u"B"_s, u"C"_s});
    f.table.resize(600, 300);
    f.table.show();
    const QPoint spot =
        f.table.visualRect(f.tracks.model()->index(1, TrackTableModel::Title)).center();
    QTest::mouseClick(f.table.viewport(), Qt::LeftButton, {}, spot);
    QTest::mouseDClick(f.table.viewport(), Qt::LeftButton, {}, spot);
    EXPECT_EQ(f.playingTitle(), u"B"_s);
    EXPECT_TRUE(f.audio().isRunning());
    EXPECT_EQ(f.queue.content(), f.tracks.content());
    EXPECT_EQ(f.queue.currentIndex(), 1U);
    EXPECT_TRUE(f.tracks.content()[1]->isPlaying);
    EXPECT_FALSE(f.tracks.content()[0]->isPlaying);
}

TEST(LB_TrackController, PlaysTheSelectedRowAtEnter)
{
    LibraryFixture f;
    f.showPlaylist({u"A"_s, u"B"_s});
    QTest::keyClick(&f.table, Qt::Key_Return);
    EXPECT_EQ(f.audio().currentTrack(), nullptr);
    f.table.selectRow(1);
    QTest::keyClick(&f.table, Qt::Key_Enter);
    EXPECT_EQ(f.playingTitle(), u"B"_s);
}

TEST(LB_TrackController, DoesNotJumpToARowByTyping)
{
    LibraryFixture f;
    f.showPlaylist({u"Alpha"_s, u"Beta"_s, u"Gamma"_s});
    f.table.selectRow(0);
    f.table.setCurrentIndex(f.tracks.model()->index(0, TrackTableModel::Title));
    QTest::keyClicks(&f.table, u"gam"_s);
    QTest::keyClick(&f.table, Qt::Key_Space);
    EXPECT_EQ(f.tracks.selectedRow(), 0);
    QTest::keyClick(&f.table, Qt::Key_Down);
    EXPECT_EQ(f.tracks.selectedRow(), 1);
}

TEST(LB_TrackController, SortsAtAClickAndReversesAtTheNext)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"c"_s, u"a"_s});
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
}

TEST(LB_TrackController, ShowsOneArrowHoweverOftenAHeaderIsClicked)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s});
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(header(f, TrackTableModel::Title), u"Title  ▲"_s);
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(header(f, TrackTableModel::Title), u"Title  ▼"_s);
    EXPECT_EQ(f.tracks.highlightedColumn(), TrackTableModel::Title);
}

TEST(LB_TrackController, LeavesTheArrowOfTheColumnSortedBefore)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s});
    f.clickHeader(TrackTableModel::Title);
    f.clickHeader(TrackTableModel::HasSettings);
    EXPECT_EQ(header(f, TrackTableModel::Title), u"Title  ▲"_s);
    EXPECT_EQ(header(f, TrackTableModel::HasSettings), u"  ▲"_s);
    EXPECT_EQ(f.tracks.highlightedColumn(), TrackTableModel::HasSettings);
}

TEST(LB_TrackController, RemembersTheSortOfEachList)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"c"_s, u"a"_s}, u"P1"_s);
    f.clickHeader(TrackTableModel::Title);
    f.clickHeader(TrackTableModel::Title);
    f.showPlaylist({u"y"_s, u"z"_s, u"x"_s}, u"P2"_s);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"y"_s, u"z"_s, u"x"_s}));
    EXPECT_EQ(f.tracks.highlightedColumn(), -1);
    f.showPlaylist({u"b"_s, u"c"_s, u"a"_s}, u"P1"_s);
    EXPECT_EQ(f.shownTitles(), (QStringList{u"c"_s, u"b"_s, u"a"_s}));
    EXPECT_EQ(f.transport.settings.sortDescriptorForListID(u"P1"_s),
              (SortDescriptor{u"title"_s, false}));
    EXPECT_EQ(header(f, TrackTableModel::Title), u"Title  ▼"_s);
}

TEST(LB_TrackController, SurvivesARememberedSortThatItDoesNotKnow)
{
    LibraryFixture f;
    f.transport.settings.setSortDescriptorForListID({u"nonsense"_s, true}, u"P1"_s);
    f.showPlaylist({u"b"_s, u"a"_s});
    EXPECT_EQ(f.shownTitles(), (QStringList{u"b"_s, u"a"_s}));
    EXPECT_EQ(f.tracks.highlightedColumn(), -1);
}

TEST(LB_TrackController, QueuesTheResortedListAgain)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"c"_s, u"a"_s});
    f.table.selectRow(0);
    f.tracks.trackSelectedForPlayback();
    f.search(u"b"_s);
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(LibraryFixture::titlesOf(f.queue.content()), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(f.queue.currentIndex(), 1U);
}

TEST(LB_TrackController, DoesNotQueueTheResortedListAgainWhenShuffling)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"c"_s, u"a"_s});
    f.queue.setIsShuffling(true);
    f.table.selectRow(0);
    f.tracks.trackSelectedForPlayback();
    const TrackRecordList ordered = f.queue.orderedArray();
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(f.queue.orderedArray(), ordered);
}

TEST(LB_TrackController, DoesNotQueueAListOtherThanTheQueuedOne)
{
    LibraryFixture f;
    f.showPlaylist({u"b"_s, u"a"_s}, u"P1"_s);
    f.table.selectRow(0);
    f.tracks.trackSelectedForPlayback();
    f.showPlaylist({u"y"_s, u"x"_s}, u"P2"_s);
    f.clickHeader(TrackTableModel::Title);
    EXPECT_EQ(LibraryFixture::titlesOf(f.queue.content()), (QStringList{u"b"_s, u"a"_s}));
    EXPECT_EQ(f.queue.queuedListID(), u"P1"_s);
}

TEST(LB_TrackController, UpdatesTheFlagsOfASongThatTheSearchShowsAgain)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s, u"b"_s});
    const TrackRecordList list = f.tracks.content();
    f.queue.playTrack(list[0]);
    f.search(u"b"_s);
    f.queue.playTrack(list[1]);
    EXPECT_TRUE(list[0]->isPlaying); // Its row is hidden.
    f.search({});
    EXPECT_FALSE(list[0]->isPlaying);
    EXPECT_TRUE(list[1]->isPlaying);
}

TEST(LB_TrackController, SelectsTheSelectedRowAgainAfterAChangeOfSettings)
{
    LibraryFixture f;
    f.showPlaylist({u"a"_s, u"b"_s});
    f.table.selectRow(1);
    QSignalSpy spy(f.table.selectionModel(), &QItemSelectionModel::selectionChanged);
    post(notification::songSettingsChanged);
    EXPECT_EQ(f.tracks.selectedRow(), 1);
    EXPECT_EQ(spy.count(), 2);
    f.table.clearSelection();
    spy.clear();
    post(notification::songSettingsChanged);
    EXPECT_EQ(spy.count(), 0);
}

TEST(LB_TrackController, ScrollsToTheFirstRowAfterLaunch)
{
    LibraryFixture f;
    f.table.resize(600, 300);
    f.table.show();
    f.showPlaylist(numbered(100));
    f.table.scrollToBottom();
    post(notification::applicationDidFinishLaunching);
    EXPECT_EQ(f.table.rowAt(0), 0);
}

TEST(LB_TrackController, KeepsTheScrollPositionWhenSettingsChangeWhicheverColumnWasClicked)
{
    LibraryFixture f;
    QStringList titles;
    for (int i = 0; i < 100; ++i)
        titles.append(QString::number(i));
    f.showPlaylist(titles);
    f.table.resize(700, 300);
    f.table.show();
    const QModelIndex clicked = f.tracks.model()->index(0, TrackTableModel::Album);
    QTest::mouseClick(f.table.viewport(), Qt::LeftButton, {}, f.table.visualRect(clicked).center());
    ASSERT_EQ(f.table.currentIndex(), clicked);
    f.table.scrollToBottom();
    const int place = f.table.verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    f.tracks.updateSongSettings();
    EXPECT_EQ(f.table.verticalScrollBar()->value(), place);
    EXPECT_EQ(f.tracks.selectedRow(), 0);
    EXPECT_EQ(f.table.currentIndex(), clicked);
}
