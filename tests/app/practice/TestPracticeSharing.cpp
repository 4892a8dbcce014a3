#include "PracticingFixture.h"
#include "app/practice/PracticeSharing.h"
#include "app/practice/SharingBar.h"
#include "app/practice/SharingWords.h"
#include "app/practice/TextButton.h"
#include "platform/ui/ElidedLabel.h"
#include "practice/LabelTrack.h"
#include "practice/PracticeFixture.h"
#include "support/pieces/BeatPieces.h"

#include <cmath>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Songs with a sound of their own each: all play the same piece after a lead-in, or another one.
class TheSharing : public PracticingFixture {
protected:
    TheSharing()
    {
        practice = std::make_unique<SongPractice>(
            &audio(), [this](quint64 frame) { audio().setCurrentFrame(frame); }, folder(),
            [this] { return std::make_unique<LineReader>(control); });
        practice->setOpen(true);
        peaks = std::make_unique<SongPeaks>();
        copies = std::make_unique<SongCopies>(practice.get(), peaks.get());
        sharing = std::make_unique<PracticeSharing>(practice.get(), copies.get(), peaks.get());
    }

    ~TheSharing() override
    {
        sharing.reset();
        copies.reset();
        peaks.reset();
        practice.reset(); // its reader uses `control`
    }

    static const BeatPiece &piece(unsigned number)
    {
        static const BeatPiece pieces[]{
            makePiece({.name = "band", .tempo = 112, .slots = 4, .seconds = 25.0}, 31),
            makePiece({.name = "band", .tempo = 92, .slots = 4, .seconds = 25.0}, 32)};
        return pieces[number];
    }

    /// Plays a file of that name, and waits until it was listened to.
    void play(const QString &name, std::uint64_t leadIn = 0, unsigned number = 0)
    {
        const std::vector<float> &sound = piece(number).left;
        transport.song->frames = sound.size() + leadIn;
        transport.song->sample = [&sound, leadIn](std::uint32_t, std::uint64_t frame) {
            return frame < leadIn ? 0.0F : sound[frame - leadIn];
        };
        TrackRecordRef track = TransportFixture::track(name);
        const QString path = m_disk.filePath(name + u".mp3"_s);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("tags\n" + name.toUtf8());
        file.close();
        track->fileURL = QUrl::fromLocalFile(path);
        ASSERT_EQ(transport.load(track), 0);
        peaks->setSong(audio().decodedSong());
        peaks->measure(0);
        ASSERT_TRUE(eventually([&] { return !copies->isListening(); }));
    }

    static bool eventually(const std::function<bool()> &holds)
    {
        return QTest::qWaitFor(holds, 60000);
    }

    QString text() const { return sharing->notice().text; }

