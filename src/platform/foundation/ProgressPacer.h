#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>
#include <utility>

namespace lyrabox {

/// Reports the progress of long work on the main thread. `total` is 0 if it is not known. `done`
/// and `total` have the same unit, which the work chooses. The hook must not process events.
using ProgressHook = std::function<void(qint64 done, qint64 total)>;
/// Returns whether the user wants the work to stop.
using StopProbe = std::function<bool()>;
/// Makes the stop probe for one piece of work when its progress is first shown. The probe is
/// destroyed with the work.
using StopProbeMaker = std::function<StopProbe()>;
/// Returns a time like monotonicTime(): only differences are meaningful.
using ProgressClock = std::function<std::chrono::milliseconds()>;

/// Decides when the progress of long work is shown: not in its first 250 ms, so that short work
/// shows nothing, and then every 50 ms at most. One object for one piece of work, on one thread.
class ProgressPacer {
public:
    /// For so long nothing is shown.
    static constexpr std::chrono::milliseconds quietStart{250};

    /// The work begins now. Without a hook nothing is shown and the user cannot stop the work.
    /// Without a clock monotonicTime() is used.
    ProgressPacer(ProgressHook hook, ProgressClock clock, qint64 total = 0);

    /// Calls `glance` once, when the work has taken `delay`, which is shorter than quietStart. Use
    /// it for what must not wait for the work but shows no progress. Not called without a hook.
    void setFirstGlance(std::function<void()> glance, std::chrono::milliseconds delay);

    /// Lets the user stop the work once it is shown.
    void setStopProbe(StopProbeMaker maker) { m_makeStopProbe = std::move(maker); }

    /// Whether the user wanted the work to stop. Once true, it stays true.
    bool isStopped() const { return m_isStopped; }

    /// Sets the total if it becomes known only during the work.
    void setTotal(qint64 total) { m_total = total; }

    /// Call this often with the amount of work done so far. If it is time, calls the hook and asks
    /// the stop probe; otherwise it is cheap.
    void advance(qint64 done);

private:
    ProgressHook m_hook;
    ProgressClock m_clock;
    qint64 m_total;
    StopProbeMaker m_makeStopProbe;
    StopProbe m_stopProbe;
    bool m_isStopped = false;
    std::chrono::milliseconds m_due{};
    std::function<void()> m_glance; ///< empty once it was called
    std::chrono::milliseconds m_glanceDue{};
};

} // namespace lyrabox
