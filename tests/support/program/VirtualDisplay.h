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

/// A private screen of 1280 by 860 pixels, with a mouse and a keyboard. Windows have no frames.
/// Errors add a test failure. Main thread only.
class VirtualDisplay {
public:
    static constexpr QSize size{1280, 860};

    enum class Kind {
        X,
        Wayland,
    };
    /// The kind that LYRABOX_TEST_DISPLAY chooses: "wayland" or "x". X if it is not set.
    static Kind usualKind();
    static std::unique_ptr<VirtualDisplay> make(Kind kind);

    VirtualDisplay() = default;
    virtual ~VirtualDisplay() = default;
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    virtual Kind kind() const = 0;
    bool isWayland() const { return kind() == Kind::Wayland; }

    /// Changes the environment of a program so that it uses this display and no other.
    virtual void addTo(QProcessEnvironment &environment) const = 0;

    /// Kills the display server.
    virtual void kill() = 0;

    /// A picture of the whole screen.
    virtual QImage screen() const = 0;
    /// A picture of a part of the screen; `area` is in screen coordinates.
    QImage screen(const QRect &area) const { return screen().copy(area); }

    /// Waits for a visible window whose title matches the pattern, and returns the first one.
    /// Empty, with a test failure, if none appears.
    QString waitForWindow(const QString &titlePattern);
    /// Whether there is such a window now.
    bool hasWindow(const QString &titlePattern) const
    {
        return !findWindow(titlePattern).isEmpty();
    }
    /// Moves and resizes a window and waits until that is done.
    void place(const QString &window, const QRect &frame);
    virtual QRect frameOf(const QString &window) const = 0;
    /// The window that has the keyboard.
    virtual QString activeWindow() const = 0;
    /// Minimizes a window. Only on X.
    virtual void minimize(const QString &window) = 0;

    virtual void moveTo(QPoint point) = 0;
    virtual void press() = 0;
    virtual void release() = 0;
    virtual void click(QPoint point, int times = 1) = 0;
    /// Turns the wheel over a point. Positive notches turn it up, negative ones down.
    virtual void wheel(QPoint point, int notches) = 0;
    /// Moves the pointer from one point to another with the button held.
    void drag(QPoint from, QPoint to);
    /// Presses and releases a key, given by the name of its symbol with modifiers: "space",
    /// "ctrl+s", "bracketright".
    virtual void key(const QString &name, int times = 1) = 0;
    virtual void keyDown(const QString &name) = 0;
    virtual void keyUp(const QString &name) = 0;
    virtual void type(const QString &text) = 0;

protected:
    static constexpr int patienceMilliseconds = 20'000;

    /// The visible window whose title matches; empty if there is none.
    virtual QString findWindow(const QString &titlePattern) const = 0;
    /// Asks the display to move and resize the window; does not wait.
    virtual void moveWindow(const QString &window, const QRect &frame) = 0;
};

} // namespace lyrabox::test
