#include "SoundFixture.h"
#include "app/controls/LB_Slider.h"
#include "app/practice/CentrePanel.h"
#include "app/practice/ChoiceButton.h"
#include "app/practice/TextButton.h"
#include "engine/SongChannels.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/SegmentedControl.h"

#include <QLabel>
#include <QMenu>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheSoundPage : public testing::Test, protected SoundFixture {
protected:
    static ChannelTools heard() { return engine::channelTools(); }

    static void type(NumberField *field, const QString &text)
    {
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }

    TextButton *button(const QString &text)
    {
        for (auto *each : page()->findChildren<TextButton *>()) {
            if (each->text() == text)
                return each;
        }
        ADD_FAILURE() << "no button " << text.toStdString();
        return nullptr;
    }

    static void drag(LB_Slider *slider, int by)
    {
        const QPoint from = slider->knobRect().center().toPoint();
        QTest::mousePress(slider, Qt::LeftButton, {}, from);
        for (const int way : {by / 2, by}) {
            const QPoint to = from + QPoint(way, 0);
            QMouseEvent move(QEvent::MouseMove, to, slider->mapToGlobal(to), Qt::NoButton,
                             Qt::LeftButton, {});
            QCoreApplication::sendEvent(slider, &move);
        }
        QTest::mouseRelease(slider, Qt::LeftButton, {}, from + QPoint(by, 0));
    }
};

TEST_F(TheSoundPage, SetsTheChannels)
{
    hearSong();
    auto *modes = control<SegmentedControl>(u"Channels"_s);
    for (const auto mode : {ChannelMode::Mono, ChannelMode::Left, ChannelMode::Right,
                            ChannelMode::Swapped, ChannelMode::Both}) {
        const int segment = static_cast<int>(mode);
        QTest::mouseClick(modes, Qt::LeftButton, {}, modes->segmentRect(segment).center());
        EXPECT_EQ(heard().mode, mode);
    }
    store().undo();
    EXPECT_EQ(modes->selectedSegment(), static_cast<int>(ChannelMode::Swapped));
}

TEST_F(TheSoundPage, MovesBalanceAndCentreOneStepADrag)
{
    hearSong();
    auto *balance = control<LB_Slider>(u"Balance"_s);
    auto *centre = control<LB_Slider>(u"Centre"_s);
    drag(balance, 20);
    const int moved = heard().balance;
    EXPECT_GT(moved, 10);
    drag(centre, -1000);
    EXPECT_EQ(heard().centre, -100);
    drag(centre, 30);
    EXPECT_GT(heard().centre, -100);
    EXPECT_LT(heard().centre, 0);
    store().undo();
    EXPECT_EQ(heard().centre, -100);
    store().undo();
    EXPECT_EQ(heard().centre, 0);
    EXPECT_EQ(heard().balance, moved);
    store().undo();
    EXPECT_TRUE(heard().isNeutral());
    EXPECT_FALSE(store().canUndo());
    EXPECT_EQ(balance->floatValue(), 0.0F);
}

TEST_F(TheSoundPage, TakesTypedNumbersAndKeepsThemFromHalfTypedOnes)
{
    hearSong();
    auto *centre = control<NumberField>(u"Centre"_s);
    type(centre, u"-45"_s);
    EXPECT_EQ(heard().centre, -45);
    EXPECT_EQ(control<LB_Slider>(u"Centre"_s)->floatValue(), -45.0F);
    type(centre, u"-450"_s);
    EXPECT_EQ(heard().centre, -100);
    type(centre, u"3.4"_s);
    EXPECT_EQ(heard().centre, 3);
    EXPECT_EQ(centre->text(), u"3"_s);
    centre->setFocus();
    centre->selectAll();
    QTest::keyClicks(centre, u"7"_s);
    practice->addMarker(1000); // a change elsewhere
    EXPECT_EQ(centre->text(), u"7"_s);
}

TEST_F(TheSoundPage, ChangesTheLimitsOfTheMiddleInAPanel)
{
    hearSong();
    auto *limits = control<TextButton>(u"Limits of the middle"_s);
    limits->click();
    auto *panel = pane->findChild<CentrePanel *>();
    ASSERT_NE(panel, nullptr);
    const QList<NumberField *> fields = panel->findChildren<NumberField *>();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields[0]->text() + fields[1]->text(), u"1509000"_s);
    type(fields[0], u"80"_s);
    type(fields[1], u"30000"_s);
    EXPECT_EQ(sound->kept(), (ChannelTools{.centreFrom = 80, .centreUpTo = 20000}));
    limits->click();
    EXPECT_FALSE(panel->isVisible());
}

TEST_F(TheSoundPage, ComparesWithTheOriginalAndGoesBackToNormal)
{
    hearSong();
    TextButton *original = button(u"Original"_s);
    TextButton *normal = button(u"Normal"_s);
    EXPECT_FALSE(original->isEnabled());
    EXPECT_FALSE(normal->isEnabled());
    sound->change({.mode = ChannelMode::Swapped, .centre = -80, .centreFrom = 100});
    original->click();
    EXPECT_TRUE(original->isChecked());
    EXPECT_TRUE(heard().isNeutral());
    original->click();
    EXPECT_EQ(heard().centre, -80);
    normal->click();
    EXPECT_EQ(sound->kept(), ChannelTools()) << "with the limits";
    store().undo();
    EXPECT_EQ(heard().centre, -80) << "in one step";
}

