#include "app/controls/LB_Slider.h"

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <limits>

namespace {

const QColor accentBlue(0x34, 0x98, 0xDB);
const QColor lineGray(0xBD, 0xC3, 0xC7);

QImage drawn(QWidget &widget, qreal ratio)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

QColor at(const QImage &image, double x, double y)
{
    const double ratio = image.devicePixelRatio();
    return image.pixelColor(static_cast<int>(x * ratio), static_cast<int>(y * ratio));
}

class SliderTest : public testing::Test {
protected:
    SliderTest()
    {
        slider.resize(118, 18);
        slider.setMinValue(0.0);
        slider.setMaxValue(100.0);
        slider.setGlideClock([this] { return now; });
    }

    QPoint pointOf(double value)
    {
        LB_Slider other;
        other.resize(slider.size());
        other.setMaxValue(100.0);
        other.setFloatValue(value);
        return other.knobRect().center().toPoint();
    }

    qint64 now = 0;
    LB_Slider slider;
};

TEST_F(SliderTest, TrackIsInsetByEightAndSix)
{
    EXPECT_EQ(slider.trackRect(), QRectF(8.0, 6.0, 102.0, 6.0));
}

TEST_F(SliderTest, VerticalTrackIsInsetBySixAndEight)
{
    LB_Slider vertical(Qt::Vertical);
    vertical.resize(18, 196);
    EXPECT_EQ(vertical.trackRect(), QRectF(6.0, 8.0, 6.0, 180.0));
}

TEST_F(SliderTest, DrawsTrackInLineGrayAndKnobInAccentBlueAtEveryResolution)
{
    slider.setFloatValue(25.0);
    const QPointF knob = slider.knobRect().center();
    for (const qreal ratio : {1.0, 2.0}) {
        const QImage image = drawn(slider, ratio);
        EXPECT_EQ(at(image, 80.0, 9.0), lineGray);
        EXPECT_EQ(at(image, 80.0, 6.5), lineGray) << "first line of the track";
        EXPECT_EQ(at(image, 80.0, 11.4), lineGray) << "last line of the track";
        EXPECT_EQ(at(image, 80.0, 5.4), QColor(Qt::white)) << "above the track";
        EXPECT_EQ(at(image, 80.0, 12.6), QColor(Qt::white)) << "below the track";
        EXPECT_EQ(at(image, 7.4, 9.0), QColor(Qt::white)) << "left of the track";
        EXPECT_EQ(at(image, 110.6, 9.0), QColor(Qt::white)) << "right of the track";
        EXPECT_NE(at(image, 109.6, 6.2), lineGray) << "the track's corners are round";
        EXPECT_EQ(at(image, knob.x(), knob.y()), accentBlue);
        EXPECT_EQ(at(image, knob.x(), knob.y() - 7.0), accentBlue);
        EXPECT_NE(at(image, slider.knobRect().left() + 0.3, slider.knobRect().top() + 1.0),
                  accentBlue)
            << "the knob is an oval";
    }
}

TEST_F(SliderTest, KnobIsHalfAPointRightOfItsBox)
{
    EXPECT_DOUBLE_EQ(slider.knobRect().left(), 0.5);
    EXPECT_DOUBLE_EQ(slider.knobRect().width(), slider.knobRect().height());
    EXPECT_DOUBLE_EQ(slider.knobRect().center().y(), 9.0);
}

TEST_F(SliderTest, KnobStaysInsideAtBothEnds)
{
    for (const double value : {0.0, 100.0}) {
        slider.setFloatValue(value);
        EXPECT_TRUE(QRectF(slider.rect()).contains(slider.knobRect())) << value;
        LB_Slider vertical(Qt::Vertical);
        vertical.resize(18, 196);
        vertical.setFloatValue(value);
        EXPECT_GE(vertical.knobRect().top(), 0.0);
        EXPECT_LE(vertical.knobRect().bottom(), 196.0);
    }
}

TEST_F(SliderTest, VerticalSliderHasItsMinimumAtTheBottom)
{
    LB_Slider vertical(Qt::Vertical);
    vertical.resize(18, 196);
    const double low = vertical.knobRect().center().y();
    vertical.setFloatValue(1.0);
    EXPECT_LT(vertical.knobRect().center().y(), low);
}

TEST_F(SliderTest, ValueIsClampedAndNotANumberBecomesTheMinimum)
{
    slider.setFloatValue(1000.0);
    EXPECT_FLOAT_EQ(slider.floatValue(), 100.0F);
    slider.setFloatValue(-1000.0);
    EXPECT_FLOAT_EQ(slider.floatValue(), 0.0F);
    slider.setFloatValue(50.0);
    slider.setFloatValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FLOAT_EQ(slider.floatValue(), 0.0F);
}

TEST_F(SliderTest, ValueSetByCodeKeepsItsFractionAndSendsNothing)
{
    slider.setStep(5.0);
    const QSignalSpy moved(&slider, &LB_Slider::moved);
    slider.setFloatValue(33.3);
    EXPECT_FLOAT_EQ(slider.floatValue(), 33.3F);
    EXPECT_EQ(moved.count(), 0);
}

TEST_F(SliderTest, AnimatedValueIsSetAtOnceWhileTheKnobGlides)
{
    slider.animateToFloatValue(100.0);
    EXPECT_FLOAT_EQ(slider.floatValue(), 100.0F);
    EXPECT_DOUBLE_EQ(slider.displayedValue(), 0.0);
    now = 250;
    const double middle = slider.displayedValue();
    EXPECT_GT(middle, 55.0) << "an ease-out curve is past the middle at half time";
    EXPECT_LT(middle, 90.0);
    now = 499;
    EXPECT_LT(slider.displayedValue(), 100.0);
    now = 500;
    EXPECT_DOUBLE_EQ(slider.displayedValue(), 100.0);
}

TEST_F(SliderTest, GlideTimerEndsWithTheGlide)
{
    slider.animateToFloatValue(100.0);
    EXPECT_TRUE(slider.isGliding());
    now = 501;
    ASSERT_TRUE(QTest::qWaitFor([this] { return !slider.isGliding(); }));
}

TEST_F(SliderTest, AnimatingToTheCurrentValueDoesNotGlide)
{
    slider.setFloatValue(40.0);
    slider.animateToFloatValue(40.0);
    EXPECT_FALSE(slider.isGliding());
}

TEST_F(SliderTest, SecondGlideBeginsAtTheKnobsPosition)
{
    slider.animateToFloatValue(100.0);
    now = 250;
    const double shown = slider.displayedValue();
    slider.animateToFloatValue(0.0);
    EXPECT_NEAR(slider.displayedValue(), shown, 1e-9);
}

TEST_F(SliderTest, ShowingTheSliderEndsAGlide)
{
    slider.animateToFloatValue(slider.maxValue());
    ASSERT_TRUE(slider.isGliding());
    slider.show();
    EXPECT_FALSE(slider.isGliding());
    EXPECT_DOUBLE_EQ(slider.displayedValue(), slider.maxValue());
}

TEST_F(SliderTest, GlideCurveStartsFastAndEndsSlow)
{
    EXPECT_DOUBLE_EQ(lyrabox::sliderGlideProgress(-1.0), 0.0);
    EXPECT_DOUBLE_EQ(lyrabox::sliderGlideProgress(9.0), 1.0);
    EXPECT_GT(lyrabox::sliderGlideProgress(0.1), 0.2);
    EXPECT_LT(1.0 - lyrabox::sliderGlideProgress(0.45), 0.05);
}

TEST_F(SliderTest, StepsAreCountedFromZeroAndStayInTheRange)
{
    EXPECT_DOUBLE_EQ(lyrabox::sliderValueOnGrid(12.4, 5.0, 1.0, 100.0), 10.0);
    EXPECT_DOUBLE_EQ(lyrabox::sliderValueOnGrid(0.2, 5.0, 1.0, 100.0), 1.0);
    EXPECT_DOUBLE_EQ(lyrabox::sliderValueOnGrid(12.4, 0.0, 1.0, 100.0), 12.4);
}

TEST_F(SliderTest, ClickInTheTrackMovesTheKnobThereInWholeSteps)
{
    slider.setStep(10.0);
    const QSignalSpy moved(&slider, &LB_Slider::moved);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, pointOf(62.0));
    EXPECT_FLOAT_EQ(slider.floatValue(), 60.0F);
    EXPECT_EQ(moved.count(), 1);
}

