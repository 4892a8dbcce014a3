#include "library/TrackSearch.h"

#include <gtest/gtest.h>

#include <random>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

TrackRecordRef record(const std::optional<QString> &title, const QString &artist = {},
                      const QString &album = {})
{
    auto made = std::make_shared<TrackRecord>();
    made->title = title;
    made->artist = artist;
    made->album = album;
    return made;
}

std::vector<std::size_t> found(TrackSearch &search, const QString &text,
                               const TrackRecordList &records)
{
    search.setText(text, records);
    std::vector<std::size_t> indices;
    for (std::size_t i = 0; i < records.size(); ++i) {
        if (!search.isFiltering() || search.passes(i))
            indices.push_back(i);
    }
    return indices;
}

std::vector<std::size_t> foundAfresh(const QString &text, const TrackRecordList &records)
{
    TrackSearch search;
    search.setRecords(records);
    return found(search, text, records);
}

using Indices = std::vector<std::size_t>;

} // namespace

TEST(FoldedText, IgnoresCaseAndDiacritics)
{
    EXPECT_EQ(foldedText(u"Café Society"_s), "cafe society");
    EXPECT_EQ(foldedText(u"CAFE\u0301"_s), "cafe");
    EXPECT_EQ(foldedText(u"MOTÖRHEAD"_s), "motorhead");
    EXPECT_EQ(foldedText(u"Ørsted"_s), "orsted");
    EXPECT_EQ(foldedText(u"STRASSE"_s), foldedText(u"Straße"_s));
    EXPECT_EQ(foldedText(u"İstanbul"_s), "istanbul");
    EXPECT_EQ(foldedText(u"ΑΘΗΝΑ"_s), foldedText(u"αθηνά"_s));
}

TEST(FoldedText, KeepsSyllablesWhole)
{
    EXPECT_FALSE(foldedText(u"각"_s).contains(foldedText(u"가"_s)));
}

TEST(TrackSearch, FindsTextInTitleArtistOrAlbum)
{
    const TrackRecordList records{record(u"Café Society"_s), record(u"x"_s, u"CAFE"_s),
                                  record(u"x"_s, {}, u"the cafés"_s), record(u"x"_s)};
    EXPECT_EQ(foundAfresh(u"cafe"_s, records), (Indices{0, 1, 2}));
    EXPECT_EQ(foundAfresh(u"CAFÉ"_s, records), (Indices{0, 1, 2}));
}

TEST(TrackSearch, TreatsABlankAsText)
{
    const TrackRecordList records{record(u"One Two"_s), record(u"One"_s),
                                  record(u"Three"_s, u"Four Five"_s)};
    EXPECT_EQ(foundAfresh(u" "_s, records), (Indices{0, 2}));
    EXPECT_EQ(foundAfresh(u""_s, records), (Indices{0, 1, 2}));
}

TEST(TrackSearch, DoesNotMatchAcrossFieldsOrRecords)
{
    const TrackRecordList records{record(u"ab"_s, u"cd"_s, u"ef"_s), record(u"gh"_s)};
    for (const QString &text : {u"bc"_s, u"de"_s, u"fg"_s})
        EXPECT_TRUE(foundAfresh(text, records).empty());
}

TEST(TrackSearch, SkipsAMissingTitle)
{
    const TrackRecordList records{record(std::nullopt), record(std::nullopt, u"abc"_s)};
    EXPECT_EQ(foundAfresh(u"b"_s, records), (Indices{1}));
}

TEST(TrackSearch, SearchesANewListForTheSameText)
{
    const TrackRecordList before{record(u"abc"_s)};
    const TrackRecordList after{record(u"xyz"_s), record(u"cab"_s), record(u"b"_s)};
    TrackSearch search;
    search.setRecords(before);
    search.setText(u"ab"_s, before);
    search.setRecords(after);
    EXPECT_FALSE(search.passes(0));
    EXPECT_TRUE(search.passes(1));
    EXPECT_FALSE(search.passes(2));
}

TEST(TrackSearch, WorksOnAnEmptyList)
{
    EXPECT_TRUE(foundAfresh(u"a"_s, {}).empty());
}

TEST(TrackSearch, FindsTheSameWhetherTypedLetterByLetterOrAtOnce)
{
    std::mt19937 random(7); // NOLINT: every run uses the same texts.
    const QString alphabet = u"abcÄéØ 가xß"_s;
    const auto text = [&](std::size_t longest) {
        QString made;
        for (std::size_t length = random() % (longest + 1); length > 0; --length)
            made.append(alphabet[static_cast<qsizetype>(
                random() % static_cast<std::size_t>(alphabet.size()))]);
        return made;
    };
    TrackRecordList records;
    for (int i = 0; i < 300; ++i) {
        records.push_back(
            record(i % 17 == 0 ? std::nullopt : std::optional(text(8)), text(4), text(4)));
    }
    TrackSearch search;
    search.setRecords(records);
    QString typed;
    for (int step = 0; step < 400; ++step) {
        if (typed.size() > 3 || random() % 4 == 0)
            typed.chop(static_cast<qsizetype>(random() % 4));
        else if (random() % 5 == 0)
            typed.prepend(text(1));
        else
            typed.append(text(1));
        ASSERT_EQ(found(search, typed, records), foundAfresh(typed, records))
            << typed.toStdString();
    }
}
