#pragma once

#include "support/program/VirtualDisplay.h"

#include <QTemporaryDir>

namespace lyrabox::test {

/// A virtual X server with a window manager. xdotool makes the input.
class XDisplay : public VirtualDisplay {
public:
    XDisplay();
    ~XDisplay() override;

    Kind kind() const override { return Kind::X; }
    void addTo(QProcessEnvironment &environment) const override;
    void kill() override;
    QImage screen() const override;
    using VirtualDisplay::screen;
    QRect frameOf(const QString &window) const override;
    QString activeWindow() const override;
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

protected:
    QString findWindow(const QString &titlePattern) const override;
    void moveWindow(const QString &window, const QRect &frame) override;

private:
    QString xdotool(const QStringList &arguments, bool mayFail = false) const;

    QTemporaryDir m_folder;
    QProcess m_server;
    QProcess m_windowManager;
    QString m_name;
};

} // namespace lyrabox::test
