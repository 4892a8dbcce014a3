#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <vector>

/// The programs of a private sound server and their settings.
namespace lyrabox::test {

/// One program of a sound server.
struct SoundServerProgram {
    QString name;
    QStringList arguments;
    /// The socket on which it listens. The next program is started when the socket exists. Empty if
    /// the next program need not wait.
    QString socket;
};

/// A PulseAudio server with the null sinks "a" and "b", which listens on `socket`.
std::vector<SoundServerProgram> pulseAudioPrograms(const QString &socket, bool rewindingSinks);

/// PipeWire, its session manager and its PulseAudio server, which has the null sinks "a" and "b"
/// and listens on `socket`. Writes their settings into `folder`.
std::vector<SoundServerProgram> pipeWirePrograms(const QString &folder, const QString &socket);

/// The environment of PipeWire's programs. It hides the settings and the message bus of the user
/// who runs the tests.
QProcessEnvironment pipeWireEnvironment(const QString &folder);

} // namespace lyrabox::test
