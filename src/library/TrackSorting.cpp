#include "library/TrackSorting.h"

#include "platform/foundation/Machine.h"
#include "platform/foundation/TextOrder.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace lyrabox {

using namespace Qt::Literals::StringLiterals;

namespace {

using Ranks = std::vector<std::uint32_t>;

struct KeyedText {
    QCollatorSortKey key;
    std::uint32_t text; // Index into the distinct texts.
};

std::optional<QString> textValue(const TrackRecord &record, const QString &key)
{
    if (key == "title"_L1)
        return record.title;
    if (key == "artist"_L1)
        return record.artist;
    if (key == "album"_L1)
        return record.album;
    const QVariant value = record.value(key);
    return value.isValid() ? std::optional(value.toString()) : std::nullopt;
}

bool isNumberKey(const QString &key)
{
    return key == "durationSeconds"_L1 || key == "order"_L1 || key == "isPlaying"_L1 ||
           key == "hasSettings"_L1;
}

// NaN marks a missing value. A length that is not a number counts as missing, too.
double numericValue(const TrackRecord &record, const QString &key)
{
    if (key == "durationSeconds"_L1) {
        return record.durationSeconds.isValid() ? record.durationValue()
                                                : std::numeric_limits<double>::quiet_NaN();
    }
    return record.value(key).toDouble();
}

// Makes and sorts the sort keys of texts[first, last). Each thread needs a collator of its own.
std::vector<KeyedText> sortedKeys(const std::vector<QString> &texts, std::size_t first,
                                  std::size_t last)
{
    const QCollator collator = textCollator();
    std::vector<KeyedText> keys;
    keys.reserve(last - first);
    for (std::size_t i = first; i < last; ++i)
        keys.push_back({collator.sortKey(texts[i]), static_cast<std::uint32_t>(i)});
    std::sort(keys.begin(), keys.end(),
              [](const KeyedText &a, const KeyedText &b) { return a.key.compare(b.key) < 0; });
    return keys;
}

std::vector<KeyedText> sortedKeys(const std::vector<QString> &texts)
{
    constexpr std::size_t minTextsForThread = 4096;
    if (texts.size() < minTextsForThread || processorCount() < 2)
        return sortedKeys(texts, 0, texts.size());
    const std::size_t middle = texts.size() / 2;
    std::vector<KeyedText> front;
    std::vector<KeyedText> back;
    {
        const auto sortFront = [&] { front = sortedKeys(texts, 0, middle); };
        const std::jthread worker = startThread(sortFront);
        back = sortedKeys(texts, middle, texts.size());
        if (!worker.joinable())
            sortFront();
    }
    std::vector<KeyedText> all;
    all.reserve(texts.size());
    std::merge(std::make_move_iterator(front.begin()), std::make_move_iterator(front.end()),
               std::make_move_iterator(back.begin()), std::make_move_iterator(back.end()),
               std::back_inserter(all),
               [](const KeyedText &a, const KeyedText &b) { return a.key.compare(b.key) < 0; });
    return all;
}

// Songs share artists and albums, so each distinct text is compared once.
Ranks textRanks(const TrackRecordList &records, const QString &key)
{
    constexpr std::uint32_t missing = std::numeric_limits<std::uint32_t>::max();
    QHash<QString, std::uint32_t> known;
    std::vector<QString> texts;
    Ranks textOfRecord;
    textOfRecord.reserve(records.size());
    for (const TrackRecordRef &record : records) {
        const std::optional<QString> text = textValue(*record, key);
        if (!text) {
            textOfRecord.push_back(missing);
            continue;
        }
        const auto next = static_cast<std::uint32_t>(texts.size());
        const auto found = known.constFind(*text);
        if (found != known.constEnd()) {
            textOfRecord.push_back(*found);
            continue;
        }
        known.insert(*text, next);
        texts.push_back(*text);
        textOfRecord.push_back(next);
    }

    const std::vector<KeyedText> keys = sortedKeys(texts);
    Ranks rankOfText(texts.size());
    std::uint32_t rank = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (i == 0 || keys[i - 1].key.compare(keys[i].key) != 0)
            ++rank;
        rankOfText[keys[i].text] = rank;
    }
    Ranks ranks;
    ranks.reserve(records.size());
    for (const std::uint32_t text : textOfRecord)
        ranks.push_back(text == missing ? 0 : rankOfText[text]);
    return ranks;
}

Ranks numberRanks(const TrackRecordList &records, const QString &key)
{
    std::vector<double> values;
    values.reserve(records.size());
    for (const TrackRecordRef &record : records)
        values.push_back(numericValue(*record, key));

    std::vector<double> distinct;
    distinct.reserve(values.size());
    std::copy_if(values.begin(), values.end(), std::back_inserter(distinct),
                 [](double value) { return !std::isnan(value); });
    std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());

    Ranks ranks;
    ranks.reserve(values.size());
    for (const double value : values) {
        const auto place =
            std::lower_bound(distinct.begin(), distinct.end(), value) - distinct.begin();
        ranks.push_back(std::isnan(value) ? 0 : static_cast<std::uint32_t>(place) + 1);
    }
    return ranks;
}

} // namespace

std::vector<std::uint32_t> sortRanks(const TrackRecordList &records, const QString &key)
{
    return isNumberKey(key) ? numberRanks(records, key) : textRanks(records, key);
}

void sortByRank(std::vector<std::uint32_t> &order, const std::vector<std::uint32_t> &ranks,
                bool ascending)
{
    // Rank and position as one number: sorting these is stable, without the cost of a stable sort.
    std::vector<std::uint64_t> places(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::uint32_t rank = ascending ? ranks[order[i]] : ~ranks[order[i]];
        places[i] = (static_cast<std::uint64_t>(rank) << 32) | i;
    }
    std::sort(places.begin(), places.end());
    const std::vector<std::uint32_t> before = order;
    std::transform(places.begin(), places.end(), order.begin(), [&before](std::uint64_t place) {
        return before[static_cast<std::uint32_t>(place)];
    });
}

} // namespace lyrabox
