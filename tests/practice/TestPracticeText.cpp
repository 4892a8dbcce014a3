#include "practice/PracticeText.h"

#include "practice/SongTime.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray withLoop(const QByteArray &loop)
{
    return "{\"lyrabox practice\": 1, \"loops\": [" + loop + "]}";
}

PracticeLoop onlyLoop(const QByteArray &text)
{
    const auto reading = readPractice(text);
    EXPECT_TRUE(reading && reading->record.loops.size() == 1) << text.toStdString();
    return reading && !reading->record.loops.empty() ? reading->record.loops.front()
                                                     : PracticeLoop();
}

PracticeRecord fullRecord()
{
    PracticeRecord record;
    record.song = {.title = u"Corner Shop Blues"_s,
                   .artist = u"The \"Demo\" Band\\"_s,
                   .length = 1115780,
                   .audio = u"9f2c41d0"_s};
    record.loops = {
        {.name = u"Turnaround"_s, .from = 546933, .to = 738150, .colour = 2},
        {.name = u"Turnaround"_s,
         .from = 546934,
         .to = 738151,
         .colour = 8,
         .note = u"4th finger\nslowly \U0001f3b8"_s,
         .speed = 75,
         .pitch = -100,
         .after = AfterLoop::NextLoop,
         .passes = 4},
    };
    record.markers = {{.at = 304290, .name = u"Verse <b>&amp;</b>"_s}, {.at = 304291, .name = {}}};
    return record;
}

TEST(PracticeText, IsReadableAsInTheDocument)
{
    EXPECT_EQ(practiceText(fullRecord()).toStdString(),
              R"({"lyrabox practice": 1,
 "song": {"title": "Corner Shop Blues", "artist": "The \"Demo\" Band\\", "length": "0:25.30113", "audio": "9f2c41d0"},
 "markers": [
  {"at": "0:06.90000", "name": "Verse <b>&amp;</b>"},
  {"at": "0:06.90002"}],
 "loops": [
  {"name": "Turnaround", "from": "0:12.40211", "to": "0:16.73810", "colour": 2},
  {"name": "Turnaround", "from": "0:12.40213", "to": "0:16.73812", "colour": 8, "note": "4th finger\nslowly )"
              "\U0001f3b8"
              R"(", "speed": 75, "pitch": -100, "times": 4, "then": "next"}]}
)");
}

TEST(PracticeText, ComesBackAsItWasWritten)
{
    const QByteArray text = practiceText(fullRecord());
    const auto reading = readPractice(text);
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    EXPECT_FALSE(reading->isNewer);
    EXPECT_EQ(practiceText(reading->record), text);
    PracticeLoop loop = reading->record.loops[1];
    loop.id = 0;
    PracticeLoop expected = fullRecord().loops[1];
    expected.id = 0;
    EXPECT_EQ(loop, expected);
}

TEST(PracticeText, OfAnEmptyRecordIsRead)
{
    const auto reading = readPractice(practiceText({}));
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    EXPECT_TRUE(reading->record.loops.empty());
}

TEST(PracticeText, KeepsUnknownKeysOnEveryLevel)
{
    const QByteArray text = R"({"lyrabox practice": 1,
        "chords": {"bar": 4, "names": ["A7"]}, "beats": {"by": {"ear": true}}, "large": 9007199254740993,
        "song": {"title": "A", "anchors": ["0:04.00000 x"]},
        "markers": [{"at": "0:01.00000", "icon": {"shape": [1, 2.5, null]}}],
        "loops": [{"from": "0:01.00000", "to": "0:02.00000", "tuner": {"from": 60, "to": 100}}]})";
    const auto reading = readPractice(text);
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    QJsonObject expected = QJsonDocument::fromJson(text).object();
    QJsonArray loops = expected["loops"_L1].toArray();
    QJsonObject loop = loops[0].toObject();
    loop["colour"_L1] = 1;
    loops[0] = loop;
    expected["loops"_L1] = loops;
    EXPECT_EQ(QJsonDocument::fromJson(practiceText(reading->record)).object(), expected);
}

