#include "PracticingFixture.h"
#include "app/practice/PracticeFooter.h"
#include "practice/PracticeFixture.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;
using Problem = PracticeStore::Problem;

namespace {

class TheFooter : public PracticingFixture {
protected:
    QWidget pane;
    PracticeFooter footer{practice.get(), &pane};
};

TEST_F(TheFooter, HasASentenceForEveryProblem)
{
    QStringList texts;
    for (const Problem problem : {Problem::Unreadable, Problem::PartlyRead, Problem::NewerVersion,
                                  Problem::NotWritable, Problem::ChangedElsewhere})
        texts.append(practiceProblemText(problem));
    for (const PracticeDiary::Problem problem :
         {PracticeDiary::Problem::NotWritable, PracticeDiary::Problem::PartlyRead})
        texts.append(historyProblemText(problem));
    EXPECT_TRUE(practiceProblemText(Problem::None).isEmpty());
    EXPECT_TRUE(historyProblemText(PracticeDiary::Problem::None).isEmpty());
    EXPECT_FALSE(texts.contains(QString()));
    EXPECT_EQ(texts.removeDuplicates(), 0);
}

TEST_F(TheFooter, IsHiddenUntilThereIsAProblem)
{
    load(u"A"_s);
    EXPECT_FALSE(footer.isVisibleTo(&pane));
    QFile obstacle(folder()); // a file in the place of the folder
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    addLoop(rate, 2 * rate);
    practice->store().save();
    EXPECT_TRUE(footer.isVisibleTo(&pane));
    EXPECT_EQ(footer.text(), practiceProblemText(Problem::NotWritable));
    ASSERT_TRUE(obstacle.remove());
    practice->store().save();
    EXPECT_FALSE(footer.isVisibleTo(&pane));
}

TEST_F(TheFooter, TellsOfAHistoryThatCannotBeWritten)
{
    ASSERT_TRUE(QDir().mkpath(folder() + u"/History.csv"_s)); // a folder is in the way
    PracticeDiary diary(&audio(), practice.get(), folder());
    footer.setDiary(&diary);
    load(u"A"_s);
    EXPECT_FALSE(footer.isVisibleTo(&pane));
    practice->play(addLoop(rate, rate + rate / 10));
    transport.audio.pull(8192);
    audio().setIsRunning(false);
    ASSERT_TRUE(QTest::qWaitFor([&] { return footer.isVisibleTo(&pane); }, 60000));
    EXPECT_EQ(footer.text(), historyProblemText(PracticeDiary::Problem::NotWritable));
}

TEST_F(TheFooter, SaysThatASongIsBeingRecognisedIfThatTakesLong)
{
    LineReader::Control control;
    control.isHeld = true;
    SongPractice slow(
        &audio(), [](quint64) {}, folder(),
        [&control] { return std::make_unique<LineReader>(control); });
    slow.setOpen(true);
    PracticeFooter line(&slow, &pane);
    load(u"A"_s);
    ASSERT_TRUE(slow.store().apply({PutLoop{{.from = rate, .to = 2 * rate}}}));
    ASSERT_TRUE(slow.store().isIdentifying());
    EXPECT_FALSE(line.isVisibleTo(&pane)) << "most songs are recognised at once";
    ASSERT_TRUE(QTest::qWaitFor([&] { return line.isVisibleTo(&pane); }, 60000));
    EXPECT_EQ(line.text(), u"Recognising the song…"_s);
    control.release();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !line.isVisibleTo(&pane); }, 60000));
}

} // namespace
