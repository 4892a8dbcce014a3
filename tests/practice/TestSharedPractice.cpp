#include "practice/SharedPractice.h"

#include "practice/AnchorText.h"
#include "practice/KnownAnchors.h"
#include "practice/LabelTrack.h"
#include "practice/PracticeEdits.h"
#include "practice/PracticeFixture.h"
#include "practice/SongTime.h"
#include "support/pieces/BeatPieces.h"

#include <QJsonArray>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using Problem = SharedPractice::Problem;

namespace {

PracticeRecord someRecord()
{
    PracticeRecord record;
    record.loops = {{.name = u"a"_s, .from = 1000, .to = 50'000},
                    {.name = u"b"_s, .from = 100'000, .to = 200'000}};
    record.markers = {{.at = 2000, .name = u"m"_s}, {.at = 90'000, .name = u"n"_s}};
    record.beats.grid = BeatGrid(
        {{.frame = 10'000, .bar = 1}, {.frame = 98'200, .bar = 2}, {.frame = 274'600, .bar = 4}});
    return record;
}

SongAnchors someAnchors()
{
    SongAnchors anchors(anchorsOfSong);
    std::uint32_t word = 1;
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        anchors[i].at = 512 * (i + 1);
        for (std::size_t n = 0; n < SongAnchor::steps; ++n)
            anchors[i].words.push_back(word = word * 1664525U + 1013904223U);
    }
    return anchors;
}

TEST(AnchorText, IsReadAgainExactly)
{
    PracticeRecord record = someRecord();
    record.song.anchors = someAnchors();
    const auto reading = readPractice(practiceText(record));
    ASSERT_TRUE(reading && reading->isWhole);
    EXPECT_EQ(reading->record.song.anchors, record.song.anchors);
    EXPECT_EQ(practiceText(reading->record), practiceText(record));
}

TEST(AnchorText, OfAnotherKindStaysAsItIs)
{
    const QByteArray text = R"({"lyrabox practice": 1, "song": {"anchors": ["0:04.00000 x", 5]}})";
    auto reading = readPractice(text);
    ASSERT_TRUE(reading && reading->isWhole);
    EXPECT_TRUE(reading->record.song.anchors.empty());
    EXPECT_TRUE(practiceText(reading->record).contains("0:04.00000 x"));
    reading->record.song.anchors = someAnchors();
    const QByteArray written = practiceText(reading->record);
    EXPECT_FALSE(written.contains("0:04.00000 x")) << "there are better ones now";
    EXPECT_EQ(written.count("\"anchors\""), 1);
}

TEST(AnchorText, NeedsThreeInOrder)
{
    QJsonArray texts;
    for (const SongAnchor &anchor : someAnchors())
        texts.append(anchorText(anchor));
    EXPECT_EQ(anchorsOf(texts), someAnchors());
    QJsonArray backward{texts[2], texts[1], texts[0]};
    EXPECT_TRUE(anchorsOf(backward).empty());
    texts.append(texts[0]);
    EXPECT_TRUE(anchorsOf(texts).empty());
    EXPECT_TRUE(anchorsOf({}).empty());
    for (const QString &bad : {u"0:01 "_s, u"0:01 AAAA"_s, u"x"_s, QString(), u"0:01 %%%%"_s})
        EXPECT_TRUE(anchorsOf(QJsonArray{bad, texts[1], texts[2]}).empty()) << bad.toStdString();
}

TEST(SharedPractice, IsAPracticeFileOrALabelTrack)
{
    EXPECT_EQ(readShared(practiceText(someRecord())).record.loops.size(), 2U);
    EXPECT_EQ(readShared(labelTrackText(someRecord())).record.markers.size(), 2U);
}

TEST(SharedPractice, SaysWhatIsWrongWithAFile)
{
    EXPECT_EQ(readShared({}).problem, Problem::Unknown);
    EXPECT_EQ(readShared("{\"lyrabox practice\": 1, \"loops\": [{").problem, Problem::Unknown);
    EXPECT_EQ(readShared("{\"lyrabox practice\": 1}").problem, Problem::Empty);
    EXPECT_EQ(readShared("{\"lyrabox practice\": 2, \"loops\": []}").problem, Problem::Newer);
    EXPECT_EQ(readShared(QByteArray(1'000'001, ' ')).problem, Problem::TooLarge);
    EXPECT_EQ(loadShared(u"/nowhere/a.json"_s).problem, Problem::Unreadable);
    EXPECT_EQ(loadShared(u"/dev/zero"_s).problem, Problem::Unreadable);
    const SharedPractice partly =
        readShared(R"({"lyrabox practice": 1, "markers": [{"at": "0:01"}, {"at": "x"}]})");
    EXPECT_EQ(partly.problem, Problem::None);
    EXPECT_FALSE(partly.isWhole);
}

TEST(MovedPractice, HasEveryPlaceAtTheOffset)
{
    const PracticeRecord record = someRecord();
    for (const std::int64_t offset : {0L, 22'050L, -900L}) {
        const PracticeRecord moved = movedPractice(record, offset);
        const auto at = [offset](std::uint64_t place) {
            return static_cast<std::uint64_t>(static_cast<std::int64_t>(place) + offset);
        };
        ASSERT_EQ(moved.loops.size(), 2U);
        EXPECT_EQ(moved.loops[1].from, at(100'000));
        EXPECT_EQ(moved.loops[1].to, at(200'000));
        EXPECT_NE(moved.loops[1].id, record.loops[1].id);
        EXPECT_EQ(moved.markers.at(1).at, at(90'000));
        ASSERT_EQ(moved.beats.grid.anchors().size(), 3U);
        EXPECT_EQ(moved.beats.grid.anchors()[0].frame, at(10'000));
    }
}

TEST(MovedPractice, KeepsWhatLiesWithinTheSong)
{
    const PracticeRecord moved = movedPractice(someRecord(), -60'000);
    ASSERT_EQ(moved.loops.size(), 1U) << "the first one lies before the song";
    ASSERT_EQ(moved.markers.size(), 1U);
    EXPECT_EQ(moved.markers[0].at, 30'000U);
    const PracticeRecord clipped = movedPractice(someRecord(), -20'000);
    ASSERT_EQ(clipped.loops.size(), 2U);
    EXPECT_EQ(clipped.loops[0].from, 0U);
    EXPECT_EQ(clipped.loops[0].to, 30'000U);
}

TEST(MovedPractice, KeepsTheBeatsIfTheirFirstAnchorIsLost)
{
    PracticeRecord record = someRecord();
    record.beats.grid = BeatGrid({{.frame = 10'000, .bar = 1}, {.frame = 98'200, .bar = 2}});
    const BeatGrid &before = record.beats.grid;
    const BeatGrid after = movedPractice(record, -15'000).beats.grid;
    ASSERT_FALSE(after.isEmpty());
    EXPECT_NEAR(after.frameOf({.bar = 2, .beat = 3.0}),
                before.frameOf({.bar = 2, .beat = 3.0}) - 15'000, 2.0);
    EXPECT_EQ(after.anchors().front().beat, 2);
}

TEST(Merging, TellsWhatIsAddedKnownAndLeftOut)
{
    PracticeRecord own = someRecord();
    own.loops.pop_back();
    own.loops[0].from += 800; // 18 ms
    PracticeMerge merge = mergeOf(own, someRecord());
    EXPECT_EQ(merge.loops, 1U);
    EXPECT_EQ(merge.markers, 0U);
    EXPECT_EQ(merge.known, 3U);
    EXPECT_EQ(merge.left, 0U);
    own.markers.clear();
    for (std::size_t i = 0; i < PracticeLimits::markers - 1; ++i)
        own.markers.push_back({.at = 5 * 44100, .name = u"x"_s});
    merge = mergeOf(own, someRecord());
    EXPECT_EQ(merge.markers, 1U);
    EXPECT_EQ(merge.left, 1U);
}

TEST(PracticeIndex, RemembersWhichSongsAreNoCopies)
{
    PracticeIndex index;
    EXPECT_TRUE(index.refuse(u"song"_s, u"other"_s));
    EXPECT_FALSE(index.refuse(u"song"_s, u"other"_s)) << "known";
    EXPECT_FALSE(index.refuse(QString(), u"other"_s));
    index.refuse(u"song"_s, u"third"_s);
    index = PracticeIndex::fromText(index.text());
    EXPECT_TRUE(index.isRefused(u"song"_s, u"other"_s));
    EXPECT_TRUE(index.isRefused(u"song"_s, u"third"_s));
    EXPECT_FALSE(index.isRefused(u"other"_s, u"song"_s));
    EXPECT_EQ(index.refusedCopies(u"song"_s), (std::set{u"other"_s, u"third"_s}));
    EXPECT_TRUE(index.refusedCopies(u"third"_s).empty());
}

class Copies : public PracticeFixture {
protected:
    const BeatPiece piece = makePiece({.name = "band", .slots = 4, .seconds = 25.0}, 3);
    SongPrint print{{piece.left, piece.right, 44100.0}};
    const SongAnchors anchors = songAnchors(print);
    KnownAnchors known;

    void write(const QString &name, const PracticeRecord &record) const
    {
        ASSERT_TRUE(QDir().mkpath(practice()));
        written(inPractice(name), practiceText(record));
    }

    PracticeRecord copyOf(const QString &audio) const
    {
        PracticeRecord record = someRecord();
        record.song.audio = audio;
        record.song.anchors = anchors;
        for (SongAnchor &anchor : record.song.anchors)
            anchor.at += 22'050;
        return record;
    }

    std::optional<KnownCopy> found(const QStringList &refused = {})
    {
        return known.find(practice(), print,
                          [&](const QString &name) { return !refused.contains(name); }, {});
    }
};

TEST_F(Copies, AreFoundAmongThePracticeFilesWithTheirOffset)
{
    EXPECT_FALSE(found()) << "there is no folder";
    write(u"Other.json"_s, someRecord());
    EXPECT_FALSE(found());
    write(u"Copy.json"_s, copyOf(u"aa"_s));
    const auto copy = found();
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->file, u"Copy.json"_s);
    EXPECT_EQ(copy->name, u"aa"_s);
    EXPECT_NEAR(static_cast<double>(copy->offset), -22'050.0, 529.0);
    EXPECT_FALSE(found({u"aa"_s})) << "refused";
}

TEST_F(Copies, AreReadAgainWhenTheirFilesChange)
{
    write(u"Copy.json"_s, copyOf(u"aa"_s));
    ASSERT_TRUE(found());
    PracticeRecord emptied = copyOf(u"aa"_s);
    emptied.loops.clear();
    emptied.markers.clear();
    emptied.beats.grid = {};
    write(u"Copy.json"_s, emptied);
    EXPECT_FALSE(found()) << "there is nothing to take over";
    write(u"Copy.json"_s, copyOf({}));
    ASSERT_TRUE(found());
    EXPECT_EQ(found()->name, u"Copy.json"_s) << "without a hash";
    ASSERT_TRUE(QFile::remove(inPractice(u"Copy.json"_s)));
    EXPECT_FALSE(found());
}

TEST_F(Copies, ThatTheUserRefusedStayRefusedInTheNextRun)
{
    const QString path = song(u"a.mp3"_s);
    keepLoop(path, u"A"_s);
    const QString other = song(u"b.mp3"_s, "tags", "other");
    {
        const auto store = makeStore();
        store->openSong(of(other));
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
        EXPECT_FALSE(store->refusedCopies().contains(u"aa"_s));
        store->refuse(u"aa"_s);
        EXPECT_TRUE(store->refusedCopies().contains(u"aa"_s));
    }
    const QString moved = song(u"c.mp3"_s, "tags", "other");
    const auto store = makeStore();
    store->openSong(of(moved));
    ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
    EXPECT_TRUE(store->refusedCopies().contains(u"aa"_s));
    store->openSong(of(path));
    EXPECT_FALSE(store->refusedCopies().contains(u"aa"_s));
}

TEST_F(Copies, AnchorsAreWrittenWithTheFirstEditAndStayWhenTheSongIsRecognised)
{
    const QString path = song(u"a.mp3"_s);
    {
        const auto store = makeStore();
        store->openSong(of(path));
        store->setAnchors(anchors);
        store->closeSong();
        EXPECT_TRUE(names().isEmpty()) << "listening alone makes no file";
    }
    keepLoop(path, u"A"_s);
    {
        const auto store = makeStore();
        store->openSong(of(song(u"b.mp3"_s)));
        store->setAnchors(anchors);
        ASSERT_TRUE(eventually([&] { return !store->isIdentifying(); }));
        EXPECT_EQ(store->record().song.anchors, anchors);
        EXPECT_TRUE(store->hasFile());
        store->setAnchors(anchors);
        store->save();
    }
    const auto store = makeStore();
    store->openSong(of(path));
    EXPECT_EQ(store->describedRecord().song.title, u"Corner Shop Blues"_s);
    EXPECT_EQ(store->songName(), u"Corner Shop Blues"_s);
}

} // namespace
