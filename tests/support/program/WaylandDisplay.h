#pragma once

#include "support/program/SwayConnection.h"
#include "support/program/VirtualDisplay.h"
#include "support/program/WaylandClient.h"

#include <QJsonObject>
#include <QTemporaryDir>

namespace lyrabox::test {

/// A Wayland compositor without a screen, with an ordinary user's rights, whoever runs the test:
/// "sway", which does not run with root's everywhere. Its windows float, as on other desktops.
class WaylandDisplay : public VirtualDisplay {
public:
    WaylandDisplay();
    ~WaylandDisplay() override;

    Kind kind() const override { return Kind::Wayland; }
    void addTo(QProcessEnvironment &environment) const override;
    void kill() override;
    QImage screen() const override;
    using VirtualDisplay::screen;
    QRect frameOf(const QString &window) const override;
    QString activeWindow() const override;
    /// A test failure: this compositor minimizes nothing.
    void minimize(const QString &window) override;

    void moveTo(QPoint point) override;
    void press() override;
    void release() override;
    void click(QPoint point, int times) override;
    void wheel(QPoint point, int notches) override;
    void key(const QString &name, int times) override;
    void keyDown(const QString &name) override;
    void keyUp(const QString &name) override;
    void type(const QString &text) override;

    /// By which the desktop knows what program a window belongs to.
    QString applicationOf(const QString &window) const;
    /// What a program that the user starts is given, so that it may come to the front.
    QString activationToken() { return m_client->activationToken(); }
    /// Runs commands of the compositor's own; a test failure where it cannot.
    void run(const QString &commands);

protected:
    QString findWindow(const QString &titlePattern) const override;
    void moveWindow(const QString &window, const QRect &frame) override;

private:
    QJsonObject window(const QString &identifier) const;

    QTemporaryDir m_folder;
    QProcess m_compositor;
    mutable SwayConnection m_sway;
    std::unique_ptr<WaylandClient> m_client;
};

} // namespace lyrabox::test
