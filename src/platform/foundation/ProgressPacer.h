#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <utility>

namespace lyrabox {

/// Told how far long work has come while the main thread does it; on the main thread. `total` is 0
/// where it is not known. It must not process events.
using ProgressHook = std::function<void(qint64 done, qint64 total)>;
/// Whether the user wants the work to stop.
using StopProbe = std::function<bool()>;
/// Makes the probe of one piece of work when that begins to be shown; it goes with the work.
using StopProbeMaker = std::function<StopProbe()>;
using ProgressClock = std::function<std::chrono::milliseconds()>;

/// Says when long work is to be shown: not within its first quarter of a second, so that short work
/// shows nothing, then every 50 ms at most.
class ProgressPacer {
public:
    /// The work begins now. Without a hook nothing is ever asked; without a clock monotonicTime()
    /// is.
    ProgressPacer(ProgressHook hook, ProgressClock clock, qint64 total = 0);

    /// Lets the user stop the work from when it is first shown. Without one nobody can.
    void setStopProbe(StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }

    /// Whether the user wants the work to stop. Once true it stays true.
    bool isStopped() const { return m_isStopped; }

    /// Where it turns out only while working.
    void setTotal(qint64 total) { m_total = total; }

    /// Calls the hook, and asks whether to stop, when it is time. Cheap otherwise.
    void advance(qint64 done);

private:
    ProgressHook m_hook;
    ProgressClock m_clock;
    qint64 m_total;
    StopProbeMaker m_makeStopProbe;
    StopProbe m_stopProbe;
    bool m_isStopped = false;
    std::chrono::milliseconds m_due{};
};

} // namespace lyrabox
