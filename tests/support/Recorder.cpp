#include "support/Recorder.h"

#include "support/Processes.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <csignal>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::test {
namespace {

// How long a helper process may take. A successful test takes much less.
constexpr int patienceMilliseconds = 20'000;

using Seconds = std::chrono::duration<double>;

std::vector<float> part(const std::vector<float> &samples, std::size_t begin, std::size_t end)
{
    end = std::min(end, samples.size());
    begin = std::min(begin, end);
    return {samples.begin() + static_cast<std::ptrdiff_t>(begin),
            samples.begin() + static_cast<std::ptrdiff_t>(end)};
}

} // namespace

Recorder::Recorder(const QString &sink)
{
    std::array<int, 2> pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        ADD_FAILURE() << "no pipe";
        return;
    }
    m_pipe = pipe[0];
    const int writeEnd = pipe[1];
    m_process.setChildProcessModifier([writeEnd] {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(writeEnd, STDOUT_FILENO);
    });
    m_process.setStandardErrorFile(QProcess::nullDevice());
    m_process.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    m_process.start(u"parec"_s,
                    {u"--raw"_s, u"--format=float32le"_s, u"--rate=%1"_s.arg(sampleRate),
                     u"--channels=2"_s, u"--latency-msec=10"_s, u"--device=%1.monitor"_s.arg(sink),
                     // Otherwise PipeWire would move it to a new default sink.
                     u"--property=node.dont-reconnect=true"_s});
    const bool started = m_process.waitForStarted(patienceMilliseconds);
    ::close(writeEnd);
    EXPECT_TRUE(started) << "parec does not start";
    m_reader = std::thread([this] {
        std::array<float, 2048> block{};
        std::size_t held = 0; // bytes
        for (;;) {
            const ssize_t got =
                ::read(m_pipe, reinterpret_cast<char *>(block.data()) + held, sizeof(block) - held);
            if (got <= 0)
                return;
            held += static_cast<std::size_t>(got);
            const std::size_t frames = held / (2 * sizeof(float));
            {
                const std::lock_guard lock(m_mutex);
                for (std::size_t i = 0; i < frames; ++i) {
                    m_samples.push_back(block[2 * i]);
                    m_rightSamples.push_back(block[2 * i + 1]);
                }
                const Seconds end(static_cast<double>(m_samples.size()) / sampleRate);
                const Seconds now(std::chrono::steady_clock::now().time_since_epoch());
                m_recordedFrom = std::min(m_recordedFrom, now - end);
            }
            held -= frames * 2 * sizeof(float);
            std::memmove(block.data(), block.data() + 2 * frames, held);
        }
    });
}

Recorder::~Recorder()
{
    m_process.kill();
    m_process.waitForFinished(patienceMilliseconds);
    if (m_reader.joinable())
        m_reader.join();
    if (m_pipe >= 0)
        ::close(m_pipe);
}

std::size_t Recorder::size() const
{
    const std::lock_guard lock(m_mutex);
    return m_samples.size();
}

std::vector<float> Recorder::samples(std::size_t begin, std::size_t end) const
{
    const std::lock_guard lock(m_mutex);
    return part(m_samples, begin, end);
}

std::vector<float> Recorder::rightSamples(std::size_t begin, std::size_t end) const
{
    const std::lock_guard lock(m_mutex);
    return part(m_rightSamples, begin, end);
}

std::chrono::duration<double> Recorder::recordedFrom() const
{
    const std::lock_guard lock(m_mutex);
    return m_recordedFrom;
}

void Recorder::restartClock()
{
    const std::lock_guard lock(m_mutex);
    m_recordedFrom = Seconds::max();
}

bool Recorder::waitForSize(std::size_t count) const
{
    // Every new sample restarts the wait, so only a server that has stopped delivering ends it.
    while (size() < count) {
        const std::size_t before = size();
        if (!waitUntil([&] { return size() > before; })) {
            ADD_FAILURE() << "the recording has stopped";
            return false;
        }
    }
    return true;
}

bool Recorder::waitFor(double seconds) const
{
    return waitForSize(size() + static_cast<std::size_t>(seconds * sampleRate));
}

std::ptrdiff_t Recorder::waitForSound(std::size_t begin, double level, double seconds) const
{
    return waitForWindow(begin, sampleRate / 100, true, level, seconds);
}

std::ptrdiff_t Recorder::waitForSilence(std::size_t begin, double level, double seconds) const
{
    return waitForWindow(begin, sampleRate / 10, false, level, seconds);
}

std::ptrdiff_t Recorder::waitForWindow(std::size_t begin, std::size_t window, bool loud,
                                       double level, double seconds) const
{
    const std::size_t last =
        std::max(begin, size()) + static_cast<std::size_t>(seconds * sampleRate);
    const auto isLouder = [level](float sample) { return std::abs(sample) > level; };
    while (begin + window <= last && waitForSize(begin + window)) {
        const std::vector<float> heard = samples(begin, begin + window);
        if (loud) {
            const auto found = std::find_if(heard.begin(), heard.end(), isLouder);
            if (found != heard.end())
                return static_cast<std::ptrdiff_t>(begin) + (found - heard.begin());
            begin += window;
        } else {
            const auto found = std::find_if(heard.rbegin(), heard.rend(), isLouder);
            if (found == heard.rend())
                return static_cast<std::ptrdiff_t>(begin);
            begin += static_cast<std::size_t>(heard.rend() - found);
        }
    }
    ADD_FAILURE() << "no " << (loud ? "sound" : "silence") << " within " << seconds << " s";
    return -1;
}

} // namespace lyrabox::test
