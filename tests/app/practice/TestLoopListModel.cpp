#include "StoreFixture.h"
#include "app/practice/LoopListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheLoopRows : public testing::Test, protected StoreFixture {
protected:
    QString shown(int row, int column, int role = Qt::DisplayRole) const
    {
        return model.index(row, column).data(role).toString();
    }
    QStringList names() const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.append(shown(row, LoopListModel::Name));
        return texts;
    }

    LoopListModel model{&store};
};

TEST_F(TheLoopRows, KeepTheRulesOfItemModelsWhateverTheRecordBecomes)
{
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId b = addLoop(u"b"_s, 3.0, 4.0);
    const PracticeId m = addMarker(u"m"_s, 2.5);
    change(a, [](PracticeLoop &loop) { loop.from = frames(5.0), loop.to = frames(6.0); });
    store.apply({RemoveLoop{b}, RemoveMarker{m}, PutLoop{{.from = 0, .to = 10}},
                 PutMarker{{.at = frames(5.5)}}});
    store.undo();
    store.redo();
    model.setCalledUp(a);
    model.setSongFrames(frames(3.0));
    store.closeSong();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(TheLoopRows, ShowTheBestSpeedsOnceThereIsOne)
{
    const PracticeId a = addLoop(u"a"_s, 1.0, 2.0);
    addLoop(u"b"_s, 3.0, 4.0);
    addMarker(u"m"_s, 5.0);
    std::optional<double> reached;
    model.setBestSpeed(
        [&](const PracticeLoop &loop) { return loop.id == a ? reached : std::nullopt; });
    QSignalSpy columnChanged(&model, &LoopListModel::hasBestSpeedsChanged);
    EXPECT_FALSE(model.hasBestSpeeds());
    EXPECT_EQ(shown(0, LoopListModel::Best), QString());
    reached = 79.6;
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.showBestSpeeds();
    EXPECT_TRUE(model.hasBestSpeeds());
    EXPECT_EQ(columnChanged.size(), 1);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(shown(0, LoopListModel::Best), u"★80"_s);
    EXPECT_EQ(shown(0, LoopListModel::Best, Qt::AccessibleTextRole), u"Best speed: 80 %"_s);
    EXPECT_EQ(shown(1, LoopListModel::Best), QString());
    EXPECT_EQ(shown(2, LoopListModel::Best), QString());
    ASSERT_TRUE(store.apply({RemoveLoop{a}}));
    EXPECT_FALSE(model.hasBestSpeeds()) << "the column goes with its last speed";
}

TEST_F(TheLoopRows, AreInTheOrderOfTheirPlacesWithMarkersBetweenTheLoops)
{
    addLoop(u"Last lick"_s, 20.0, 22.0);
    addLoop(u"Intro"_s, 1.0, 4.0);
    addMarker(u"Bridge"_s, 20.0);
    addMarker(u"End"_s, 25.0);
    addMarker(u"Verse"_s, 2.0);
    EXPECT_EQ(names(),
              (QStringList{u"Intro"_s, u"Verse"_s, u"Bridge"_s, u"Last lick"_s, u"End"_s}));
    EXPECT_EQ(shown(0, LoopListModel::Number), u"1"_s);
    EXPECT_EQ(shown(1, LoopListModel::Number), QString());
    EXPECT_EQ(shown(3, LoopListModel::Number), u"2"_s);
}

TEST_F(TheLoopRows, ShowPlacesAndTheKeptSpeed)
{
    const PracticeId loop = addLoop(u"Turnaround"_s, 12.40210, 16.73810);
    addMarker(u"Verse"_s, 66.9);
    EXPECT_EQ(shown(0, LoopListModel::Place), u"0:12.4–0:16.7"_s);
    EXPECT_EQ(shown(1, LoopListModel::Place), u"1:06.9"_s);
    EXPECT_EQ(shown(0, LoopListModel::Speed), QString());
    change(loop, [](PracticeLoop &changed) { changed.speed = 75; });
    EXPECT_EQ(shown(0, LoopListModel::Speed), u"75 %"_s);
}

TEST_F(TheLoopRows, TellAssistiveTechnologiesWhatTheyAre)
{
    const PracticeId loop = addLoop(u"Turnaround"_s, 12.5, 16.75);
    addMarker({}, 20.0);
    EXPECT_EQ(shown(0, LoopListModel::Number, Qt::AccessibleTextRole), u"Loop 1"_s);
    EXPECT_EQ(shown(0, LoopListModel::Place, Qt::AccessibleTextRole), u"0:12.500 to 0:16.750"_s);
    EXPECT_EQ(shown(1, LoopListModel::Number, Qt::AccessibleTextRole), u"Marker"_s);
    EXPECT_EQ(shown(1, LoopListModel::Name, Qt::AccessibleTextRole), u"Marker"_s);
    model.setCalledUp(loop);
    EXPECT_EQ(shown(0, LoopListModel::Number, Qt::AccessibleTextRole), u"Loop 1, called up"_s);
    model.setSongFrames(frames(13.0));
    EXPECT_EQ(shown(0, LoopListModel::Name, Qt::AccessibleDescriptionRole),
              u"Beyond the end of the song"_s);
}

TEST_F(TheLoopRows, ShowBarsWhereTheBeatsAreKnown)
{
    addLoop(u"Turnaround"_s, 12.0, 16.0);
    addMarker(u"Verse"_s, 20.5);
    addLoop(u"Ending"_s, 50.0, 55.0);
    const QSignalSpy changes(&model, &LoopListModel::dataChanged);
    // 120 beats a minute up to second 40.
    const BeatGrid grid(
        {{.frame = 0, .bar = 1, .beat = 1}, {.frame = frames(40.0), .bar = 21, .beat = 1}});
    store.apply({PutBeats{grid}});
    EXPECT_FALSE(changes.isEmpty());
    EXPECT_EQ(shown(0, LoopListModel::Place), u"7.1–9.1"_s);
    EXPECT_EQ(shown(1, LoopListModel::Place), u"11.2"_s);
    EXPECT_EQ(shown(2, LoopListModel::Place), u"0:50.0–0:55.0"_s);
    EXPECT_EQ(shown(0, LoopListModel::Place, Qt::AccessibleTextRole),
              u"7.1–9.1 (0:12.000 to 0:16.000)"_s);
    store.undo();
    EXPECT_EQ(shown(0, LoopListModel::Place), u"0:12.0–0:16.0"_s);
}

TEST_F(TheLoopRows, BeyondTheEndOfTheSongAreGray)
{
    addLoop(u"in"_s, 1.0, 3.0);
    addLoop(u"partly"_s, 2.0, 3.1);
    addMarker(u"out"_s, 4.0);
    EXPECT_FALSE(model.isBeyondSong(1));
    model.setSongFrames(frames(3.0));
    EXPECT_FALSE(model.isBeyondSong(0));
    EXPECT_TRUE(model.isBeyondSong(1));
    EXPECT_TRUE(model.isBeyondSong(2));
    const auto colorOf = [&](int row) {
        return model.index(row, LoopListModel::Place).data(Qt::ForegroundRole);
    };
    EXPECT_NE(colorOf(0), colorOf(1));
    EXPECT_EQ(colorOf(1), colorOf(2));
}

TEST_F(TheLoopRows, SpeakOfNamesAndNotesAsPlainText)
{
    const PracticeId loop = addLoop(u"<b>x</b>"_s, 1.0, 2.0);
    change(loop, [](PracticeLoop &changed) { changed.note = u"a<img src='x'>\nb"_s; });
    const QString tip = shown(0, LoopListModel::Name, Qt::ToolTipRole);
    EXPECT_TRUE(tip.contains(u"&lt;b&gt;x&lt;/b&gt;"_s)) << tip.toStdString();
    EXPECT_TRUE(tip.contains(u"a&lt;img"_s)) << tip.toStdString();
    EXPECT_FALSE(tip.contains(u"<b>"_s) || tip.contains(u"<img"_s));
}

TEST_F(TheLoopRows, AChangeTouchesOnlyTheRowsThatItConcerns)
{
    for (int i = 0; i < 500; ++i)
        addMarker({}, 0.1 * i);
    const PracticeId loop = addLoop(u"a"_s, 10.05, 11.0);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QSignalSpy moved(&model, &QAbstractItemModel::layoutChanged);
    change(loop, [](PracticeLoop &other) { other.colour = 3; });
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed.first().at(0).toModelIndex().row(), model.rowOf(loop));
    EXPECT_EQ(changed.first().at(1).toModelIndex().row(), model.rowOf(loop));
    addMarker({}, 10.06);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(changed.size(), 1);
    change(loop, [](PracticeLoop &other) { other.from = frames(9.05); });
    EXPECT_EQ(moved.size(), 1);
    EXPECT_EQ(inserted.size(), 1);
    EXPECT_EQ(removed.size(), 0);
    EXPECT_LE(changed.size(), 2);
}

TEST_F(TheLoopRows, AreRenamedInTheStore)
{
    const PracticeId loop = addLoop(u"a"_s, 1.0, 2.0);
    const PracticeId marker = addMarker(u"m"_s, 3.0);
    EXPECT_TRUE(model.index(0, LoopListModel::Name).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model.setData(model.index(0, LoopListModel::Name), u"b"_s));
    EXPECT_TRUE(model.setData(model.index(1, LoopListModel::Name), u"n"_s));
    EXPECT_EQ(store.record().loop(loop)->name, u"b"_s);
    EXPECT_EQ(store.record().marker(marker)->name, u"n"_s);
    EXPECT_FALSE(model.index(0, LoopListModel::Place).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.setData(model.index(0, LoopListModel::Place), u"b"_s));
}

} // namespace