TEST_F(SliderTest, DragKeepsTheOffsetBetweenPointerAndKnob)
{
    slider.setFloatValue(20.0);
    const QPoint start = slider.knobRect().center().toPoint() + QPoint(3, 0);
    QTest::mousePress(&slider, Qt::LeftButton, {}, start);
    EXPECT_FLOAT_EQ(slider.floatValue(), 20.0F) << "a press on the knob does not move it";
    QTest::mouseMove(&slider, start + QPoint(50, 4));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, start + QPoint(50, 4));
    EXPECT_NEAR(slider.floatValue(), 20.0F + 50.0F * 100.0F / 101.0F, 0.6F);
    const float dropped = slider.floatValue();
    QTest::mouseMove(&slider, QPoint(0, 9));
    EXPECT_FLOAT_EQ(slider.floatValue(), dropped);
}

TEST_F(SliderTest, DoubleClickGoesToTheDefault)
{
    slider.setFloatValue(80.0);
    slider.setDefaultValue(50.0);
    QTest::mouseDClick(&slider, Qt::LeftButton, {}, slider.knobRect().center().toPoint());
    EXPECT_FLOAT_EQ(slider.floatValue(), 50.0F);
}

TEST_F(SliderTest, KeysMoveByStepsAndToTheEnds)
{
    slider.setStep(2.0);
    slider.setFloatValue(50.0);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_FLOAT_EQ(slider.floatValue(), 52.0F);
    QTest::keyClick(&slider, Qt::Key_Down);
    EXPECT_FLOAT_EQ(slider.floatValue(), 50.0F);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_FLOAT_EQ(slider.floatValue(), 70.0F);
    QTest::keyClick(&slider, Qt::Key_PageDown);
    EXPECT_FLOAT_EQ(slider.floatValue(), 50.0F);
    QTest::keyClick(&slider, Qt::Key_Home);
    EXPECT_FLOAT_EQ(slider.floatValue(), 0.0F);
    QTest::keyClick(&slider, Qt::Key_End);
    EXPECT_FLOAT_EQ(slider.floatValue(), 100.0F);
}

