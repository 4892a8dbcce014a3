#pragma once

#include "export/ExportJob.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <vector>

namespace lyrabox {

/// Exports that run one after the other, in the background. When the program ends, those that are
/// not done are cancelled; they leave no file. Main thread.
class ExportQueue : public QObject {
    Q_OBJECT

public:
    using Id = std::uint64_t;
    enum class State { Waiting, Running, Done, Failed };

    /// One export.
    struct Entry {
        Id id = 0;
        ExportRequest request;
        State state = State::Waiting;
        Status status = status::noError; ///< of one that has ended
    };

    explicit ExportQueue(ExportTools tools = platformExportTools(), QObject *parent = nullptr);

    /// Appends an export. It begins when those before it have ended.
    Id add(ExportRequest request);
    /// Cancels an export that waits or runs. It leaves no file and no entry.
    void cancel(Id id);
    void cancelAll();
    /// Forgets the exports that have ended.
    void removeEnded();

    /// In the order in which they were added.
    const std::vector<Entry> &entries() const { return m_entries; }
    /// Whether one waits or runs.
    bool isBusy() const;
    /// Of the export that runs, from 0 to 1.
    double progress() const { return m_job.progress(); }
    /// Whether an export that waits or runs will write this file.
    bool willWrite(const QString &target) const;

Q_SIGNALS:
    /// An entry was added, removed, or has another state.
    void changed();
    /// An export could not be written.
    void failed(const QString &target, lyrabox::Status status);

private:
    void beginNext();
    void end(Id id, Status status);

    std::vector<Entry> m_entries;
    Id m_lastId = 0;
    ExportJob m_job;
};

} // namespace lyrabox