    QString fileOf(const QString &name, const QByteArray &content) const
    {
        const QString path = m_disk.filePath(name);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    /// Keeps a loop and a marker for a song that plays the piece.
    void practise(const QString &name)
    {
        play(name);
        addLoop(10 * rate, 14 * rate, u"Solo"_s);
        practice->store().apply({PutMarker{{.at = 5 * rate, .name = u"Verse"_s}}});
        ASSERT_TRUE(eventually([&] { return !practice->store().isIdentifying(); }));
        practice->store().save();
    }

    /// Opens a file and waits for what is said of it.
    void open(const QString &path)
    {
        sharing->open(path);
        ASSERT_TRUE(eventually([&] { return !text().isEmpty(); }));
    }

    LineReader::Control control;
    std::unique_ptr<SongPeaks> peaks;
    std::unique_ptr<SongCopies> copies;
    std::unique_ptr<PracticeSharing> sharing;
};

constexpr double tolerance = 529.0; // 12 ms

TEST_F(TheSharing, OffersTheLoopsOfAnotherCopyAndTakesThemOverAsOneStep)
{
    practise(u"A"_s);
    EXPECT_TRUE(text().isEmpty()) << "the song has loops of its own";
    play(u"B"_s, rate / 2);
    ASSERT_NE(copies->offer(), nullptr);
    EXPECT_TRUE(text().startsWith(u"These loops were made for another copy of this song. Moved"));
    EXPECT_TRUE(record().loops.empty()) << "nothing is applied before the user says so";
    sharing->accept();
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_NEAR(static_cast<double>(record().loops[0].from), 10.5 * rate, tolerance);
    EXPECT_NEAR(static_cast<double>(record().loops[0].to), 14.5 * rate, tolerance);
    EXPECT_EQ(record().markers.size(), 1U);
    EXPECT_TRUE(text().startsWith(u"Added: 1 loop, 1 marker. Moved by +")) << text().toStdString();
    EXPECT_TRUE(practice->store().undo());
    EXPECT_TRUE(record().loops.empty());
    EXPECT_TRUE(record().markers.empty());
}

TEST_F(TheSharing, DoesNotOfferAgainWhatTheUserRefused)
{
    practise(u"A"_s);
    play(u"B"_s);
    ASSERT_NE(copies->offer(), nullptr);
    sharing->decline();
    EXPECT_TRUE(text().isEmpty());
    play(u"A"_s);
    play(u"B"_s);
    EXPECT_EQ(copies->offer(), nullptr);
    play(u"C"_s);
    EXPECT_NE(copies->offer(), nullptr) << "another copy, of which nothing was said";
}

TEST_F(TheSharing, DoesNotOfferTheLoopsOfAnotherSong)
{
    practise(u"A"_s);
    play(u"B"_s, 0, 1);
    EXPECT_EQ(copies->offer(), nullptr);
}

TEST_F(TheSharing, WithdrawsAnOfferWhenAnotherSongPlays)
{
    practise(u"A"_s);
    play(u"B"_s);
    ASSERT_FALSE(text().isEmpty());
    play(u"A"_s);
    EXPECT_TRUE(text().isEmpty());
    EXPECT_EQ(copies->offer(), nullptr);
}

TEST_F(TheSharing, WritesAFileThatFindsTheSongInAnotherCopy)
{
    practise(u"A"_s);
    ASSERT_TRUE(sharing->canShare());
    EXPECT_EQ(sharing->suggestedName(false), u"A.json"_s);
    EXPECT_EQ(sharing->suggestedName(true), u"A.txt"_s);
    const QString path = m_disk.filePath(u"Teacher.json"_s);
    sharing->share(path);
    EXPECT_EQ(text(), sharingWords::shared(u"Teacher.json"_s));
    play(u"B"_s, rate / 4);
    copies->refuse();
    open(path);
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_NEAR(static_cast<double>(record().loops[0].from), 10.25 * rate, tolerance);
    sharing->decline();
    open(path);
    EXPECT_EQ(text(), u"Nothing was added. Here already: 2."_s);
    EXPECT_EQ(record().loops.size(), 1U);
}

TEST_F(TheSharing, LooksForTheSongOfAFileAgainIfAnotherSongComesMeanwhile)
{
    practise(u"A"_s);
    const QString path = m_disk.filePath(u"Teacher.json"_s);
    sharing->share(path);
    play(u"C"_s, 0, 1);
    sharing->open(path);
    play(u"B"_s, rate / 4);
    ASSERT_TRUE(eventually([&] { return record().loops.size() == 1; }));
    EXPECT_NEAR(static_cast<double>(record().loops[0].from), 10.25 * rate, tolerance);
}

TEST_F(TheSharing, TakesAFileForTheSameEncodingAsItIs)
{
    practise(u"A"_s);
    const QString path = m_disk.filePath(u"Teacher.json"_s);
    sharing->share(path);
    EXPECT_TRUE(practice->store().undo());
    EXPECT_TRUE(practice->store().undo());
    sharing->decline();
    open(path);
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_EQ(record().loops[0].from, 10 * rate);
    EXPECT_EQ(text(), u"Added: 1 loop, 1 marker."_s);
}

TEST_F(TheSharing, AsksForWhichSongAFileIs)
{
    play(u"B"_s);
    const QByteArray foreign =
        R"({"lyrabox practice": 1, "song": {"title": "Other", "audio": "0123"},
            "loops": [{"name": "x", "from": "0:01", "to": "0:02"}]})";
    open(fileOf(u"other.json"_s, foreign));
    EXPECT_EQ(text(), sharingWords::question(u"Other"_s, u"B"_s));
    EXPECT_TRUE(record().loops.empty());
    sharing->decline();
    EXPECT_TRUE(record().loops.empty());
    EXPECT_TRUE(text().isEmpty());
    open(fileOf(u"other.json"_s, foreign));
    sharing->accept();
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_EQ(record().loops[0].from, rate);
}

