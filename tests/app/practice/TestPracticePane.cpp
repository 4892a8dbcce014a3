#include "PaneFixture.h"
#include "app/practice/OverviewBar.h"
#include "app/practice/TextButton.h"

#include <QLabel>

#include <algorithm>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

class ThePane : public testing::Test, protected PaneFixture {};

TEST_F(ThePane, KeepsNoOtherSongWhileItIsHidden)
{
    showSong();
    std::weak_ptr<const DecodedSong> song = pane->peaks().song();
    pane->hide();
    EXPECT_FALSE(song.expired());
    QSignalSpy changed(&pane->peaks(), &SongPeaks::songChanged);
    transport.load(TransportFixture::track(u"B"_s));
    ASSERT_TRUE(changed.size() > 0 || changed.wait());
    EXPECT_TRUE(song.expired());
    EXPECT_EQ(pane->peaks().song(), nullptr);
    pane->show();
    EXPECT_EQ(pane->peaks().song(), audio().decodedSong());
}

TEST_F(ThePane, ShowsTheSamePartAgainAfterItWasHidden)
{
    showSong();
    wave().zoomIn();
    wave().showFrame(20.0 * rate);
    const WaveScale before = wave().scale();
    pane->hide();
    pane->show();
    EXPECT_EQ(wave().scale(), before);
}

TEST_F(ThePane, GivesUpItsSongWhenItIsTold)
{
    showSong();
    pane->hide();
    pane->releaseSong();
    EXPECT_EQ(pane->peaks().song(), nullptr);
}

TEST_F(ThePane, ShowsTheOverviewFrom280PointsOn)
{
    showSong();
    auto *overview = pane->findChild<OverviewBar *>();
    EXPECT_TRUE(overview->isVisible());
    pane->resize(1000, 279);
    EXPECT_FALSE(overview->isVisible());
    pane->resize(1000, 280);
    EXPECT_TRUE(overview->isVisible());
}

TEST_F(ThePane, AClickInTheOverviewShowsThatPart)
{
    showSong();
    auto *overview = pane->findChild<OverviewBar *>();
    QTest::mouseClick(overview, Qt::LeftButton, {}, {overview->width() / 2, 10});
    const WaveScale scale = wave().scale();
    EXPECT_NEAR(scale.frameAt(wave().width() / 2.0), 15.0 * rate, 2.0 * scale.framesPerPoint);
    EXPECT_FALSE(wave().isFollowing());
    EXPECT_TRUE(seeks.isEmpty());
}

TEST_F(ThePane, SaysWhatTheLoopIsAndHowToMakeOne)
{
    const auto text = [&] {
        for (const QLabel *label : pane->findChildren<QLabel *>()) {
            if (label->accessibleDescription() == u"Loop"_s)
                return label->text();
        }
        return QString();
    };
    pane->show();
    EXPECT_EQ(text(), u"Play a song to see its wave."_s);
    showSong();
    EXPECT_EQ(text(), u"Drag across the wave to make a loop."_s);
    audio().setLoop({rate, 3 * rate + rate / 2});
    EXPECT_EQ(text(), u"Loop 0:01.000 – 0:03.500 · 2.50 s"_s);
}

TEST_F(ThePane, ItsButtonsAreCommandsWithNameAndKey)
{
    showSong();
    const auto buttons = pane->findChildren<TextButton *>();
    ASSERT_EQ(buttons.size(), 3);
    for (const TextButton *button : buttons) {
        const auto commands = practiceCommands();
        const bool isCommand = std::ranges::any_of(commands, [&](const auto &entry) {
            return entry.name() == button->accessibleName() &&
                   button->toolTip().contains(entry.keyText());
        });
        EXPECT_TRUE(isCommand) << button->accessibleName().toStdString();
    }
}

TEST_F(ThePane, FollowIsSwitchedOffAndOnAgain)
{
    showSong();
    const auto buttons = pane->findChildren<TextButton *>();
    const auto follow = std::ranges::find_if(
        buttons, [](const TextButton *button) { return button->isCheckable(); });
    ASSERT_NE(follow, buttons.end());
    EXPECT_TRUE((*follow)->isChecked());
    QTest::mouseClick(*follow, Qt::LeftButton);
    EXPECT_FALSE(wave().isFollowing());
    EXPECT_FALSE((*follow)->isChecked());
    QTest::mouseClick(*follow, Qt::LeftButton);
    EXPECT_TRUE(wave().isFollowing());
    EXPECT_TRUE((*follow)->isChecked());
}

TEST_F(ThePane, EveryCommandHasItsOwnKey)
{
    QStringList keys{practicePaneKey.toString()};
    for (const PracticeCommandEntry &entry : practiceCommands()) {
        ASSERT_FALSE(entry.keys.isEmpty());
        for (const QKeySequence &key : entry.keys) {
            EXPECT_FALSE(keys.contains(key.toString())) << key.toString().toStdString();
            keys.append(key.toString());
        }
    }
}

} // namespace
