#include "practice/PracticeEdits.h"

#include "practice/PracticeText.h"
#include "practice/SongTime.h"

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

PracticeLoop loopAt(std::uint64_t from, const QString &name = u"Loop"_s)
{
    return {.name = name, .from = from, .to = from + 1000};
}

PracticeMarker markerAt(std::uint64_t at, const QString &name = u"Marker"_s)
{
    return {.at = at, .name = name};
}

TEST(PracticeEdits, AddAndRemoveLoopsAndMarkers)
{
    PracticeHistory history;
    const PracticeLoop loop = loopAt(5000);
    const PracticeMarker marker = markerAt(300);
    ASSERT_TRUE(history.apply({PutLoop{loop}, PutMarker{marker}}));
    EXPECT_EQ(*history.record().loop(loop.id), loop);
    EXPECT_EQ(*history.record().marker(marker.id), marker);
    ASSERT_TRUE(history.apply({RemoveLoop{loop.id}}));
    ASSERT_TRUE(history.apply({RemoveMarker{marker.id}}));
    EXPECT_EQ(history.record().loop(loop.id), nullptr);
    EXPECT_TRUE(history.record().markers.empty());
}

TEST(PracticeEdits, ReplaceALoopAndKeepTheOrderOfTheirPlaces)
{
    PracticeHistory history;
    PracticeLoop first = loopAt(1000, u"a"_s);
    const PracticeLoop second = loopAt(2000, u"b"_s);
    ASSERT_TRUE(history.apply({PutLoop{second}, PutLoop{first}}));
    EXPECT_EQ(history.record().loops.front().name, u"a"_s);
    first.from = 2500;
    first.to = 2600;
    first.colour = 3;
    first.name = u"  moved \n "_s;
    ASSERT_TRUE(history.apply({PutLoop{first}}));
    ASSERT_EQ(history.record().loops.size(), 2U);
    EXPECT_EQ(history.record().loops.back().id, first.id);
    EXPECT_EQ(history.record().loops.back().name, u"moved"_s);
    EXPECT_EQ(history.record().loops.back().colour, 3);
}

TEST(PracticeEdits, ARunOfSmallMovesIsOneStep)
{
    PracticeHistory history;
    PracticeLoop loop = loopAt(1000);
    ASSERT_TRUE(history.apply({PutLoop{loop}}));
    for (int move = 0; move < 900; ++move) {
        ++loop.from;
        ASSERT_TRUE(history.apply({PutLoop{loop}},
                                  move == 0 ? PracticeStep::New : PracticeStep::JoinsLast));
    }
    ASSERT_TRUE(history.undo());
    EXPECT_EQ(history.record().loops.front().from, 1000U);
    ASSERT_TRUE(history.redo());
    EXPECT_EQ(history.record().loops.front().from, 1900U);
    ASSERT_TRUE(history.undo());
    ASSERT_TRUE(history.undo());
    EXPECT_TRUE(history.record().loops.empty());
    EXPECT_FALSE(history.canUndo());
}

TEST(PracticeEdits, AStepThatJoinsTheOneThatMadeTheLoopIsUndoneWithIt)
{
    PracticeHistory history;
    PracticeLoop loop = loopAt(1000);
    const PracticeMarker marker = markerAt(5);
    ASSERT_TRUE(history.apply({PutLoop{loop}}, PracticeStep::JoinsLast)) << "there is none to join";
    loop.from = 1001;
    ASSERT_TRUE(history.apply({PutLoop{loop}, PutMarker{marker}}, PracticeStep::JoinsLast));
    ASSERT_TRUE(history.undo());
    EXPECT_TRUE(history.record().loops.empty());
    EXPECT_TRUE(history.record().markers.empty());
    ASSERT_TRUE(history.redo());
    EXPECT_EQ(history.record().loops.front().from, 1001U);
    EXPECT_EQ(history.record().markers.size(), 1U);
}

