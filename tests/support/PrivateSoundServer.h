#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace lyrabox::test {

class Recorder;

/// A PulseAudio server of the test's own, with two null sinks named "a" (the default) and "b", on a
/// socket in a temporary folder. While it lives, the environment of the process leads every client
/// library to it. Null sinks play in real time, and what they play can be recorded from their
/// monitors. Main thread only.
///
/// What fails adds a test failure.
class PrivateSoundServer {
public:
    enum class At { Once, Later };
    /// Rewinding sinks let a new stream in at once, as sound cards do, and play it into the time
    /// that a recorder has already got; their recordings take 2 s to begin. Plain ones work in
    /// steps of 50 ms.
    enum class Sinks { Plain, Rewinding };

    /// Starts the server, unless it is to be started later with restart().
    explicit PrivateSoundServer(At start = At::Once, Sinks sinks = Sinks::Plain);
    ~PrivateSoundServer();
    PrivateSoundServer(const PrivateSoundServer &) = delete;
    PrivateSoundServer &operator=(const PrivateSoundServer &) = delete;

    /// Whether it answers.
    bool isServing() const;

    /// Ends the server without any farewell; returns when it is gone.
    void kill();

    /// The server answers nobody and plays nothing until resume().
    void hang();
    void resume();

    /// Starts the server again at the same place, with two fresh sinks; returns when it answers.
    bool restart();

    bool setDefaultSink(const QString &name);

    /// From here on a change of the default sink leaves the recorders at their sinks. Otherwise the
    /// server moves those of the old default sink along.
    bool keepRecordersInPlace();

    /// pactl's `load-module`: the module's index, or -1.
    int loadModule(const QString &name, const QStringList &arguments = {});
    bool unloadModule(int index);
    /// Takes every sink away that is a null sink, the first two as well.
    bool removeSinks();
    bool setSinkVolume(const QString &sink, int percent);

    /// How many streams play to the server at present, halted ones included.
    int streamCount() const;

    /// Takes the streams away from those who play them; the sinks stay. Returns when they are gone.
    void killStreams();

    /// Records what a sink plays from now on.
    std::unique_ptr<Recorder> record(const QString &sink);

private:
    /// Their numbers at the server.
    QList<QByteArray> streams() const;
    bool pactl(const QStringList &arguments, QByteArray *output = nullptr) const;

    QTemporaryDir m_folder;
    Sinks m_sinks;
    QProcess m_server;
    QByteArray m_oldServer;
    QByteArray m_oldRuntimeDir;
};

/// What a sink plays, as float samples at 44,100 Hz, the left channel, in memory. Positions are
/// sample numbers from the start of the recording; silence is recorded as well, so they are the
/// time. Main thread, unless a member says otherwise.
class Recorder {
public:
    static constexpr int sampleRate = 44100;

    explicit Recorder(const QString &sink);
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    /// Samples recorded so far.
    std::size_t size() const;

    /// A copy of the samples from `begin` on, up to `end`.
    std::vector<float> samples(std::size_t begin = 0, std::size_t end = SIZE_MAX) const;

    /// Returns when at least `count` samples are there; false, with a test failure, when the server
    /// stops delivering.
    bool waitForSize(std::size_t count) const;

    /// Waits for `seconds` more of recording.
    bool waitFor(double seconds) const;

    /// Waits until a window of 10 ms that begins at or after `begin` is louder than `level` (peak),
    /// and returns where it begins; -1, with a test failure, when none is within `seconds` of
    /// recording.
    std::ptrdiff_t waitForSound(std::size_t begin, double level = 0.01, double seconds = 5.0) const;

    /// The same for silence: 100 ms without a sample louder than `level`.
    std::ptrdiff_t waitForSilence(std::size_t begin, double level = 0.001,
                                  double seconds = 5.0) const;

private:
    std::ptrdiff_t waitForWindow(std::size_t begin, std::size_t window, bool loud, double level,
                                 double seconds) const;

    QProcess m_process;
    int m_pipe = -1;
    mutable std::mutex m_mutex;
    std::vector<float> m_samples;
    std::thread m_reader;
};

} // namespace lyrabox::test
