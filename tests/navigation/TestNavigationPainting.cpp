#include "navigation/NavigationFixture.h"

#include <QApplication>
#include <QImage>
#include <QScreen>
#include <QTest>

namespace lyrabox {
namespace {

using test::NavigationFixture;
constexpr quint64 rate = NavigationFixture::rate;

struct NavigationPainting : testing::Test {
    NavigationFixture f;
};

/// Delays each painting, as on a slow display.
struct LatePainting : QObject {
    explicit LatePainting(qint64 &clock) : now(clock) {}
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Timer)
            now += 20;
        else if (event->type() == QEvent::Paint)
            now += 50;
        return false;
    }
    qint64 &now;
};

TEST_F(NavigationPainting, LatePaintingLeavesNothingOut)
{
    f.play(10);
    f.view.setFocusPolicy(Qt::NoFocus);
    f.view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f.view));
    QApplication::processEvents();
    const auto onScreen = [this] { return f.view.screen()->grabWindow(f.view.winId()).toImage(); };
    LatePainting late(f.now);
    f.view.installEventFilter(&late);
    f.audio().setCurrentFrame(19 * rate / 10); // 76 pixels to glide.
    f.view.updateTimeDisplay();
    const quint64 before = f.view.paintCount();
    ASSERT_TRUE(QTest::qWaitFor([this] { return f.view.displayedProgress() > 0.1899; }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return onScreen().pixelColor(73, 37).red() < 60; }));
    EXPECT_GT(f.view.paintCount(), before + 1) << "the bar does not glide";
    f.view.removeEventFilter(&late);
    const QImage gradually = onScreen();
    f.view.repaint();
    EXPECT_EQ(gradually, onScreen());
}

} // namespace
} // namespace lyrabox