TEST_F(SliderTest, KeysMoveAHundredthOfTheRangeWithoutAStep)
{
    slider.setFloatValue(50.0);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_FLOAT_EQ(slider.floatValue(), 49.0F);
}

TEST_F(SliderTest, WheelMovesByStepsAndAddsUpPartialNotches)
{
    slider.setFloatValue(50.0);
    const auto turn = [this](int delta) {
        QWheelEvent event(QPointF(10, 9), QPointF(10, 9), {}, QPoint(0, delta), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
    };
    turn(120);
    EXPECT_FLOAT_EQ(slider.floatValue(), 51.0F);
    turn(-60);
    EXPECT_FLOAT_EQ(slider.floatValue(), 51.0F);
    turn(-60);
    EXPECT_FLOAT_EQ(slider.floatValue(), 50.0F);
}

TEST_F(SliderTest, DisabledSliderIsNotMovedAndNotAccentBlue)
{
    slider.setEnabled(false);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, pointOf(62.0));
    EXPECT_FLOAT_EQ(slider.floatValue(), 0.0F);
    const QPointF knob = slider.knobRect().center();
    EXPECT_NE(at(drawn(slider, 1.0), knob.x(), knob.y()), accentBlue);
}

TEST_F(SliderTest, AssistiveProgramsReadAndMoveTheValue)
{
    slider.setAccessibleName(QStringLiteral("Volume"));
    slider.setStep(5.0);
    slider.setFloatValue(25.0);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&slider);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::Slider);
    EXPECT_EQ(face->text(QAccessible::Name), QStringLiteral("Volume"));
    EXPECT_EQ(face->text(QAccessible::Value), QStringLiteral("25"));
    QAccessibleValueInterface *value = face->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toDouble(), 25.0);
    EXPECT_EQ(value->minimumValue().toDouble(), 0.0);
    EXPECT_EQ(value->maximumValue().toDouble(), 100.0);
    EXPECT_EQ(value->minimumStepSize().toDouble(), 5.0);
    const QSignalSpy moved(&slider, &LB_Slider::moved);
    value->setCurrentValue(41.0);
    EXPECT_FLOAT_EQ(slider.floatValue(), 40.0F);
    EXPECT_EQ(moved.count(), 1);
}

} // namespace