TEST_F(TheSoundPage, MarksItselfWhileTheSongSoundsDifferent)
{
    hearSong();
    pane->pages()->showPage(pane->pages()->findChildren<QWidget *>(u"loopsPage"_s).value(0));
    const auto titles = [this] {
        return pane->pages()
            ->findChild<SegmentedControl *>({}, Qt::FindDirectChildrenOnly)
            ->segments();
    };
    EXPECT_TRUE(titles().contains(u"Sound"_s));
    sound->change({.balance = 10});
    EXPECT_TRUE(titles().contains(u"Sound •"_s));
    sound->hearOriginal(true);
    EXPECT_TRUE(titles().contains(u"Sound •"_s)) << "its tools are still kept";
    store().undo();
    EXPECT_TRUE(titles().contains(u"Sound"_s));
}

TEST_F(TheSoundPage, OfAMonoSongSaysSoAndHasNoCentre)
{
    rightShare = 1.0F;
    hearSong();
    EXPECT_FALSE(control<LB_Slider>(u"Centre"_s)->isEnabled());
    EXPECT_FALSE(control<NumberField>(u"Centre"_s)->isEnabled());
    EXPECT_FALSE(control<TextButton>(u"Limits"_s)->isEnabled());
    EXPECT_TRUE(control<LB_Slider>(u"Balance"_s)->isEnabled());
    EXPECT_FALSE(pane->canPerform(PracticeCommand::Centre));
    const auto says = [this](const QString &text) {
        for (const auto *label : page()->findChildren<QLabel *>()) {
            if (label->text() == text)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(says(u"This song is mono: it has nothing but a middle."_s));
    rightShare = 0.5F;
    hearSong(u"B"_s);
    EXPECT_TRUE(control<LB_Slider>(u"Centre"_s)->isEnabled());
    EXPECT_TRUE(says(u"Works on what was mixed into the middle."_s));
}

TEST_F(TheSoundPage, WithoutASongIsGray)
{
    pane->show();
    EXPECT_FALSE(control<SegmentedControl>(u"Channels"_s)->isEnabled());
    EXPECT_FALSE(control<LB_Slider>(u"Balance"_s)->isEnabled());
    EXPECT_FALSE(button(u"Tune to A ="_s)->isEnabled());
    EXPECT_EQ(page()->tuningText() + page()->keyText(), QString());
    EXPECT_TRUE(control<NumberField>(u"The frequency of my A"_s)->isEnabled());
}

TEST_F(TheSoundPage, TellsTuningAndKeyAndTunesToTheMusiciansA)
{
    hearSong();
    EXPECT_EQ(page()->tuningText(), u"23 cents flat (A = 434)"_s);
    EXPECT_TRUE(page()->keyText().startsWith(u"A minor (or "_s)) << page()->keyText().toStdString();
    auto *ownA = control<NumberField>(u"The frequency of my A"_s);
    type(ownA, u"442"_s);
    EXPECT_EQ(page()->tuningText(), u"31 cents flat (A = 434)"_s);
    button(u"Tune to A ="_s)->click();
    EXPECT_EQ(audio().playbackPitch(), 31.0F);
    EXPECT_EQ(page()->tuningText(), u"In tune (A = 442)"_s);
    EXPECT_FALSE(button(u"Tune to A ="_s)->isEnabled());
    control<ChoiceButton>(u"My instrument"_s)->menu()->actions().at(1)->trigger();
    EXPECT_TRUE(page()->keyText().startsWith(u"B minor (or "_s)) << "a clarinet in B flat";
    type(ownA, u"9999"_s);
    EXPECT_EQ(ownA->text(), u"480"_s);
    EXPECT_EQ(storedSoundSettings(), (SoundSettings{.ownA = 480.0, .instrument = 1}));
}

TEST_F(TheSoundPage, CarriesOutTheCommandsOfTheMenu)
{
    hearSong();
    pane->perform(PracticeCommand::Channels, static_cast<int>(ChannelMode::Right));
    EXPECT_EQ(heard().mode, ChannelMode::Right);
    EXPECT_TRUE(pane->isChecked(PracticeCommand::Channels, static_cast<int>(ChannelMode::Right)));
    EXPECT_FALSE(pane->isChecked(PracticeCommand::Channels, static_cast<int>(ChannelMode::Both)));
    pane->perform(PracticeCommand::Centre);
    EXPECT_EQ(heard().centre, -100);
    EXPECT_TRUE(pane->isChecked(PracticeCommand::Centre));
    pane->perform(PracticeCommand::HearOriginal);
    EXPECT_TRUE(pane->isChecked(PracticeCommand::HearOriginal));
    EXPECT_TRUE(heard().isNeutral());
    pane->perform(PracticeCommand::NormalChannels);
    EXPECT_FALSE(pane->isChecked(PracticeCommand::HearOriginal));
    EXPECT_FALSE(pane->canPerform(PracticeCommand::NormalChannels));
    EXPECT_FALSE(pane->canPerform(PracticeCommand::HearOriginal));
    pane->perform(PracticeCommand::TuneToA);
    EXPECT_EQ(audio().playbackPitch(), 23.0F);
    EXPECT_FALSE(pane->canPerform(PracticeCommand::TuneToA));
}

} // namespace
