#pragma once

#include <QProcess>
#include <QString>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>
#include <vector>

namespace lyrabox::test {

/// Records what a sink plays as float samples at 44,100 Hz, in memory. Members without another name
/// mean the left channel. Positions
/// are sample numbers from the start of the recording. Silence is recorded, too, so positions also
/// measure time. Main thread only, unless a member says otherwise.
class Recorder {
public:
    static constexpr int sampleRate = 44100;

    explicit Recorder(const QString &sink);
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    /// The number of samples recorded so far.
    std::size_t size() const;

    /// A copy of the samples from `begin` up to `end`.
    std::vector<float> samples(std::size_t begin = 0, std::size_t end = SIZE_MAX) const;

    /// The same of the right channel.
    std::vector<float> rightSamples(std::size_t begin = 0, std::size_t end = SIZE_MAX) const;

    /// When sample 0 was recorded, on the steady clock, as the samples that arrive from
    /// restartClock() on tell: those that arrive soonest. The others were recorded by their number
    /// later.
    std::chrono::duration<double> recordedFrom() const;
    void restartClock();

    /// Waits until at least `count` samples are recorded. False, with a test failure, if the server
    /// stops delivering.
    bool waitForSize(std::size_t count) const;

    /// Waits until `seconds` more are recorded.
    bool waitFor(double seconds) const;

    /// Waits for a window of 10 ms at or after `begin` whose peak is above `level`, and returns the
    /// position of the window. -1, with a test failure, if the next `seconds` have none.
    std::ptrdiff_t waitForSound(std::size_t begin, double level = 0.01, double seconds = 5.0) const;

    /// The same for silence: a window of 100 ms without a sample above `level`.
    std::ptrdiff_t waitForSilence(std::size_t begin, double level = 0.001,
                                  double seconds = 5.0) const;

private:
    std::ptrdiff_t waitForWindow(std::size_t begin, std::size_t window, bool loud, double level,
                                 double seconds) const;

    QProcess m_process;
    int m_pipe = -1;
    mutable std::mutex m_mutex;
    std::vector<float> m_samples;
    std::vector<float> m_rightSamples;
    std::chrono::duration<double> m_recordedFrom = std::chrono::duration<double>::max();
    std::thread m_reader;
};

} // namespace lyrabox::test
