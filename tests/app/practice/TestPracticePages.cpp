#include "app/practice/PracticePages.h"
#include "platform/ui/SegmentedControl.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

class ThePages : public testing::Test {
protected:
    QWidget *add(const QString &title)
    {
        auto *page = new QWidget;
        pages.addPage(title, page);
        return page;
    }

    SegmentedControl &control() { return *pages.findChild<SegmentedControl *>(); }

    PracticePages pages;
};

TEST_F(ThePages, ASinglePageHasNoSwitch)
{
    EXPECT_EQ(pages.current(), nullptr);
    QWidget *loops = add(u"Loops"_s);
    pages.show();
    EXPECT_TRUE(loops->isVisible());
    EXPECT_FALSE(control().isVisible());
    pages.setTwoColumns(true);
    EXPECT_EQ(pages.width(), PracticePages::pageWidth);
}

TEST_F(ThePages, TheSwitchShowsOneOfThem)
{
    QWidget *loops = add(u"Loops"_s);
    QWidget *trainer = add(u"Trainer"_s);
    pages.show();
    EXPECT_EQ(control().segments(), (QStringList{u"Loops"_s, u"Trainer"_s}));
    EXPECT_TRUE(loops->isVisible());
    EXPECT_FALSE(trainer->isVisible());
    QSignalSpy changed(&pages, &PracticePages::currentChanged);
    control().pressSegment(1);
    EXPECT_EQ(pages.current(), trainer);
    EXPECT_FALSE(loops->isVisible());
    EXPECT_TRUE(trainer->isVisible());
    pages.showPage(loops);
    EXPECT_EQ(control().selectedSegment(), 0);
    EXPECT_TRUE(loops->isVisible());
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(ThePages, KeepTheirWidthWithALongSwitch)
{
    for (const QString &title : {u"Loops"_s, u"Trainer"_s, u"Beat"_s, u"A long title"_s})
        add(title);
    pages.show();
    EXPECT_EQ(pages.width(), PracticePages::pageWidth);
    EXPECT_EQ(control().width(), PracticePages::pageWidth);
}

TEST_F(ThePages, CanBeMarkedInTheSwitch)
{
    add(u"Loops"_s);
    QWidget *trainer = add(u"Trainer"_s);
    pages.setMarked(trainer, true);
    EXPECT_EQ(control().segments(), (QStringList{u"Loops"_s, u"Trainer •"_s}));
    EXPECT_EQ(control().selectedSegment(), 0);
    pages.setMarked(trainer, false);
    EXPECT_EQ(control().segments(), (QStringList{u"Loops"_s, u"Trainer"_s}));
}

TEST_F(ThePages, WithRoomTheFirstStandsBesideTheOthers)
{
    QWidget *loops = add(u"Loops"_s);
    QWidget *trainer = add(u"Trainer"_s);
    QWidget *beat = add(u"Beat"_s);
    pages.setTwoColumns(true);
    pages.show();
    pages.resize(pages.sizeHint());
    EXPECT_EQ(control().segments(), (QStringList{u"Trainer"_s, u"Beat"_s}));
    EXPECT_TRUE(loops->isVisible());
    EXPECT_TRUE(trainer->isVisible());
    control().pressSegment(1);
    EXPECT_EQ(pages.current(), beat);
    EXPECT_TRUE(loops->isVisible());
    EXPECT_FALSE(trainer->isVisible());
    EXPECT_LT(loops->geometry().right(), beat->geometry().left());
    // What was chosen stays chosen when the room is gone.
    pages.setTwoColumns(false);
    EXPECT_FALSE(loops->isVisible());
    EXPECT_TRUE(beat->isVisible());
    EXPECT_EQ(control().selectedSegment(), 2);
}

} // namespace
