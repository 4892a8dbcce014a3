#include "PracticingFixture.h"
#include "app/practice/PracticeFooter.h"

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
    EXPECT_TRUE(practiceProblemText(Problem::None).isEmpty());
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

} // namespace