TEST(PracticeEdits, AreRefusedAsAWholeIfOneIsWrong)
{
    PracticeHistory history;
    const PracticeLoop good = loopAt(1000);
    PracticeLoop empty = loopAt(1000);
    empty.to = empty.from;
    PracticeLoop far = loopAt(lastSongPlace);
    for (const PracticeEdit &wrong :
         {PracticeEdit(PutLoop{empty}), PracticeEdit(PutLoop{far}),
          PracticeEdit(RemoveLoop{good.id + 1000}), PracticeEdit(RemoveMarker{good.id}),
          PracticeEdit(PutMarker{markerAt(lastSongPlace + 1)})}) {
        EXPECT_FALSE(history.apply({PutLoop{good}, wrong}));
        EXPECT_TRUE(history.record().loops.empty());
        EXPECT_FALSE(history.canUndo());
    }
}

TEST(PracticeEdits, KeepTheLimits)
{
    PracticeHistory history;
    PracticeEdits edits;
    for (std::size_t i = 0; i < PracticeLimits::loops; ++i)
        edits.push_back(PutLoop{loopAt(i)});
    for (std::size_t i = 0; i < PracticeLimits::markers; ++i)
        edits.push_back(PutMarker{markerAt(i)});
    ASSERT_TRUE(history.apply(edits));
    EXPECT_FALSE(history.apply({PutLoop{loopAt(7)}}));
    EXPECT_FALSE(history.apply({PutMarker{markerAt(7)}}));
    EXPECT_EQ(history.record().loops.size(), PracticeLimits::loops);
    EXPECT_EQ(history.record().markers.size(), PracticeLimits::markers);
    ASSERT_TRUE(history.apply({PutMarker{[&] {
        PracticeMarker marker = history.record().markers.front();
        marker.name = QString(100000, u'x');
        return marker;
    }()}}));
    EXPECT_EQ(history.record().markers.front().name.size(), PracticeLimits::nameLength);
    PracticeEdits notes;
    for (PracticeLoop loop : history.record().loops) {
        loop.note = QString(1000, u'\u4e16');
        notes.push_back(PutLoop{loop});
    }
    EXPECT_FALSE(history.apply(notes)) << "the file would be too large";
    EXPECT_TRUE(history.record().loops.front().note.isEmpty());
}

TEST(PracticeHistory, UndoesAndRedoesEveryStepTo100)
{
    PracticeHistory history;
    std::vector<QByteArray> states{practiceText(history.record())};
    PracticeLoop last;
    for (int i = 0; i < 120; ++i) {
        const auto place = static_cast<std::uint64_t>(200 - i) * 100;
        if (i % 3 == 0) {
            last = loopAt(place);
            ASSERT_TRUE(history.apply({PutLoop{last}, PutMarker{markerAt(place)}}));
        } else if (i % 3 == 1) {
            last.name = u"changed"_s;
            last.from -= 10;
            ASSERT_TRUE(history.apply({PutLoop{last}}));
        } else {
            ASSERT_TRUE(history.apply({RemoveLoop{last.id}}));
        }
        states.push_back(practiceText(history.record()));
    }
    for (std::size_t i = 0; i < PracticeHistory::steps; ++i) {
        EXPECT_EQ(practiceText(history.record()), states[120 - i]);
        ASSERT_TRUE(history.undo());
    }
    EXPECT_EQ(practiceText(history.record()), states[20]);
    EXPECT_FALSE(history.undo());
    for (std::size_t i = 0; i < PracticeHistory::steps; ++i)
        ASSERT_TRUE(history.redo());
    EXPECT_FALSE(history.redo());
    EXPECT_EQ(practiceText(history.record()), states[120]);
}

TEST(PracticeHistory, ForgetsWhatWasUndoneAfterANewStep)
{
    PracticeHistory history;
    ASSERT_TRUE(history.apply({PutLoop{loopAt(1)}}));
    ASSERT_TRUE(history.undo());
    EXPECT_TRUE(history.canRedo());
    ASSERT_TRUE(history.apply({PutLoop{loopAt(2)}}));
    EXPECT_FALSE(history.canRedo());
}

TEST(PracticeHistory, TakesNoStepForAnEditThatChangesNothing)
{
    const PracticeLoop loop = loopAt(1);
    PracticeRecord record;
    record.loops = {loop};
    PracticeHistory history(record);
    ASSERT_TRUE(history.apply({PutLoop{loop}}));
    EXPECT_FALSE(history.canUndo());
}

