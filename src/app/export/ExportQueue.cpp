#include "app/export/ExportQueue.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

bool hasEnded(const ExportQueue::Entry &entry)
{
    return entry.state == ExportQueue::State::Done || entry.state == ExportQueue::State::Failed;
}

} // namespace

ExportQueue::ExportQueue(ExportTools tools, QObject *parent)
    : QObject(parent), m_job(std::move(tools))
{
    NotificationCenter::defaultCenter().addObserver(this, notification::applicationWillTerminate,
                                                    [this] { cancelAll(); });
}

ExportQueue::Id ExportQueue::add(ExportRequest request)
{
    m_entries.push_back({.id = ++m_lastId, .request = std::move(request)});
    const Id id = m_lastId;
    beginNext();
    Q_EMIT changed();
    return id;
}

void ExportQueue::cancel(Id id)
{
    const auto entry = std::ranges::find(m_entries, id, &Entry::id);
    if (entry == m_entries.end() || hasEnded(*entry))
        return;
    if (entry->state == State::Running)
        m_job.cancel();
    m_entries.erase(entry);
    beginNext();
    Q_EMIT changed();
}

void ExportQueue::cancelAll()
{
    m_job.cancel();
    if (std::erase_if(m_entries, [](const Entry &entry) { return !hasEnded(entry); }) > 0)
        Q_EMIT changed();
}

void ExportQueue::removeEnded()
{
    if (std::erase_if(m_entries, &hasEnded) > 0)
        Q_EMIT changed();
}

bool ExportQueue::isBusy() const
{
    return !std::ranges::all_of(m_entries, &hasEnded);
}

bool ExportQueue::willWrite(const QString &target) const
{
    return std::ranges::any_of(m_entries, [&target](const Entry &entry) {
        return !hasEnded(entry) && entry.request.target == target;
    });
}

void ExportQueue::beginNext()
{
    while (!m_job.isRunning()) {
        const auto next = std::ranges::find(m_entries, State::Waiting, &Entry::state);
        if (next == m_entries.end())
            return;
        const Id id = next->id;
        next->state = State::Running;
        if (!m_job.start(next->request, [this, id](Status status) { end(id, status); }))
            end(id, status::unspecified); // the system has no thread for it
    }
}

void ExportQueue::end(Id id, Status status)
{
    const auto entry = std::ranges::find(m_entries, id, &Entry::id);
    if (entry == m_entries.end())
        return;
    entry->state = status == status::noError ? State::Done : State::Failed;
    entry->status = status;
    const QString target = entry->request.target;
    beginNext();
    Q_EMIT changed();
    if (status != status::noError)
        Q_EMIT failed(target, status);
}

} // namespace lyrabox
