#pragma once

#include <QJsonDocument>
#include <QLocalSocket>
#include <QString>

namespace lyrabox::test {

/// What the compositor "sway" is told and asked over its own socket, without an event loop. Main
/// thread only.
class SwayConnection {
public:
    /// Whether the compositor that listens at `socket` is there.
    bool connectTo(const QString &socket);

    /// Runs commands of its configuration's language; whether each could be run.
    bool run(const QString &commands);
    /// The tree of screens, workspaces and windows.
    QJsonDocument tree();

private:
    enum class Question : quint32 {
        Run = 0,
        Tree = 4,
    };
    QJsonDocument ask(Question question, const QByteArray &text = {});
    QByteArray read(qsizetype size);

    QLocalSocket m_socket;
};

} // namespace lyrabox::test
