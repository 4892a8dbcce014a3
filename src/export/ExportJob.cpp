#include "export/ExportJob.h"

#include "platform/foundation/DiskPatience.h"

#include <chrono>
#include <utility>

namespace lyrabox {

namespace {

using Clock = std::chrono::steady_clock;

/// An export normally ends a few milliseconds after it was cancelled. If it has not after this
/// time, a disk hangs.
constexpr std::chrono::milliseconds patience{250};

/// One export with all that it needs, because its thread may be abandoned.
struct OwnedExport {
    ExportRequest request;
    ExportTools tools;
    std::stop_token stop;
    std::shared_ptr<std::atomic<double>> progress;
    Status result = status::cancelled;

    void run()
    {
        result = exportSong(request, tools, stop, [this](double share) {
            progress->store(share, std::memory_order_relaxed);
        });
    }
};

/// Runs the export on a thread that is abandoned if a disk does not let it end.
Status runPatiently(const std::shared_ptr<OwnedExport> &owned)
{
    std::optional<Clock::time_point> cancelled;
    const auto shouldContinue = [&] {
        if (!owned->stop.stop_requested())
            return true;
        if (!cancelled)
            cancelled = Clock::now();
        return Clock::now() - *cancelled < patience;
    };
    const bool hasEnded = files::runAbandonable([owned] { owned->run(); }, shouldContinue);
    return hasEnded ? owned->result : status::cancelled;
}

} // namespace

ExportJob::ExportJob(ExportTools tools)
    : m_tools(std::move(tools)), m_progress(std::make_shared<std::atomic<double>>(0.0))
{}

ExportJob::~ExportJob()
{
    cancel();
}

bool ExportJob::start(ExportRequest request, std::function<void(Status)> finished)
{
    if (isRunning())
        return false;
    // A cancelled export may still be ending, so each one has a number of its own.
    m_progress = std::make_shared<std::atomic<double>>(0.0);
    const auto owned = std::make_shared<OwnedExport>();
    owned->request = std::move(request);
    owned->tools = m_tools;
    owned->progress = m_progress;
    auto work = [owned](const std::stop_token &stop) {
        owned->stop = stop;
        return runPatiently(owned);
    };
    m_current =
        m_runner.run(std::move(work), [this, finished = std::move(finished)](Status status) {
            m_current.reset();
            finished(status);
        });
    return m_current.has_value();
}

void ExportJob::cancel()
{
    if (m_current)
        m_runner.cancel(*std::exchange(m_current, std::nullopt));
}

} // namespace lyrabox
