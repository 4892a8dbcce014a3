#include "library/TrackTableModel.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TrackRecordList records(const QStringList &titles)
{
    TrackRecordList list;
    for (const QString &title : titles) {
        list.push_back(std::make_shared<TrackRecord>());
        list.back()->title = title;
        list.back()->order = static_cast<int>(list.size());
        list.back()->inode = QString::number(100 + list.size());
    }
    return list;
}

QStringList titles(const TrackRecordList &list)
{
    QStringList made;
    for (const TrackRecordRef &record : list)
        made.append(record->title.value_or(QString()));
    return made;
}

QVariant shown(const TrackTableModel &model, int row, int column, int role = Qt::DisplayRole)
{
    return model.data(model.index(row, column), role);
}

} // namespace

TEST(TrackTableModel, KeepsTheRulesOfItemModels)
{
    TrackTableModel model;
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setContent(records({u"b"_s, u"a"_s, u"c"_s, u"ab"_s}));
    model.setSearchText(u"a"_s);
    model.sortContent({{u"title"_s, true}});
    model.updateIsPlaying(u"102"_s);
    model.setSearchText(u"ab"_s);
    model.setSearchText({});
    model.sortContent({{u"title"_s, false}});
    model.setContent({});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(TrackTableModel, NamesItsColumnsAfterRecordKeys)
{
    EXPECT_EQ(TrackTableModel::columnWithIdentifier(u"isPlaying"_s), TrackTableModel::IsPlaying);
    EXPECT_EQ(TrackTableModel::columnWithIdentifier(u"title"_s), TrackTableModel::Title);
    EXPECT_EQ(TrackTableModel::columnWithIdentifier(u"durationSeconds"_s),
              TrackTableModel::DurationSeconds);
    EXPECT_EQ(TrackTableModel::columnWithIdentifier(u"order"_s), -1);
    for (int column = 0; column < TrackTableModel::ColumnCount; ++column)
        EXPECT_EQ(TrackTableModel::columnWithIdentifier(TrackTableModel::columnIdentifier(column)),
                  column);
}

TEST(TrackTableModel, ShowsARecord)
{
    TrackTableModel model;
    TrackRecordList list = records({u"T"_s});
    list[0]->artist = u"A"_s;
    list[0]->album = u"B"_s;
    list[0]->durationSeconds = u"65.9"_s;
    list[0]->hasSettings = true;
    model.setContent(list);
    EXPECT_EQ(shown(model, 0, TrackTableModel::Title), u"T"_s);
    EXPECT_EQ(shown(model, 0, TrackTableModel::Artist), u"A"_s);
    EXPECT_EQ(shown(model, 0, TrackTableModel::Album), u"B"_s);
    EXPECT_EQ(shown(model, 0, TrackTableModel::DurationSeconds), u"1:05"_s);
    EXPECT_EQ(shown(model, 0, TrackTableModel::IsPlaying, TrackTableModel::ImageNameRole), u""_s);
    EXPECT_EQ(shown(model, 0, TrackTableModel::HasSettings, TrackTableModel::ImageNameRole),
              u"HasSettings"_s);
    EXPECT_FALSE(shown(model, 0, TrackTableModel::Title, TrackTableModel::ImageNameRole).isValid());
}

TEST(TrackTableModel, ShowsAMissingTitleAsNothing)
{
    TrackTableModel model;
    TrackRecordList list = records({u"T"_s});
    list[0]->title.reset();
    model.setContent(list);
    EXPECT_EQ(shown(model, 0, TrackTableModel::Title).toString(), QString());
    EXPECT_EQ(shown(model, 0, TrackTableModel::DurationSeconds).toString(), QString());
}

TEST(TrackTableModel, FiltersInTheContentsOrder)
{
    TrackTableModel model;
    model.setContent(records({u"xb"_s, u"xa"_s, u"y"_s, u"xc"_s}));
    model.sortContent({{u"title"_s, false}});
    model.setSearchText(u"x"_s);
    EXPECT_EQ(titles(model.arrangedObjects()), (QStringList{u"xc"_s, u"xb"_s, u"xa"_s}));
    EXPECT_EQ(titles(model.content()), (QStringList{u"y"_s, u"xc"_s, u"xb"_s, u"xa"_s}));
    model.sortContent({{u"title"_s, true}});
    EXPECT_EQ(titles(model.arrangedObjects()), (QStringList{u"xa"_s, u"xb"_s, u"xc"_s}));
}

TEST(TrackTableModel, GivesTheFirstDescriptorTheHighestPriority)
{
    TrackTableModel model;
    TrackRecordList list = records({u"b"_s, u"a"_s, u"b"_s, u"a"_s});
    model.setContent(list);
    model.sortContent({{u"title"_s, true}, {u"order"_s, false}});
    EXPECT_EQ(model.content(), (TrackRecordList{list[3], list[1], list[2], list[0]}));
}

TEST(TrackTableModel, SortsByTheCurrentFlags)
{
    TrackTableModel model;
    const TrackRecordList list = records({u"a"_s, u"b"_s, u"c"_s});
    model.setContent(list);
    model.updateIsPlaying(list[1]->inode);
    model.sortContent({{u"isPlaying"_s, false}});
    EXPECT_EQ(model.trackAtRow(0), list[1]);
    model.updateIsPlaying(list[2]->inode);
    model.sortContent({{u"isPlaying"_s, false}});
    EXPECT_EQ(model.trackAtRow(0), list[2]);
}

TEST(TrackTableModel, MovesPersistentIndexesWithTheirRecords)
{
    TrackTableModel model;
    model.setContent(records({u"b"_s, u"c"_s, u"a"_s}));
    const QPersistentModelIndex index = model.index(1, TrackTableModel::Album);
    model.sortContent({{u"title"_s, true}});
    EXPECT_EQ(index.row(), 2);
    EXPECT_EQ(index.column(), TrackTableModel::Album);
}

TEST(TrackTableModel, MarksEveryRowOfThePlayingSong)
{
    TrackTableModel model;
    TrackRecordList list = records({u"a"_s, u"b"_s, u"c"_s});
    list[2]->inode = list[1]->inode;
    model.setContent(list);
    model.updateIsPlaying(list[1]->inode);
    EXPECT_FALSE(list[0]->isPlaying);
    EXPECT_TRUE(list[1]->isPlaying);
    EXPECT_TRUE(list[2]->isPlaying);
    EXPECT_EQ(model.firstPlayingRow(), 1);
    EXPECT_EQ(shown(model, 1, TrackTableModel::IsPlaying, TrackTableModel::ImageNameRole),
              u"IsPlaying"_s);
    model.updateIsPlaying(std::nullopt);
    EXPECT_FALSE(list[1]->isPlaying);
    EXPECT_EQ(model.firstPlayingRow(), -1);
}

TEST(TrackTableModel, DoesNotChangeTheFlagsOfHiddenRecords)
{
    TrackTableModel model;
    const TrackRecordList list = records({u"a"_s, u"b"_s});
    model.setContent(list);
    model.updateIsPlaying(list[0]->inode);
    model.setSearchText(u"b"_s);
    EXPECT_EQ(model.firstPlayingRow(), -1);
    model.updateIsPlaying(list[1]->inode);
    EXPECT_TRUE(list[0]->isPlaying);
    EXPECT_TRUE(list[1]->isPlaying);
    model.setSearchText({});
    model.updateIsPlaying(list[1]->inode);
    EXPECT_FALSE(list[0]->isPlaying);
}

TEST(TrackTableModel, HasHeaderTitlesThatCanBeChanged)
{
    TrackTableModel model;
    EXPECT_EQ(model.headerData(TrackTableModel::Title, Qt::Horizontal), u"Title"_s);
    EXPECT_EQ(model.headerData(TrackTableModel::DurationSeconds, Qt::Horizontal), u"Time"_s);
    EXPECT_EQ(model.headerData(TrackTableModel::IsPlaying, Qt::Horizontal).toString(), QString());
    model.setHeaderTitle(TrackTableModel::Title, u"Title  ▲"_s);
    EXPECT_EQ(model.headerData(TrackTableModel::Title, Qt::Horizontal), u"Title  ▲"_s);
}
