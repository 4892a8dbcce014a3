#include "BeatsFixture.h"
#include "app/practice/TempoReadout.h"
#include "platform/ui/NumberField.h"

#include <QAbstractButton>
#include <QAccessible>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class TheTempo : public testing::Test, protected BeatsFixture {
protected:
    TempoReadout &readout() { return *pane->findChild<TempoReadout *>(); }
    QAbstractButton &button() { return *readout().findChild<QAbstractButton *>(); }
    NumberField &field() { return *readout().findChild<NumberField *>(); }

    void type(const QString &text)
    {
        button().click();
        ASSERT_TRUE(field().isVisible());
        field().selectAll();
        QTest::keyClicks(&field(), text);
        QTest::keyClick(&field(), Qt::Key_Return);
        QCoreApplication::processEvents();
    }
};

TEST_F(TheTempo, OfASuggestionIsQuiet)
{
    EXPECT_TRUE(readout().tempoText().isEmpty());
    EXPECT_EQ(readout().detailText(), u"about 120 BPM"_s);
    beats().clear();
    EXPECT_TRUE(readout().detailText().isEmpty());
}

TEST_F(TheTempo, IsThatOfTheSongAtThePresentSpeed)
{
    setBeats(steadyGrid());
    EXPECT_EQ(readout().tempoText(), u"120 BPM"_s);
    audio().setPlaybackSpeedPct(73.0F);
    EXPECT_EQ(readout().tempoText(), u"87.6 BPM"_s);
    EXPECT_EQ(readout().detailText(), u"at 73 % · song 120 · 4/4"_s);
}

TEST_F(TheTempo, ThatIsTypedSetsTheNearestPercentAndShowsWhatItIs)
{
    setBeats(steadyGrid());
    type(u"88"_s);
    EXPECT_EQ(audio().playbackSpeedPct(), 73.0F);
    EXPECT_EQ(readout().tempoText(), u"87.6 BPM"_s);
    EXPECT_FALSE(field().isVisible());
    EXPECT_TRUE(button().isVisible());
    type(u"9999"_s);
    EXPECT_EQ(audio().playbackSpeedPct(), 200.0F);
    type(u"1"_s);
    EXPECT_EQ(audio().playbackSpeedPct(), 10.0F);
}

TEST_F(TheTempo, StaysWhenTheTypingIsGivenUp)
{
    setBeats(steadyGrid());
    button().click();
    field().selectAll();
    QTest::keyClicks(&field(), u"60"_s);
    QTest::keyClick(&field(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(audio().playbackSpeedPct(), 100.0F);
    EXPECT_FALSE(field().isVisible());
    button().click();
    field().selectAll();
    QTest::keyClicks(&field(), u"fast"_s);
    QTest::keyClick(&field(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(audio().playbackSpeedPct(), 100.0F);
    EXPECT_EQ(readout().tempoText(), u"120 BPM"_s);
}

TEST_F(TheTempo, IsShownWhileItIsTapped)
{
    tapBeats(2);
    EXPECT_TRUE(readout().tempoText().isEmpty());
    EXPECT_EQ(readout().detailText(), u"tap 2 of 8"_s);
    tapBeats(3, 6);
    EXPECT_TRUE(readout().tempoText().endsWith(u" BPM"_s));
    EXPECT_EQ(readout().detailText(), u"tap 5 of 8"_s);
    EXPECT_FALSE(button().isEnabled());
}

TEST_F(TheTempo, FollowsTheSong)
{
    // A song whose tempo changes at bar 5.
    const auto at = [](double beats) { return static_cast<std::uint64_t>(beats * beatFrames); };
    setBeats(BeatGrid({{.frame = 0, .bar = 1, .beat = 1},
                       {.frame = at(16), .bar = 5, .beat = 1, .beatsPerBar = 3},
                       {.frame = at(40), .bar = 9, .beat = 1, .beatsPerBar = 3}}));
    EXPECT_EQ(readout().tempoText(), u"120 BPM"_s);
    audio().setCurrentFrame(at(20));
    wave().showPosition();
    EXPECT_EQ(readout().tempoText(), u"60 BPM"_s);
    EXPECT_TRUE(readout().detailText().endsWith(u"3/4"_s));
}

TEST_F(TheTempo, IsBriefWhereThereIsLittleRoom)
{
    setBeats(steadyGrid());
    pane->resize(924, 250);
    EXPECT_EQ(readout().detailText(), u"at 100 % of 120"_s);
    pane->resize(1120, 320);
    EXPECT_EQ(readout().detailText(), u"at 100 % · song 120 · 4/4"_s);
}

TEST_F(TheTempo, IsNamedForScreenReaders)
{
    setBeats(steadyGrid());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&button())->text(QAccessible::Name),
              u"Tempo: 120 BPM, at 100 % · song 120 · 4/4"_s);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&field())->text(QAccessible::Name), u"Tempo"_s);
}

} // namespace
