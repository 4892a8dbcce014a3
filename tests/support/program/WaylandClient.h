#pragma once

#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>

#include <memory>

namespace lyrabox::test {

/// A person's hands and eyes on a Wayland compositor: a virtual keyboard and a virtual pointer,
/// which live as long as the object, and pictures of the screen. Needs a compositor that lets its
/// clients do that, as those made with wlroots do. What fails adds a test failure. Main thread
/// only.
class WaylandClient {
public:
    /// Connects to the compositor that listens at `socket`, whose one screen has this size.
    WaylandClient(const QString &socket, QSize screen);
    ~WaylandClient();
    WaylandClient(const WaylandClient &) = delete;
    WaylandClient &operator=(const WaylandClient &) = delete;

    void moveTo(QPoint point);
    void setButton(bool down);
    /// One notch of the wheel.
    void turnWheel(bool up);

    /// Presses a key, or lets it go. The name is that of a symbol, such as "space", or "ctrl",
    /// "shift" and "alt".
    void setKey(const QString &name, bool down);
    /// Presses the key that gives this character, with Shift where that needs it, and lets it go.
    void typeCharacter(QChar character);

    /// What the screen shows, the pointer included where the compositor draws it itself.
    QImage picture();

    /// A token that lets a program bring one of its windows to the front.
    QString activationToken();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace lyrabox::test
