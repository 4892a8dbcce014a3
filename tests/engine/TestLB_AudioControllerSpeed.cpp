// Speed and pitch keep the values that buttons, sliders and fields set in any order.

#include "engine/AudioControllerFixture.h"

#include <random>
#include <utility>

namespace lyrabox::test {
namespace {

TEST_F(AudioController, AStepUpAndAStepDownReturnToExactlyNormalSpeed)
{
    for (const auto &[first, second] : {std::pair(2, 0), std::pair(0, 2)}) {
        transport.playbackSpeedMatrix->pressCellWithTag(first);
        player.speedButtonPressed(transport.playbackSpeedMatrix);
        transport.playbackSpeedMatrix->pressCellWithTag(second);
        player.speedButtonPressed(transport.playbackSpeedMatrix);
        EXPECT_EQ(player.playbackSpeedPct(), 100.0F);
        EXPECT_EQ(transport.audio.timePitchParameter(parameter::rate), 1.0F);
    }
    const auto record = loadedTrack();
    player.saveSettings();
    EXPECT_FALSE(record->hasSettings);
}

TEST_F(AudioController, ASpeedSetInTheEngineIsReadFromItsRate)
{
    player.setPlaybackSpeedPct(62.5F);
    engine::setPlaybackRate(0.75F);
    EXPECT_EQ(player.playbackSpeedPct(), 75.0F);
}

TEST_F(AudioController, RandomStepsDragsAndTypedValuesCanAlwaysReturnToNormal)
{
    enum Tag { Down, Reset, Up };
    const auto pressSpeed = [this](int tag) {
        transport.playbackSpeedMatrix->pressCellWithTag(tag);
        player.speedButtonPressed(transport.playbackSpeedMatrix);
    };
    const auto pressPitch = [this](int tag) {
        transport.playbackPitchMatrix->pressCellWithTag(tag);
        player.pitchButtonPressed(transport.playbackPitchMatrix);
    };
    const auto isNormal = [this] {
        return player.playbackSpeedPct() == 100.0F && player.playbackPitch() == 0.0F &&
               transport.audio.timePitchParameter(parameter::rate) == 1.0F &&
               transport.audio.timePitchParameter(parameter::pitch) == 0.0F;
    };
    std::mt19937 random(20);
    for (int walk = 0; walk < 40; ++walk) {
        for (int i = 0; i < 60; ++i) {
            const auto hundredths = static_cast<int>(random() % 19001) + 1000;
            switch (random() % 5) {
            case 0: // dragged, in whole percent and cents
                transport.playbackSpeedSlider->setFloatValue(hundredths / 100);
                player.speedSliderMoved(transport.playbackSpeedSlider);
                EXPECT_EQ(player.playbackSpeedPct(), static_cast<float>(hundredths / 100));
                transport.playbackPitchSlider->setFloatValue(hundredths / 10 - 1000);
                player.pitchSliderMoved(transport.playbackPitchSlider);
                break;
            case 1: { // typed, with two decimals
                const QString text = QString::number(hundredths / 100.0, 'f', 2);
                transport.playbackSpeedTextField->setText(text);
                player.speedTextChanged(transport.playbackSpeedTextField);
                EXPECT_EQ(player.playbackSpeedPct(), text.toFloat());
                transport.playbackPitchTextField->setText(text);
                player.pitchTextChanged(transport.playbackPitchTextField);
                break;
            }
            case 2:
                pressSpeed(random() % 2 == 0 ? Down : Up);
                break;
            case 3:
                pressPitch(random() % 2 == 0 ? Down : Up);
                break;
            default: { // a step away and back
                const float speed = player.playbackSpeedPct();
                const float pitch = player.playbackPitch();
                if (speed <= 195.0F) {
                    pressSpeed(Up);
                    pressSpeed(Down);
                }
                if (speed >= 15.0F) {
                    pressSpeed(Down);
                    pressSpeed(Up);
                }
                if (pitch <= 2300.0F) {
                    pressPitch(Up);
                    pressPitch(Down);
                }
                EXPECT_EQ(player.playbackSpeedPct(), speed);
                EXPECT_EQ(player.playbackPitch(), pitch);
            }
            }
        }
        pressSpeed(Reset);
        pressPitch(Reset);
        ASSERT_TRUE(isNormal());

        // As many steps back to normal as there were away from it.
        const int steps = static_cast<int>(random() % 19);
        const int away = random() % 2 == 0 ? Down : Up;
        for (int i = 0; i < steps; ++i) {
            pressSpeed(away);
            pressPitch(away);
        }
        for (int i = 0; i < steps; ++i) {
            pressSpeed(Up - away);
            pressPitch(Up - away);
        }
        ASSERT_TRUE(isNormal()) << steps << " steps";

        // A whole number of steps away from normal, the step buttons alone lead back.
        transport.playbackSpeedTextField->setText(QString::number(10 + 5 * (random() % 39)));
        player.speedTextChanged(transport.playbackSpeedTextField);
        while (player.playbackSpeedPct() < 100.0F)
            pressSpeed(Up);
        while (player.playbackSpeedPct() > 100.0F)
            pressSpeed(Down);
        ASSERT_TRUE(isNormal());
    }
}

} // namespace
} // namespace lyrabox::test
