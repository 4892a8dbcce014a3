#pragma once

#include "export/SongExport.h"
#include "platform/foundation/BackgroundRunner.h"

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace lyrabox {

/// Runs exportSong() on a thread of low priority, so that playing goes on. One export at a time.
/// The thread that builds the job (the owner's thread) calls its members and needs an event loop.
class ExportJob {
public:
    explicit ExportJob(ExportTools tools = platformExportTools());
    /// Cancels the export and waits for its end: a few milliseconds, or up to a tenth of a second
    /// while time/pitch warms up. If a disk hangs, the export is abandoned after a quarter of a
    /// second, and ends without a file when the disk answers. `finished` is not called any more.
    ~ExportJob();
    ExportJob(const ExportJob &) = delete;
    ExportJob &operator=(const ExportJob &) = delete;

    /// Begins an export. `finished` gets the status of exportSong() on the owner's thread; it may
    /// begin the next export, but not destroy the job. False if an export runs already, or if the
    /// system cannot start a thread; `finished` is not called then.
    [[nodiscard]] bool start(ExportRequest request, std::function<void(Status)> finished);

    /// Cancels the export. Does not wait for its end. `finished` is not called. If the new file was
    /// just being flushed to the disk, it may still appear, complete.
    void cancel();

    bool isRunning() const { return m_current.has_value(); }

    /// From 0 to 1. Any thread.
    double progress() const { return m_progress->load(std::memory_order_relaxed); }

private:
    ExportTools m_tools;
    std::shared_ptr<std::atomic<double>> m_progress; ///< of the export that was started last
    std::optional<BackgroundRunner::Job> m_current;
    BackgroundRunner m_runner; ///< the last member, so that the others outlive its thread
};

} // namespace lyrabox
