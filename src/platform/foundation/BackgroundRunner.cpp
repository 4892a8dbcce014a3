#include "platform/foundation/BackgroundRunner.h"

#include "platform/foundation/Machine.h"

#include <algorithm>
#include <iterator>

#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace lyrabox {

namespace {

constexpr int lowNiceness = 10;

/// On Linux every thread has its own nice value. If the program's is higher already, the thread
/// keeps it: root could change it, but must not.
void lowerPriorityOfThisThread()
{
    const auto thread = static_cast<id_t>(gettid());
    if (getpriority(PRIO_PROCESS, thread) < lowNiceness)
        setpriority(PRIO_PROCESS, thread, lowNiceness);
}

/// Removes the entry of `job` from a queue and returns it. The caller destroys it after unlocking
/// the mutex, because destroying a job's functions may run any code.
template <typename Queue>
std::optional<typename Queue::value_type> taken(Queue &queue, BackgroundRunner::Job job)
{
    const auto found = std::find_if(queue.begin(), queue.end(),
                                    [job](const auto &entry) { return entry.first == job; });
    if (found == queue.end())
        return std::nullopt;
    std::optional<typename Queue::value_type> entry(std::move(*found));
    queue.erase(found);
    return entry;
}

} // namespace

BackgroundRunner::BackgroundRunner(Priority priority, QObject *parent)
    : QObject(parent), m_priority(priority)
{
    // The signal carries no data. Results cross between the threads under the mutex.
    connect(this, &BackgroundRunner::resultReady, this, &BackgroundRunner::deliverNext,
            Qt::QueuedConnection);
}

BackgroundRunner::~BackgroundRunner()
{
    {
        const std::lock_guard lock(m_mutex);
        m_end.request_stop();
    }
    cancelAll();
    m_added.notify_one();
    if (m_thread.joinable())
        m_thread.join();
}

std::optional<BackgroundRunner::Job> BackgroundRunner::enqueue(Task task)
{
    const std::lock_guard lock(m_mutex);
    if (!m_thread.joinable())
        m_thread = startThread([this] { serve(); });
    if (!m_thread.joinable())
        return std::nullopt;
    m_waiting.emplace_back(++m_lastJob, std::move(task));
    m_added.notify_one();
    return m_lastJob;
}

void BackgroundRunner::cancel(Job job)
{
    std::unique_lock lock(m_mutex);
    const auto task = taken(m_waiting, job);
    const auto result = taken(m_results, job);
    std::stop_source stop = m_current == job ? stopCurrent() : std::stop_source(std::nostopstate);
    m_ended.notify_all();
    lock.unlock();
    stop.request_stop();
}

/// Makes sure that no result of the current job is delivered. The caller unlocks the mutex before
/// it requests the stop, because a stop calls the job's own stop callbacks.
std::stop_source BackgroundRunner::stopCurrent()
{
    m_currentIsWanted = false;
    return m_currentStop;
}

void BackgroundRunner::cancelAll()
{
    std::unique_lock lock(m_mutex);
    const auto tasks = std::exchange(m_waiting, {});
    const auto results = std::exchange(m_results, {});
    std::stop_source stop = m_current ? stopCurrent() : std::stop_source(std::nostopstate);
    m_ended.notify_all();
    lock.unlock();
    stop.request_stop();
}

void BackgroundRunner::wait(Job job)
{
    std::unique_lock lock(m_mutex);
    m_ended.wait(lock, [this, job] { return !isPending(job); });
}

bool BackgroundRunner::isPending(Job job) const
{
    return m_current == job || std::any_of(m_waiting.begin(), m_waiting.end(),
                                           [job](const auto &entry) { return entry.first == job; });
}

void BackgroundRunner::serve()
{
    pthread_setname_np(pthread_self(), "background");
    if (m_priority == Priority::Low)
        lowerPriorityOfThisThread();
    while (auto next = beginNext()) {
        const auto &[task, stop] = *next;
        Delivery delivery = task(stop);
        next.reset(); // destroys the work before its end is reported
        end(std::move(delivery));
    }
}

/// Waits for a job and makes it the current one. None if the runner is being destroyed.
std::optional<std::pair<BackgroundRunner::Task, std::stop_token>> BackgroundRunner::beginNext()
{
    std::unique_lock lock(m_mutex);
    m_added.wait(lock, [this] { return m_end.stop_requested() || !m_waiting.empty(); });
    if (m_end.stop_requested())
        return std::nullopt;
    auto [job, task] = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_current = job;
    m_currentStop = std::stop_source();
    m_currentIsWanted = true;
    return std::pair(std::move(task), m_currentStop.get_token());
}

/// Ends the current job and queues its delivery, if it has one.
void BackgroundRunner::end(Delivery delivery)
{
    const std::lock_guard lock(m_mutex);
    const Job job = *std::exchange(m_current, std::nullopt);
    m_ended.notify_all();
    if (!delivery || !m_currentIsWanted)
        return;
    m_results.emplace_back(job, std::move(delivery));
    Q_EMIT resultReady(QPrivateSignal());
}

void BackgroundRunner::deliverNext()
{
    std::unique_lock lock(m_mutex);
    if (m_results.empty())
        return; // cancelled after the signal was sent
    const Delivery deliver = std::move(m_results.front().second);
    m_results.pop_front();
    lock.unlock();
    deliver();
}

} // namespace lyrabox