TEST(PracticeMerging, AddsWhatIsNotThereYet)
{
    PracticeRecord mine;
    mine.loops = {loopAt(10000, u"A"_s)};
    mine.markers = {markerAt(500, u"Verse"_s)};
    PracticeRecord theirs;
    theirs.loops = {loopAt(10881, u"A"_s), loopAt(10882, u"A"_s), loopAt(10000, u"B"_s)};
    theirs.markers = {markerAt(600, u"Verse"_s), markerAt(500, u"Chorus"_s)};
    PracticeHistory history(mine);
    ASSERT_TRUE(history.apply(editsThatMerge(mine, theirs)));
    EXPECT_EQ(history.record().loops.size(), 3U);
    EXPECT_EQ(history.record().markers.size(), 2U);
    ASSERT_TRUE(history.undo());
    EXPECT_EQ(practiceText(history.record()), practiceText(mine));
}

TEST(PracticeMerging, StopsAtTheLimits)
{
    PracticeRecord mine;
    for (std::size_t i = 0; i < PracticeLimits::loops - 1; ++i)
        mine.loops.push_back(loopAt(i));
    PracticeRecord theirs;
    theirs.loops = {loopAt(1, u"x"_s), loopAt(2, u"y"_s)};
    PracticeHistory history(mine);
    ASSERT_TRUE(history.apply(editsThatMerge(mine, theirs)));
    EXPECT_EQ(history.record().loops.size(), PracticeLimits::loops);
}

TEST(PracticeEdits, OfTheBeatsAreUndoneAndRedone)
{
    const BeatGrid first({{.frame = 0}, {.frame = 88'200, .bar = 2}});
    const BeatGrid second({{.frame = 100}, {.frame = 88'300, .bar = 2}});
    PracticeHistory history;
    ASSERT_TRUE(history.apply({PutBeats{first}}));
    ASSERT_TRUE(history.apply({PutBeats{second}}));
    ASSERT_TRUE(history.apply({PutBeats{second}})); // no step
    ASSERT_TRUE(history.undo());
    EXPECT_EQ(history.record().beats.grid, first);
    ASSERT_TRUE(history.undo());
    EXPECT_TRUE(history.record().beats.grid.isEmpty());
    EXPECT_FALSE(history.canUndo());
    ASSERT_TRUE(history.redo());
    ASSERT_TRUE(history.redo());
    EXPECT_EQ(history.record().beats.grid, second);
}

TEST(PracticeEdits, OfTheBeatsJoinOneStep)
{
    PracticeHistory history;
    for (std::uint64_t i = 1; i <= 50; ++i)
        ASSERT_TRUE(history.apply({PutBeats{BeatGrid({{.frame = i}, {.frame = 88'200, .bar = 2}})}},
                                  i == 1 ? PracticeStep::New : PracticeStep::JoinsLast));
    ASSERT_TRUE(history.undo());
    EXPECT_TRUE(history.record().beats.grid.isEmpty());
    ASSERT_TRUE(history.redo());
    EXPECT_EQ(history.record().beats.grid.anchors().front().frame, 50U);
}

TEST(PracticeEdits, MergeTheBeatsOnlyIfThereAreNone)
{
    PracticeRecord record;
    PracticeRecord other;
    EXPECT_TRUE(editsThatMerge(record, other).empty());
    other.beats.grid = BeatGrid({{.frame = 0}, {.frame = 88'200, .bar = 2}});
    const PracticeEdits edits = editsThatMerge(record, other);
    ASSERT_EQ(edits.size(), 1U);
    ASSERT_TRUE(applyEdits(record, edits));
    EXPECT_EQ(record.beats.grid, other.beats.grid);
    EXPECT_TRUE(editsThatMerge(record, other).empty());
    record.beats.grid = BeatGrid({{.frame = 50'000}, {.frame = 188'200, .bar = 2}});
    EXPECT_TRUE(editsThatMerge(record, other).empty());
}

} // namespace
