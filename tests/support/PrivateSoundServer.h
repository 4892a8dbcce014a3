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

/// A sound server of the test's own, with two null sinks named "a" (the default) and "b", on a
/// socket in a temporary folder. While it lives, the environment of the process leads every client
/// library to it. Null sinks play in real time, and what they play can be recorded from their
/// monitors. Main thread only.
///
/// The server is PulseAudio, or PipeWire with its PulseAudio server and its session manager. To a
/// test both are one server.
///
/// What fails adds a test failure.
class PrivateSoundServer {
public:
    enum class Kind { PulseAudio, PipeWire };
    /// The environment variable that chooses: "pulseaudio", which is also the default, or
    /// "pipewire".
    static constexpr const char *kindVariable = "LYRABOX_TEST_SOUND_SERVER";
    static Kind chosenKind();

    enum class At { Once, Later };
    /// Rewinding sinks let a new stream in at once, as sound cards do, and play it into the time
    /// that a recorder has already got; their recordings take 2 s to begin. Plain ones work in
    /// steps of 50 ms. PipeWire has sinks of one sort, which are neither.
    enum class Sinks { Plain, Rewinding };

    /// Starts the server, unless it is to be started later with restart().
    explicit PrivateSoundServer(At start = At::Once, Sinks sinks = Sinks::Plain,
                                Kind kind = chosenKind());
    explicit PrivateSoundServer(Kind kind) : PrivateSoundServer(At::Once, Sinks::Plain, kind) {}
    ~PrivateSoundServer();
    PrivateSoundServer(const PrivateSoundServer &) = delete;
    PrivateSoundServer &operator=(const PrivateSoundServer &) = delete;

    Kind kind() const { return m_kind; }

    /// Whether it runs.
    bool isServing() const;

    /// Ends the server without any farewell; returns when it is gone.
    void kill();

    /// The server answers nobody and plays nothing until resume().
    void hang();
    void resume();

    /// Starts the server again at the same place, with two fresh sinks; returns when it answers.
    bool restart();

    bool setDefaultSink(const QString &name);

    /// From here on a change of the default sink leaves the recorders at their sinks. Otherwise
    /// PulseAudio moves those of the old default sink along.
    bool keepRecordersInPlace();

    /// pactl's `load-module`: the module's index, or -1.
    int loadModule(const QString &name, const QStringList &arguments = {});
    bool unloadModule(int index);
    /// Takes every sink away that is a null sink, the first two as well.
    bool removeSinks();
    /// A suspended sink plays nothing, and nothing can be recorded from it.
    bool suspendSink(const QString &sink, bool suspended);
    bool setSinkVolume(const QString &sink, int percent);

    /// How many streams play to the server at present, halted ones included.
    int streamCount() const;

    /// Takes the streams away from those who play them; the sinks stay. Returns when they are gone.
    void killStreams();

    /// Records what a sink plays from now on.
    std::unique_ptr<Recorder> record(const QString &sink);

private:
    /// Their numbers at the server.
    QList<std::uint32_t> streams() const;
    void signalPrograms(int signal);
    bool pactl(const QStringList &arguments, QByteArray *output = nullptr) const;

    /// Waits until the server has its sinks and the first one is the default.
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
