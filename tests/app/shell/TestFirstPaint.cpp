#include "app/shell/FirstPaint.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <chrono>

using namespace std::chrono_literals;
using lyrabox::afterFirstPaint;

namespace {

/// Runs the event loop until `condition` holds. The time limit is reached only by a failure.
template <typename Condition>
bool waitFor(const Condition &condition)
{
    const QDeadlineTimer deadline(20s);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return condition();
}

class PaintedWindow : public QWidget {
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++paints; }
};

} // namespace

TEST(FirstPaint, RunsTheWorkOnceAfterTheWindowWasPainted)
{
    PaintedWindow window;
    int calls = 0;
    int paintsBefore = 0;
    afterFirstPaint(
        &window,
        [&] {
            ++calls;
            paintsBefore = window.paints;
        },
        24h);
    window.show();
    EXPECT_EQ(calls, 0);
    ASSERT_TRUE(waitFor([&] { return calls > 0; }));
    EXPECT_GT(paintsBefore, 0);
    const int paints = window.paints;
    window.update();
    ASSERT_TRUE(waitFor([&] { return window.paints > paints; }));
    EXPECT_EQ(calls, 1);
}

TEST(FirstPaint, RunsTheWorkEvenIfTheWindowIsNeverPainted)
{
    PaintedWindow window;
    int calls = 0;
    afterFirstPaint(
        &window, [&] { ++calls; }, 1ms);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(waitFor([&] { return calls > 0; }));
    EXPECT_EQ(window.paints, 0);
}

TEST(FirstPaint, DoesNothingIfTheWindowIsDestroyed)
{
    int calls = 0;
    {
        QWidget window;
        afterFirstPaint(
            &window, [&] { ++calls; }, 0ms);
    }
    bool over = false;
    QTimer::singleShot(1ms, [&] { over = true; });
    ASSERT_TRUE(waitFor([&] { return over; }));
    EXPECT_EQ(calls, 0);
}
