#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <vector>

/// The programs that a private sound server consists of, and their settings.
namespace lyrabox::test {

/// One program of a sound server.
struct SoundServerProgram {
    QString name;
    QStringList arguments;
    /// The socket on which it listens. The next program is started when it is there. Empty when
    /// nobody has to wait for it.
    QString socket;
};

/// A PulseAudio server with the null sinks "a" and "b", which listens on `socket`.
std::vector<SoundServerProgram> pulseAudioPrograms(const QString &socket, bool rewindingSinks);

/// PipeWire with its PulseAudio server, which has the null sinks "a" and "b" and listens on
/// `socket`, and its session manager. Writes their settings into `folder`.
std::vector<SoundServerProgram> pipeWirePrograms(const QString &folder, const QString &socket);

/// The environment of PipeWire's programs. It keeps the settings and the message bus of whoever
/// runs the tests away from them.
QProcessEnvironment pipeWireEnvironment(const QString &folder);

} // namespace lyrabox::test
