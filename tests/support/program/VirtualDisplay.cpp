#include "support/program/VirtualDisplay.h"

#include "support/program/WaylandDisplay.h"
#include "support/program/XDisplay.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {

VirtualDisplay::Kind VirtualDisplay::usualKind()
{
    const QByteArray name = qgetenv("LYRABOX_TEST_DISPLAY");
    EXPECT_TRUE(name.isEmpty() || name == "x" || name == "wayland")
        << "LYRABOX_TEST_DISPLAY is neither x nor wayland";
    return name == "wayland" ? Kind::Wayland : Kind::X;
}

std::unique_ptr<VirtualDisplay> VirtualDisplay::make(Kind kind)
{
    if (kind == Kind::Wayland)
        return std::make_unique<WaylandDisplay>();
    return std::make_unique<XDisplay>();
}

QString VirtualDisplay::waitForWindow(const QString &titlePattern)
{
    QString window;
    EXPECT_TRUE(waitUntil([&] {
        window = findWindow(titlePattern);
        return !window.isEmpty();
    })) << "no window "
        << titlePattern.toStdString();
    return window;
}

void VirtualDisplay::place(const QString &window, const QRect &frame)
{
    // The window manager may still be placing the new window itself.
    EXPECT_TRUE(waitUntil([&] {
        moveWindow(window, frame);
        return waitUntil([&] { return frameOf(window) == frame; }, 0.5);
    })) << "the window does not move to its place";
}

void VirtualDisplay::drag(QPoint from, QPoint to)
{
    const QPoint middle = (from + to) / 2;
    moveTo(from);
    press();
    moveTo(middle);
    moveTo(to);
    release();
}

} // namespace lyrabox::test
