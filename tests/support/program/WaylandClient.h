#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

#include <memory>

namespace lyrabox::test {

/// A virtual keyboard, a virtual pointer and screenshots on a Wayland compositor. The devices exist
/// as long as the object. The compositor must support the protocols for this, as those based on
/// wlroots do. Errors add a test failure. Main thread only.
class WaylandClient {
public:
    /// Connects to the compositor that listens at `socket`. `screen` is the size of its only screen
    /// in pixels.
    WaylandClient(const QString &socket, QSize screen);
    ~WaylandClient();
    WaylandClient(const WaylandClient &) = delete;
    WaylandClient &operator=(const WaylandClient &) = delete;

    void moveTo(QPoint point);
    void setButton(bool down);
    /// Turns the wheel by one notch.
    void turnWheel(bool up);

    /// Presses or releases a key. `name` is the name of a symbol, such as "space", or "ctrl",
    /// "shift" or "alt".
    void setKey(const QString &name, bool down);
    /// Presses and releases the key for this character, with Shift if it is needed.
    void typeCharacter(QChar character);

    /// A picture of the screen. It contains the pointer if the compositor draws it.
    QImage picture();

    /// A token that lets a program bring one of its windows to the front.
    QString activationToken();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace lyrabox::test
