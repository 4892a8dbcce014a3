#include "app/controls/LB_ScrollingTextView.h"

#include <QAccessible>
#include <QImage>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

using lyrabox::marqueePositions;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString shortTitle = u"Rain"_s;
const QString longTitle = u"A title that is much wider than the little view it is shown in"_s;

class ScrollingTextViewTest : public testing::Test {
protected:
    ScrollingTextViewTest() { view.resize(150, 24); }

    /// Shows the view and waits until the resize that comes with it is over.
    void show()
    {
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        view.viewDidEndLiveResize();
    }

    void draw()
    {
        QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
        view.render(&image);
    }

    LB_ScrollingTextView view;
};

TEST_F(ScrollingTextViewTest, NarrowTitleIsCentredAndDoesNotMove)
{
    show();
    view.setString(shortTitle);
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), (150.0 - view.stringWidth()) * 0.5);
    EXPECT_DOUBLE_EQ(view.drawingPoint().y(), 0.0);
    EXPECT_FALSE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, WideTitleStartsAtFiveAndScrolls)
{
    show();
    view.setString(longTitle);
    ASSERT_GT(view.stringWidth(), 150.0);
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), 5.0);
    EXPECT_TRUE(view.isScrolling());
    view.scrollText();
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), 4.0);
}

/// Records the position of the text after each event of a view's timer, and blocks all other events
/// that could move it.
struct TimerWatch : QObject {
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *view = static_cast<LB_ScrollingTextView *>(watched);
        if (event->type() != QEvent::Timer || isWatching)
            return false;
        isWatching = true;
        QCoreApplication::sendEvent(view, event);
        isWatching = false;
        positions.push_back(view->drawingPoint().x());
        return true;
    }
    std::vector<double> positions;
    bool isWatching = false;
};

TEST_F(ScrollingTextViewTest, TimerMovesTheTextByOnePointEachTime)
{
    show();
    view.setString(longTitle);
    TimerWatch watch;
    view.installEventFilter(&watch);
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.positions.size() >= 4; }));
    view.removeEventFilter(&watch);
    for (std::size_t i = 0; i < watch.positions.size(); ++i)
        EXPECT_DOUBLE_EQ(watch.positions[i], 4.0 - static_cast<double>(i));
}

TEST_F(ScrollingTextViewTest, TitleExactlyAsWideAsTheViewScrolls)
{
    show();
    // Advances are multiples of 1/64, so 64 equal letters have a whole width.
    const QString title(64, u'm');
    view.setString(title);
    const auto width = static_cast<int>(view.stringWidth());
    ASSERT_DOUBLE_EQ(view.stringWidth(), static_cast<double>(width));
    view.resize(width, 24);
    view.setString(title);
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), 5.0);
}

TEST(MarqueePositions, SecondCopyFollowsAfterAGapOnceTheFirstIsPastTwentyFive)
{
    EXPECT_FALSE(marqueePositions(-25.0, 100.0).second.has_value());
    EXPECT_EQ(marqueePositions(-26.0, 100.0).second, std::optional<double>(99.0));
    EXPECT_DOUBLE_EQ(marqueePositions(-26.0, 100.0).next, -26.0);
}

TEST(MarqueePositions, DrawingPointJumpsToTheSecondCopyOnceTheFirstHasLeft)
{
    EXPECT_DOUBLE_EQ(marqueePositions(-100.0, 100.0).next, -100.0);
    EXPECT_DOUBLE_EQ(marqueePositions(-101.0, 100.0).next, 24.0);
}

TEST(MarqueePositions, DrawingPointGoesToZeroWithoutASecondCopy)
{
    EXPECT_DOUBLE_EQ(marqueePositions(-11.0, 10.0).next, 0.0);
}

TEST_F(ScrollingTextViewTest, DrawingMakesTheLoopSeamless)
{
    view.setString(longTitle);
    const double width = view.stringWidth();
    while (view.drawingPoint().x() + width >= 0.0)
        view.scrollText();
    const double left = view.drawingPoint().x();
    draw();
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), left + width + 25.0);
}