TEST(PracticeText, HasAnAnchorOfTheBeatsOnEachLine)
{
    PracticeRecord record;
    record.beats.grid =
        BeatGrid({{.frame = 18200, .bar = 0, .beat = 4, .beatsPerBar = 4},
                  {.frame = 560251, .bar = 7, .beat = 1, .beatsPerBar = 3, .isLost = true},
                  {.frame = 2646000, .bar = 30, .beat = 1, .beatsPerBar = 3}});
    ASSERT_EQ(record.beats.grid.anchors().size(), 3U);
    const QByteArray text = practiceText(record);
    EXPECT_EQ(text.toStdString(), R"({"lyrabox practice": 1,
 "song": {},
 "beats": {"bar": 4, "anchors": [
  "0:00.41270 0.4",
  "0:12.70410 7.1 bar 3 lost",
  "1:00.00000 30.1"]},
 "markers": [],
 "loops": []}
)");
    const auto reading = readPractice(text);
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    EXPECT_EQ(reading->record.beats.grid, record.beats.grid);
}

TEST(PracticeText, SortsTheAnchorsOfTheBeats)
{
    const auto reading = readPractice(R"({"lyrabox practice": 1, "beats": {"bar": 4, "anchors":
        ["0:20.00000 9.1", "0:02.00000 1.1", "0:10.00000 5.1 bar 3"]}})");
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    const std::vector<BeatAnchor> &anchors = reading->record.beats.grid.anchors();
    ASSERT_EQ(anchors.size(), 3U);
    EXPECT_EQ(anchors[0], (BeatAnchor{.frame = 88200, .bar = 1, .beatsPerBar = 4}));
    EXPECT_EQ(anchors[1], (BeatAnchor{.frame = 441000, .bar = 5, .beatsPerBar = 3}));
    EXPECT_EQ(anchors[2], (BeatAnchor{.frame = 882000, .bar = 9, .beatsPerBar = 3}));
}

TEST(PracticeText, LeavesOutAnchorsThatAreNoneAndSaysSo)
{
    const auto gridOf = [](const QByteArray &beats) {
        const auto reading = readPractice("{\"lyrabox practice\": 1, \"beats\": " + beats + '}');
        EXPECT_TRUE(reading && !reading->isWhole) << beats.toStdString();
        return reading ? reading->record.beats.grid : BeatGrid();
    };
    for (const QByteArray &odd :
         {QByteArray("5"), QByteArray("null"), QByteArray("\"\""), QByteArray("\"0:05.0\""),
          QByteArray("\"0:05.0 \""), QByteArray("\"0:05.0 2\""), QByteArray("\"0:05.0 2.x\""),
          QByteArray("\"0:05.0 -2.1\""), QByteArray("\"0:05.0 2.5\""),
          QByteArray("\"0:05.0 2.1 bar\""), QByteArray("\"0:05.0 2.1 bar 13\""),
          QByteArray("\"0:05.0 2.1 bar x\""), QByteArray("\"0:05.0 2.1 found\""),
          QByteArray("\"0:05.0 2.1 lost bar 3\""), QByteArray("\"0:05.0 123456.1\""),
          QByteArray("\"0:02.0 2.1\""), QByteArray("\"0:05.0 5.1\""), QByteArray("\"5 2.1\"")})
        EXPECT_EQ(
            gridOf("{\"anchors\": [\"0:02.0 1.1\", " + odd + ", \"0:10.0 5.1\"]}").anchors().size(),
            2U)
            << odd.toStdString();
    EXPECT_TRUE(gridOf("{\"anchors\": [\"0:02.0 1.1\"]}").isEmpty());
    EXPECT_TRUE(gridOf("{\"anchors\": {}}").isEmpty());
    EXPECT_TRUE(gridOf("[]").isEmpty());
    const QByteArray two = ", \"anchors\": [\"0:02.0 1.1\", \"0:10.0 5.1\"]}";
    EXPECT_EQ(gridOf("{\"bar\": 1" + two).anchors().front().beatsPerBar, 2);
    EXPECT_EQ(gridOf("{\"bar\": 99" + two).anchors().front().beatsPerBar, 12);
    EXPECT_EQ(gridOf("{\"bar\": \"4\"" + two).anchors().front().beatsPerBar, 4);
}

TEST(PracticeText, ReadsTheFirst2000Of10000AnchorsAndSaysSo)
{
    QByteArray anchors;
    for (int i = 1; i <= 10000; ++i)
        anchors += QByteArray(i > 1 ? "," : "") + '"' +
                   songTimeText(static_cast<std::uint64_t>(i) * 88200).toLatin1() + ' ' +
                   QByteArray::number(i) + ".1\"";
    const auto reading =
        readPractice("{\"lyrabox practice\": 1, \"beats\": {\"anchors\": [" + anchors + "]}}");
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->record.beats.grid.anchors().size(), BeatGrid::mostAnchors);
    EXPECT_EQ(reading->record.beats.grid.anchors().back().bar, 2000);
    EXPECT_FALSE(reading->isWhole);
}

