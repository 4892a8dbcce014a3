#include "app/controls/LB_Slider.h"
#include "app/shell/WholeProgram.h"
#include "platform/audio/SoundRanges.h"

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

ValueRange rangeOfSlider(const QString &name)
{
    const auto *slider = WholeProgram::window(u"MainWindow"_s)->findChild<LB_Slider *>(name);
    return {.minimum = static_cast<float>(slider->minValue()),
            .maximum = static_cast<float>(slider->maxValue())};
}

TEST(TransportRoom, TheSlidersOfferTheRangesOfSpeedAndPitch)
{
    const WholeProgram program;
    EXPECT_EQ(rangeOfSlider(u"playbackSpeedSlider"_s), speedRange);
    EXPECT_EQ(rangeOfSlider(u"playbackPitchSlider"_s), pitchRange);
}

TEST(TransportRoom, SpeedAndPitchBeginAtTheirNormalValues)
{
    const WholeProgram program;
    program.composition->launch();
    const QMainWindow *window = WholeProgram::window(u"MainWindow"_s);
    EXPECT_EQ(window->findChild<LB_Slider *>(u"playbackSpeedSlider"_s)->floatValue(), 100.0F);
    EXPECT_EQ(window->findChild<LB_Slider *>(u"playbackPitchSlider"_s)->floatValue(), 0.0F);
}

} // namespace