TEST_F(ScrollingTextViewTest, SecondCopyIsDrawnTwentyFivePointsAfterTheFirst)
{
    // Advances are multiples of 1/64, so 64 equal letters have a whole width.
    const QString title = u"A song and its end "_s.repeated(64);
    view.setString(title);
    const auto width = static_cast<int>(view.stringWidth());
    ASSERT_DOUBLE_EQ(view.stringWidth(), static_cast<double>(width));
    view.resize(width, 24);
    view.setString(title);
    const auto part = [this](double left, int length) {
        QImage image(view.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        view.render(&image, {}, {}, QWidget::DrawChildren);
        return image.copy(static_cast<int>(left), 0, length, view.height());
    };
    constexpr int length = 200;
    const QImage beginning = part(view.drawingPoint().x(), length);
    QImage white = beginning;
    white.fill(Qt::white);
    ASSERT_NE(beginning, white);

    while (view.drawingPoint().x() > -25.0 - length)
        view.scrollText();
    const double firstEnd = view.drawingPoint().x() + width;
    EXPECT_EQ(part(firstEnd, 25), white.copy(0, 0, 25, view.height()));
    EXPECT_EQ(part(firstEnd + 25.0, length), beginning);
}

TEST_F(ScrollingTextViewTest, FontSizeAppliesFromTheNextStringAndKeepsTheProperty)
{
    EXPECT_EQ(view.font().pixelSize(), 12);
    view.setString(longTitle);
    const double before = view.stringWidth();
    view.setFontSize(22.0);
    EXPECT_EQ(view.font().pixelSize(), 22);
    EXPECT_DOUBLE_EQ(view.fontSize(), 0.0);
    EXPECT_DOUBLE_EQ(view.stringWidth(), before);
    view.setString(longTitle);
    EXPECT_GT(view.stringWidth(), before * 1.5);
}

TEST_F(ScrollingTextViewTest, HiddenViewHasNoTimer)
{
    view.setString(longTitle);
    EXPECT_FALSE(view.isScrolling());
    show();
    EXPECT_TRUE(view.isScrolling());
    view.hide();
    EXPECT_FALSE(view.isScrolling());
    view.show();
    EXPECT_TRUE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, MinimisedWindowHasNoTimer)
{
    show();
    view.setString(longTitle);
    ASSERT_TRUE(view.isScrolling());
    view.showMinimized();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !view.isScrolling(); }));
    view.showNormal();
    ASSERT_TRUE(QTest::qWaitFor([this] { return view.isScrolling(); }));
}

TEST_F(ScrollingTextViewTest, TextDoesNotMoveWhileTheViewIsResized)
{
    show();
    view.setString(longTitle);
    view.resize(160, 24);
    EXPECT_TRUE(view.inLiveResize());
    EXPECT_FALSE(view.isScrolling());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !view.inLiveResize(); }));
    EXPECT_TRUE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, AResizeBeyondTheTextsWidthCentresIt)
{
    show();
    view.setString(longTitle);
    view.scrollText();
    view.resize(900, 24);
    draw();
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), (900.0 - view.stringWidth()) * 0.5)
        << "even during the resize";
    view.viewDidEndLiveResize();
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), (900.0 - view.stringWidth()) * 0.5);
    EXPECT_FALSE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, ScrollingContinuesAfterAResizeThatLeavesTheTextTooWide)
{
    show();
    view.setString(longTitle);
    view.scrollText();
    view.scrollText();
    const double stood = view.drawingPoint().x();
    view.resize(140, 24);
    view.viewDidEndLiveResize();
    EXPECT_DOUBLE_EQ(view.drawingPoint().x(), stood);
    EXPECT_TRUE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, EmptyTitleNeverScrolls)
{
    show();
    view.resize(0, 24);
    view.setString({});
    EXPECT_FALSE(view.isScrolling());
}

TEST_F(ScrollingTextViewTest, MarkupAndLineBreaksAreShownAsOneLineOfPlainText)
{
    view.setString(u"<b>Rain</b>"_s);
    const double withTags = view.stringWidth();
    view.setString(u"Rain"_s);
    EXPECT_GT(withTags, view.stringWidth() * 1.5);
    view.setString(u"Rain\nBow"_s);
    const double broken = view.stringWidth();
    EXPECT_EQ(view.string(), u"Rain\nBow"_s);
    view.setString(u"Rain Bow"_s);
    EXPECT_DOUBLE_EQ(broken, view.stringWidth());
}

TEST_F(ScrollingTextViewTest, TextIsDrawnInBlack)
{
    view.setFontSize(22.0);
    view.resize(300, 40);
    view.setString(u"HHHH"_s);
    QImage image(view.size() * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2.0);
    image.fill(Qt::white);
    view.render(&image, {}, {}, QWidget::DrawChildren);
    int black = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            black += image.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
    }
    EXPECT_GT(black, 100);
}

TEST_F(ScrollingTextViewTest, AssistiveProgramsReadTheTitle)
{
    view.setString(longTitle);
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::StaticText);
    EXPECT_EQ(face->text(QAccessible::Name), longTitle);
}

} // namespace
