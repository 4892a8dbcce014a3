#pragma once

#include <QJsonDocument>
#include <QLocalSocket>
#include <QString>

namespace lyrabox::test {

/// Commands and queries to the compositor "sway" over its socket. Needs no event loop. Main thread
/// only.
class SwayConnection {
public:
    /// Connects to the compositor that listens at `socket`. False if that fails.
    bool connectTo(const QString &socket);

    /// Runs commands in the language of sway's configuration. False if one of them fails.
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
