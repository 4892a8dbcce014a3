#pragma once

#include <QProcess>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace lyrabox::test {

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
