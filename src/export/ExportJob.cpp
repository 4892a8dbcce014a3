#include "export/ExportJob.h"

#include <utility>

namespace lyrabox {

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
    auto work = [request = std::move(request), tools = m_tools,
                 progress = m_progress](const std::stop_token &stop) {
        return exportSong(request, tools, stop, [&progress](double share) {
            progress->store(share, std::memory_order_relaxed);
        });
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