TEST(PracticeText, IsRefusedIfItIsNoPracticeFile)
{
    for (const QByteArray &text :
         {QByteArray(), QByteArray("{"), QByteArray("[]"), QByteArray("null"), QByteArray("{}"),
          QByteArray("{\"lyrabox practice\": \"1\"}"), QByteArray("{\"lyrabox practice\": 0}"),
          QByteArray("{\"lyrabox practice\": -1}"), QByteArray("{\"lyrabox practice\": null}"),
          QByteArray("{\"lyrabox practice\": 1"), QByteArray("{\"lyrabox practice\": 1} x"),
          QByteArray("{\"lyrabox practice\": 1, \"a\": \"\xff\"}"),
          "{\"lyrabox practice\": 1, \"a\": " + QByteArray(100000, '[')})
        EXPECT_FALSE(readPractice(text)) << text.left(60).toStdString();
    QByteArray large = practiceText({});
    large += QByteArray(PracticeLimits::fileBytes - large.size(), ' ');
    EXPECT_TRUE(readPractice(large));
    EXPECT_FALSE(readPractice(large + ' '));
}

TEST(PracticeText, OfALaterVersionIsReadAndMarked)
{
    const auto reading =
        readPractice(R"({"lyrabox practice": 2, "loops": [{"from": "0:01.0", "to": "0:02.0"}]})");
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isNewer);
    EXPECT_EQ(reading->record.loops.size(), 1U);
}

TEST(PracticeText, LeavesOutEntriesWithoutUsablePlacesAndSaysSo)
{
    for (const QByteArray &loop :
         {QByteArray("5"), QByteArray("null"), QByteArray("{}"), QByteArray("[]"),
          QByteArray("{\"from\": \"0:01.0\"}"), QByteArray("{\"from\": 1, \"to\": 2}"),
          QByteArray("{\"from\": \"-0:01.0\", \"to\": \"0:02.0\"}"),
          QByteArray("{\"from\": \"nan\", \"to\": \"0:02.0\"}"),
          QByteArray("{\"from\": \"0:02.0\", \"to\": \"0:02.0\"}"),
          QByteArray("{\"from\": \"0:03.0\", \"to\": \"0:02.0\"}")}) {
        const auto reading =
            readPractice(withLoop(loop + ", {\"from\": \"0:01.0\", \"to\": \"0:02.0\"}"));
        ASSERT_TRUE(reading);
        EXPECT_EQ(reading->record.loops.size(), 1U) << loop.toStdString();
        EXPECT_FALSE(reading->isWhole) << loop.toStdString();
    }
    const auto reading = readPractice(
        R"({"lyrabox practice": 1, "markers": [{"at": "0:61.0"}, {"at": true}, {"at": "0:01.0"}]})");
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->record.markers.size(), 1U);
    EXPECT_FALSE(reading->isWhole);
}

TEST(PracticeText, GivesOddValuesTheNearestMeaningAndSaysSo)
{
    const QByteArray places = R"("from": "0:01.0", "to": "0:02.0", )";
    for (const auto &[odd, expected] : std::vector<std::pair<QByteArray, PracticeLoop>>{
             {R"("colour": 9)", {.colour = 8}},
             {R"("colour": -1)", {.colour = 1}},
             {R"("colour": "red")", {.colour = 1}},
             {R"("name": 5)", {}},
             {R"("note": [])", {}},
             {R"("speed": 500)", {.speed = 200}},
             {R"("speed": 75.5)", {.speed = 76}},
             {R"("speed": "75")", {}},
             {R"("speed": 1e300)", {}},
             {R"("pitch": -1e5)", {.pitch = -2400}},
             {R"("times": 3)", {}},
             {R"("then": "dance", "times": 3)", {}},
             {R"("then": "stop", "times": 0)", {.after = AfterLoop::Stop, .passes = 1}},
             {R"("then": "stop", "times": 5000)", {.after = AfterLoop::Stop, .passes = 999}},
         }) {
        const QByteArray text = withLoop('{' + places + odd + '}');
        PracticeLoop wanted = expected;
        PracticeLoop found = onlyLoop(text);
        wanted.from = found.from;
        wanted.to = found.to;
        wanted.id = found.id;
        EXPECT_EQ(found, wanted) << odd.toStdString();
        EXPECT_FALSE(readPractice(text)->isWhole) << odd.toStdString();
    }
    for (const QByteArray &whole :
         {QByteArray(R"("loops": {})"), QByteArray(R"("markers": 1)"), QByteArray(R"("song": [])"),
          QByteArray(R"("song": {"title": 1})"), QByteArray(R"("song": {"length": "long"})")}) {
        const auto reading = readPractice("{\"lyrabox practice\": 1, " + whole + '}');
        ASSERT_TRUE(reading);
        EXPECT_FALSE(reading->isWhole) << whole.toStdString();
    }
}

