#pragma once

#include <QObject>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <type_traits>
#include <utility>

namespace lyrabox {

/// Runs jobs on one background thread, one after another, in the order in which they were given.
/// The thread starts with the first job and sleeps while there is none. The destructor cancels all
/// jobs and joins the thread.
///
/// run(), cancel(), cancelAll() and wait() may be called from any thread, also by a job. Results
/// arrive on the thread that built the runner (the owner's thread), which needs an event loop for
/// that. The runner is destroyed on the owner's thread as well, but not from within a delivery. If
/// no job delivers a result, it may be built and destroyed on any two threads.
class BackgroundRunner : public QObject {
    Q_OBJECT

public:
    /// How the thread competes for processor time.
    enum class Priority {
        Low,   ///< nice 10, so that the rest of the program comes first; inherited by its threads
        Normal ///< same as the thread that gave the first job
    };

    /// Identifies a job of one runner.
    using Job = std::uint64_t;

    explicit BackgroundRunner(Priority priority = Priority::Low, QObject *parent = nullptr);

    /// Cancels all jobs and waits for the end of the one that runs, so a long job should check its
    /// stop token often. No more results are delivered.
    ~BackgroundRunner() override;

    /// Gives the runner a job. `work` is called as work(const std::stop_token &) on the background
    /// thread; the token says when the job was cancelled. `deliver` then takes what `work` returned
    /// (nothing for void) on the owner's thread, through its event loop, unless the job was
    /// cancelled before. `work` must not throw. Both functions own what they use; they may be
    /// destroyed on either thread.
    ///
    /// None if the system cannot start a thread. Then neither function is ever called; the caller
    /// does the work itself or leaves it.
    template <typename Work, typename Deliver>
    [[nodiscard]] std::optional<Job> run(Work work, Deliver deliver)
    {
        using Result = std::invoke_result_t<Work &, const std::stop_token &>;
        // Shared, because a std::function can be copied only if what it holds can.
        const auto functions =
            std::make_shared<std::pair<Work, Deliver>>(std::move(work), std::move(deliver));
        if constexpr (std::is_void_v<Result>) {
            return enqueue([functions](const std::stop_token &stop) -> Delivery {
                functions->first(stop);
                return [functions] { functions->second(); };
            });
        } else {
            return enqueue([functions](const std::stop_token &stop) -> Delivery {
                const auto result = std::make_shared<Result>(functions->first(stop));
                return [functions, result] { functions->second(std::move(*result)); };
            });
        }
    }

    /// The same for work without a result.
    template <typename Work>
    [[nodiscard]] std::optional<Job> run(Work work)
    {
        const auto shared = std::make_shared<Work>(std::move(work));
        return enqueue([shared](const std::stop_token &stop) -> Delivery {
            (*shared)(stop);
            return {};
        });
    }

    /// Cancels a job. A job that has not begun never will. A running job sees it in its stop token;
    /// this call does not wait for its end. After a call on the owner's thread the job's result is
    /// not delivered. Does nothing if the job is over.
    void cancel(Job job);

    /// Cancels every job given so far.
    void cancelAll();

    /// Waits until the work of a job has ended, or until it was cancelled before it began. The
    /// result may still be on its way through the event loop. A job must not wait for itself.
    void wait(Job job);

Q_SIGNALS:
    /// One more result waits for the owner's thread. Only the runner itself listens.
    void resultReady(QPrivateSignal);

private:
    using Delivery = std::function<void()>;
    using Task = std::function<Delivery(const std::stop_token &)>;

    [[nodiscard]] std::optional<Job> enqueue(Task task);
    void serve();
    std::optional<std::pair<Task, std::stop_token>> beginNext();
    void end(Delivery delivery);
    void deliverNext();
    std::stop_source stopCurrent();
    bool isPending(Job job) const;

    const Priority m_priority;
    std::stop_source m_end; ///< tells the thread to leave

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_added;
    std::condition_variable m_ended;
    std::deque<std::pair<Job, Task>> m_waiting;
    std::deque<std::pair<Job, Delivery>> m_results;
    std::optional<Job> m_current; ///< whose work runs now
    std::stop_source m_currentStop;
    bool m_currentIsWanted = false; ///< false once it was cancelled
    Job m_lastJob = 0;
    std::jthread m_thread;
};

} // namespace lyrabox
