#include "library/TrackSorting.h"

#include "platform/foundation/Machine.h"
#include "platform/foundation/TextOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TrackRecordList titled(const std::vector<std::optional<QString>> &titles)
{
    TrackRecordList records;
    for (const std::optional<QString> &title : titles) {
        records.push_back(std::make_shared<TrackRecord>());
        records.back()->title = title;
    }
    return records;
}

std::vector<std::uint32_t> sorted(const TrackRecordList &records, const QString &key,
                                  bool ascending)
{
    std::vector<std::uint32_t> order(records.size());
    std::iota(order.begin(), order.end(), 0U);
    sortByRank(order, sortRanks(records, key), ascending);
    return order;
}

QStringList sortedTitles(const TrackRecordList &records, bool ascending = true)
{
    QStringList titles;
    for (const std::uint32_t index : sorted(records, u"title"_s, ascending))
        titles.append(records[index]->title.value_or(u"(none)"_s));
    return titles;
}

using Order = std::vector<std::uint32_t>;

} // namespace

TEST(TrackSorting, ComparesTextAsPeopleExpect)
{
    const auto records =
        titled({u"zebra"_s, u"Ähre"_s, u"apple"_s, u"Banana"_s, u"Étude"_s, u"eta"_s, u"etz"_s});
    EXPECT_EQ(sortedTitles(records), (QStringList{u"Ähre"_s, u"apple"_s, u"Banana"_s, u"eta"_s,
                                                  u"Étude"_s, u"etz"_s, u"zebra"_s}));
}

TEST(TrackSorting, ComparesNumbersWithinTextByValue)
{
    EXPECT_EQ(sortedTitles(titled({u"Track 10"_s, u"Track 9"_s, u"track 1"_s})),
              (QStringList{u"track 1"_s, u"Track 9"_s, u"Track 10"_s}));
}

TEST(TrackSorting, PutsAMissingValueFirst)
{
    const auto records = titled({u"b"_s, std::nullopt, u""_s, u"a"_s});
    EXPECT_EQ(sortedTitles(records), (QStringList{u"(none)"_s, u""_s, u"a"_s, u"b"_s}));
    EXPECT_EQ(sortedTitles(records, false), (QStringList{u"b"_s, u"a"_s, u""_s, u"(none)"_s}));
}

TEST(TrackSorting, IsStableInBothDirections)
{
    const auto records = titled({u"b"_s, u"Same"_s, u"SAME"_s, u"a"_s, u"same"_s});
    EXPECT_EQ(sorted(records, u"title"_s, true), (Order{3, 0, 1, 2, 4}));
    EXPECT_EQ(sorted(records, u"title"_s, false), (Order{1, 2, 4, 0, 3}));
}

TEST(TrackSorting, ComparesLengthsByValueHoweverTheyAreStored)
{
    TrackRecordList records = titled({{}, {}, {}, {}, {}});
    records[0]->durationSeconds = u"100.5"_s;
    records[1]->durationSeconds = 20.0F;
    records[2]->durationSeconds = QVariant();
    records[3]->durationSeconds = 3.0;
    records[4]->durationSeconds = u"nonsense"_s;
    EXPECT_EQ(sorted(records, u"durationSeconds"_s, true), (Order{2, 4, 3, 1, 0}));
}

TEST(TrackSorting, ComparesFlagsAndPositionsAsNumbers)
{
    TrackRecordList records = titled({{}, {}, {}});
    records[0]->isPlaying = true;
    records[0]->order = 9;
    records[1]->order = 10;
    records[2]->order = 1;
    records[2]->hasSettings = true;
    EXPECT_EQ(sorted(records, u"isPlaying"_s, true), (Order{1, 2, 0}));
    EXPECT_EQ(sorted(records, u"hasSettings"_s, false), (Order{2, 0, 1}));
    EXPECT_EQ(sorted(records, u"order"_s, true), (Order{2, 0, 1}));
}

TEST(TrackSorting, KeepsTheOrderForAKeyThatNoRecordHas)
{
    EXPECT_EQ(sorted(titled({u"b"_s, u"a"_s}), u"nonsense"_s, true), (Order{0, 1}));
}

TEST(TrackSorting, AgreesWithAPlainStableSortOverTenThousandTitles)
{
    std::mt19937 random(11); // NOLINT: every run uses the same texts.
    const std::vector<QString> words{u"Blues"_s, u"blues"_s, u"Étude"_s, u"etude"_s,
                                     u"No. "_s,  u"Ünder"_s, u"水"_s,    u"-"_s};
    TrackRecordList records;
    for (int i = 0; i < 10000; ++i) {
        QString title = words[random() % words.size()] + words[random() % words.size()];
        if (random() % 2 == 0)
            title += QString::number(random() % 1000);
        records.push_back(titled({title}).front());
    }
    const QCollator collator = textCollator();
    Order expected(records.size());
    std::iota(expected.begin(), expected.end(), 0U);
    std::stable_sort(expected.begin(), expected.end(), [&](std::uint32_t a, std::uint32_t b) {
        return collator.compare(*records[a]->title, *records[b]->title) < 0;
    });
    EXPECT_EQ(sorted(records, u"title"_s, true), expected);
}

TEST(TrackSorting, SortsEvenIfNoThreadCanBeStarted)
{
    std::vector<std::optional<QString>> titles;
    for (int i = 0; i < 10000; ++i)
        titles.emplace_back(u"Song %1"_s.arg((i * 7919) % 10007));
    const TrackRecordList records = titled(titles);
    const Order usual = sorted(records, u"title"_s, true);
    limitThreads(0);
    const Order alone = sorted(records, u"title"_s, true);
    limitThreads({});
    EXPECT_EQ(alone, usual);
}