TEST_F(TheSharing, AddsLabelsToTheSongThatPlaysAfterAsking)
{
    play(u"B"_s);
    open(fileOf(u"labels.txt"_s, "1.0\t2.5\tRiff\n3.0\t3.0\tVerse\n"));
    EXPECT_EQ(sharing->notice().accept, u"Use Them"_s);
    sharing->accept();
    ASSERT_EQ(record().loops.size(), 1U);
    EXPECT_EQ(record().markers.size(), 1U);
    const QString path = m_disk.filePath(u"out.txt"_s);
    sharing->share(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "1.000000\t2.500000\tRiff\n3.000000\t3.000000\tVerse\n");
}

TEST_F(TheSharing, AddsAFileToASongThatDoesNotPlay)
{
    practise(u"A"_s);
    PracticeRecord lesson = practice->store().describedRecord();
    lesson.loops[0].name = u"Lesson"_s;
    const QString path = fileOf(u"lesson.json"_s, practiceText(lesson));
    play(u"B"_s, 0, 1);
    open(path);
    EXPECT_TRUE(text().contains(u"“A”")) << text().toStdString();
    EXPECT_TRUE(record().loops.empty());
    play(u"A"_s);
    ASSERT_EQ(record().loops.size(), 2U);
    EXPECT_EQ(record().markers.size(), 1U);
}

TEST_F(TheSharing, SaysWhatIsWrongAndLosesNothing)
{
    practise(u"A"_s);
    using Problem = SharedPractice::Problem;
    const auto expectProblem = [this](const QByteArray &content, Problem problem) {
        open(fileOf(u"bad.json"_s, content));
        EXPECT_EQ(text(), sharingWords::problem(problem, u"bad.json"_s));
        EXPECT_EQ(record().loops.size(), 1U);
        sharing->decline();
    };
    expectProblem("{broken", Problem::Unknown);
    expectProblem("{\"lyrabox practice\": 7}", Problem::Newer);
    expectProblem("{\"lyrabox practice\": 1}", Problem::Empty);
    expectProblem("\"" + QByteArray(1'000'000, 'x') + "\"", Problem::TooLarge);
    QByteArray many = "{\"lyrabox practice\": 1, \"loops\": [";
    for (int i = 0; i < 499; ++i)
        many += "{\"from\": \"0:01\", \"to\": \"0:02\", \"name\": \"" + QByteArray(200, 'n') +
                "\", \"note\": \"" + QByteArray(1000, 'n') + "\"},";
    many.chop(1);
    practice->store().apply({PutLoop{{.name = u"x"_s, .from = 1, .to = 2, .note = {}}}});
    open(fileOf(u"many.json"_s, many + "]}"));
    sharing->accept();
    EXPECT_EQ(record().loops.size(), 500U) << "the last of them has no room";
    EXPECT_TRUE(text().contains(u"No room for 1 more.")) << text().toStdString();
}

TEST_F(TheSharing, NeedsASongForAFileThatIsForNone)
{
    open(fileOf(u"labels.txt"_s, "1.0\t2.5\tRiff\n"));
    EXPECT_EQ(text(), sharingWords::noSong(u"labels.txt"_s));
}

TEST_F(TheSharing, IsShownByARowWithItsAnswers)
{
    QWidget pane;
    SharingBar bar(sharing.get(), &pane);
    EXPECT_FALSE(bar.isVisibleTo(&pane));
    practise(u"A"_s);
    play(u"B"_s);
    EXPECT_TRUE(bar.isVisibleTo(&pane));
    EXPECT_EQ(bar.label()->text(), text());
    EXPECT_EQ(bar.acceptButton()->text(), u"Use Them"_s);
    EXPECT_EQ(bar.declineButton()->text(), u"Not This Song"_s);
    bar.acceptButton()->click();
    EXPECT_EQ(record().loops.size(), 1U);
    EXPECT_FALSE(bar.acceptButton()->isVisibleTo(&pane));
    QTest::keyClick(bar.declineButton(), Qt::Key_Escape);
    EXPECT_FALSE(bar.isVisibleTo(&pane));
}

} // namespace
