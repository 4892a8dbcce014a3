#pragma once

#include "support/Recorder.h"

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace lyrabox::test {

/// A sound server that belongs to the test, on a socket in a temporary folder. It has two null
/// sinks, "a" (the default) and "b". While it lives, the environment of the process makes every
/// client library use it. Null sinks play in real time, and their monitors can be recorded. Main
/// thread only.
///
/// The server is either PulseAudio, or PipeWire with its PulseAudio server and its session manager,
/// which a test uses like one server.
///
/// Errors add a test failure.
class PrivateSoundServer {
public:
    enum class Kind { PulseAudio, PipeWire };
    /// The environment variable that chooses the server: "pulseaudio" or "pipewire". Without it the
    /// server is PulseAudio if that is installed, otherwise PipeWire: PulseAudio's package cannot
    /// be installed on a desktop that plays ALSA's programs through PipeWire.
    static constexpr const char *kindVariable = "LYRABOX_TEST_SOUND_SERVER";
    static Kind chosenKind();

    enum class At { Once, Later };
    /// Rewinding sinks play a new stream at once, like sound cards, even within the time that a
    /// recorder has already received; their recordings begin after 2 s. Plain sinks work in steps
    /// of 50 ms. PipeWire has only one kind of sink, which is neither.
    enum class Sinks { Plain, Rewinding };

    /// Starts the server, or leaves that to restart().
    explicit PrivateSoundServer(At start = At::Once, Sinks sinks = Sinks::Plain,
                                Kind kind = chosenKind());
    explicit PrivateSoundServer(Kind kind) : PrivateSoundServer(At::Once, Sinks::Plain, kind) {}
    ~PrivateSoundServer();
    PrivateSoundServer(const PrivateSoundServer &) = delete;
    PrivateSoundServer &operator=(const PrivateSoundServer &) = delete;

    Kind kind() const { return m_kind; }

    /// Whether the server runs.
    bool isServing() const;

    /// Kills the server and waits for its end.
    void kill();

    /// Stops the processes of the server until resume(): it does not answer and does not play.
    void hang();
    void resume();

    /// Starts the server again on the same socket, with two new sinks. Returns when it answers.
    bool restart();

    bool setDefaultSink(const QString &name);

    /// From now on a change of the default sink does not move recorders. Otherwise PulseAudio moves
    /// the recorders of the old default sink.
    bool keepRecordersInPlace();

    /// Loads a module like `pactl load-module`. Returns the index of the module, or -1.
    int loadModule(const QString &name, const QStringList &arguments = {});
    bool unloadModule(int index);
    /// Removes all null sinks, including "a" and "b".
    bool removeSinks();
    /// Suspends a sink. It then plays nothing and cannot be recorded.
    bool suspendSink(const QString &sink, bool suspended);
    bool setSinkVolume(const QString &sink, int percent);

    /// How much sound a rewinding sink takes at once, in seconds. It plays that from the moment at
    /// which it takes it. Only PulseAudio tells; 0 if it does not.
    double sinkSeconds(const QString &sink) const;

    /// How many playback streams the server has, including halted ones.
    int streamCount() const;

    /// Kills all playback streams, but no sinks. Returns when they are gone.
    void killStreams();

    /// Starts to record what a sink plays.
    std::unique_ptr<Recorder> record(const QString &sink);

private:
    /// The numbers of the playback streams at the server.
    QList<std::uint32_t> streams() const;
    void signalPrograms(int signal);
    bool pactl(const QStringList &arguments, QByteArray *output = nullptr) const;

    /// Waits until the server has its sinks and the first sink is the default.
    bool waitUntilItServes();
    QString socket() const { return m_folder.filePath(QStringLiteral("native")); }

    QTemporaryDir m_folder;
    Sinks m_sinks;
    Kind m_kind;
    std::vector<std::unique_ptr<QProcess>> m_programs;
    QByteArray m_oldServer;
    QByteArray m_oldRuntimeDir;
};

} // namespace lyrabox::test
