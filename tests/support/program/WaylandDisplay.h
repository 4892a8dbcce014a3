#pragma once

#include "support/program/SwayConnection.h"
#include "support/program/VirtualDisplay.h"
#include "support/program/WaylandClient.h"

#include <QJsonObject>
#include <QTemporaryDir>

namespace lyrabox::test {

/// The compositor "sway" on a virtual screen. It runs without root's rights even if root runs the
/// test, because some of its versions refuse them. Windows float, as on other desktops.
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
    /// Adds a test failure: this compositor cannot minimize windows.
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

    /// The application ID by which the desktop matches a window to its program.
    QString applicationOf(const QString &window) const;
    /// A token like the one that the desktop gives a program that the user starts. With it the
    /// program may come to the front.
    QString activationToken();
    /// Runs commands of the compositor. Adds a test failure if one fails.
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
