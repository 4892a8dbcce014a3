#pragma once

#include "support/Processes.h"

#include <QImage>
#include <QPoint>
#include <QProcess>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace lyrabox::test {

/// A screen of 1280 by 860 pixels of the test's own, with a window manager that draws no frames,
/// and a person's hands on it. What fails adds a test failure. Main thread only.
class VirtualDisplay {
public:
    VirtualDisplay();
    ~VirtualDisplay();
    VirtualDisplay(const VirtualDisplay &) = delete;
    VirtualDisplay &operator=(const VirtualDisplay &) = delete;

    /// What DISPLAY has to be.
    QString name() const { return m_name; }

    /// Ends the display server without any farewell.
    void kill();

    /// What the screen shows now.
    QImage screen() const;
    /// A part of it; `area` in screen coordinates.
    QImage screen(const QRect &area) const { return screen().copy(area); }

    /// The visible window whose title matches the pattern, waited for; empty, with a test failure,
    /// when it does not come.
    QString waitForWindow(const QString &titlePattern);
    /// Whether there is such a window now.
    bool hasWindow(const QString &titlePattern) const;
    /// Puts a window there and waits until it is.
    void place(const QString &window, const QRect &frame);
    QRect frameOf(const QString &window) const;
    /// The window that has the keyboard.
    QString activeWindow() const;
    void minimize(const QString &window);

    void moveTo(QPoint point);
    void press();
    void release();
    void click(QPoint point, int times = 1);
    /// Turns the wheel over a point: notches up, or down where they are negative.
    void wheel(QPoint point, int notches);
    /// From one point to another with the button held.
    void drag(QPoint from, QPoint to);
    /// xdotool's names: "space", "ctrl+s", "bracketright".
    void key(const QString &name, int times = 1);
    void keyDown(const QString &name);
    void keyUp(const QString &name);
    void type(const QString &text);

private:
    QString xdotool(const QStringList &arguments, bool mayFail = false) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_windowManager;
    QString m_name;
};

} // namespace lyrabox::test