TEST(PracticeText, KeepsDuplicateNamesAndPlacesBeyondTheSong)
{
    const QByteArray loop = R"({"name": "A", "from": "9:00.00000", "to": "9:10.00000"})";
    const auto reading = readPractice(withLoop(loop + ", " + loop));
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    ASSERT_EQ(reading->record.loops.size(), 2U);
    EXPECT_NE(reading->record.loops[0].id, reading->record.loops[1].id);
    EXPECT_FALSE(reading->record.loops[0].isWithin(5 * 60 * practiceRate));
    EXPECT_TRUE(reading->record.loops[0].isWithin((9 * 60 + 10) * practiceRate));
}

TEST(PracticeText, ReadsTheFirst500Of10000LoopsAndSaysSo)
{
    QByteArray loops;
    for (int i = 0; i < 10000; ++i)
        loops += QByteArray(i > 0 ? "," : "") + R"({"from": "0:01.0", "to": "0:02.0", "name": ")" +
                 QByteArray::number(i) + "\"}";
    const auto reading = readPractice(withLoop(loops));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->record.loops.size(), PracticeLimits::loops);
    EXPECT_EQ(reading->record.loops.back().name, u"499"_s);
    EXPECT_FALSE(reading->isWhole);
}

TEST(PracticeText, CutsNamesAndKeepsMarkupAsPlainText)
{
    const auto named = [](const QByteArray &name) {
        return onlyLoop(withLoop(R"({"from": "0:01.0", "to": "0:02.0", "name": ")" + name + "\"}"))
            .name;
    };
    EXPECT_EQ(named(QByteArray(100000, 'x')), QString(200, u'x'));
    EXPECT_EQ(named("<b>bold</b> &lt; <img src=x>"), u"<b>bold</b> &lt; <img src=x>"_s);
    EXPECT_EQ(named("a\\nb\\u0000c\\u2028d"), u"a b c d"_s);
    EXPECT_EQ(named("half \\ud83c of a pair"), u"half \ufffd of a pair"_s);
    const QString guitars = named(QByteArray("x") + QByteArray("\xf0\x9f\x8e\xb8").repeated(150));
    EXPECT_EQ(guitars.size(), 199);
    EXPECT_TRUE(guitars.isValidUtf16());
}

TEST(PracticeText, SortsByPlace)
{
    const auto reading = readPractice(R"({"lyrabox practice": 1,
        "markers": [{"at": "0:05.0", "name": "b"}, {"at": "0:01.0", "name": "a"}],
        "loops": [{"from": "0:03.0", "to": "0:05.0", "name": "c"},
                  {"from": "0:03.0", "to": "0:04.0", "name": "b"},
                  {"from": "0:01.0", "to": "0:09.0", "name": "a"}]})");
    ASSERT_TRUE(reading);
    QString names;
    for (const PracticeLoop &loop : reading->record.loops)
        names += loop.name;
    for (const PracticeMarker &marker : reading->record.markers)
        names += marker.name;
    EXPECT_EQ(names, u"abcab"_s);
}

TEST(PracticeText, FillsTheLimitsWithoutBreakingThatOfTheFile)
{
    PracticeRecord record;
    record.markers.assign(PracticeLimits::markers,
                          {.at = lastSongPlace, .name = QString(40, u'\u4e16')});
    record.loops.assign(PracticeLimits::loops, {.name = QString(200, u'n'),
                                                .from = lastSongPlace - 1,
                                                .to = lastSongPlace,
                                                .note = QString(100, u'"'),
                                                .speed = 100,
                                                .pitch = -2400,
                                                .after = AfterLoop::NextLoop,
                                                .passes = 999});
    ASSERT_TRUE(fitsIntoFile(record));
    const auto reading = readPractice(practiceText(record));
    ASSERT_TRUE(reading);
    EXPECT_TRUE(reading->isWhole);
    EXPECT_EQ(practiceText(reading->record), practiceText(record));
    for (PracticeLoop &loop : record.loops)
        loop.note = QString(1000, u'\u4e16');
    EXPECT_FALSE(fitsIntoFile(record));
}

} // namespace
