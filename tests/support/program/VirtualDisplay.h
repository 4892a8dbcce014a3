#pragma once

#include "support/Processes.h"

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

namespace lyrabox::test {

/// A screen of 1280 by 860 pixels of the test's own, on which windows have no frames, and a
/// person's hands on it. What fails adds a test failure. Main thread only.
class VirtualDisplay {
public:
    static constexpr QSize size{1280, 860};

    enum class Kind {
        X,
        Wayland,
    };
    /// What LYRABOX_TEST_DISPLAY says: "wayland", or "x", which is also meant where it says
    /// nothing.
    static Kind usualKind();
    static std::unique_ptr<VirtualDisplay> make(Kind kind);

    VirtualDisplay() = default;
    virtual ~VirtualDisplay() = default;
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    virtual Kind kind() const = 0;
    bool isWayland() const { return kind() == Kind::Wayland; }

    /// Tells a program by its environment that this is its display, and no other.
    virtual void addTo(QProcessEnvironment &environment) const = 0;

    /// Ends the display server without any farewell.
    virtual void kill() = 0;

    /// What the screen shows now.
    virtual QImage screen() const = 0;
    /// A part of it; `area` in screen coordinates.
    QImage screen(const QRect &area) const { return screen().copy(area); }

    /// The visible window whose title matches the pattern, waited for; empty, with a test failure,
    /// when it does not come. The first of several.
    QString waitForWindow(const QString &titlePattern);
    /// Whether there is such a window now.
    bool hasWindow(const QString &titlePattern) const
    {
        return !findWindow(titlePattern).isEmpty();
    }
    /// Puts a window there and waits until it is.
    void place(const QString &window, const QRect &frame);
    virtual QRect frameOf(const QString &window) const = 0;
    /// The window that has the keyboard.
    virtual QString activeWindow() const = 0;
    /// Only where windows can be minimized: on X.
    virtual void minimize(const QString &window) = 0;

    virtual void moveTo(QPoint point) = 0;
    virtual void press() = 0;
    virtual void release() = 0;
    virtual void click(QPoint point, int times = 1) = 0;
    /// Turns the wheel over a point: notches up, or down where they are negative.
    virtual void wheel(QPoint point, int notches) = 0;
    /// From one point to another with the button held.
    void drag(QPoint from, QPoint to);
    /// A key by the name of its symbol, with modifiers: "space", "ctrl+s", "bracketright".
    virtual void key(const QString &name, int times = 1) = 0;
    virtual void keyDown(const QString &name) = 0;
    virtual void keyUp(const QString &name) = 0;
    virtual void type(const QString &text) = 0;

protected:
    static constexpr int patienceMilliseconds = 20'000;

    /// The visible window whose title matches; empty where there is none.
    virtual QString findWindow(const QString &titlePattern) const = 0;
    /// Asks for the window to be there.
    virtual void moveWindow(const QString &window, const QRect &frame) = 0;
};

} // namespace lyrabox::test
