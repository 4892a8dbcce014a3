#pragma once

#include <QList>
#include <QLockFile>
#include <QObject>
#include <QUrl>

#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace lyrabox {

/// Makes sure that only one process per settings folder runs. The first process holds a lock in the
/// folder and listens on a local socket. A later process asks the first one to come to the front,
/// sends it the files to open, and ends.
///
/// The first process listens on its own thread. It answers as soon as it has received a request,
/// even while its main thread is busy; the main thread opens the files later. All functions belong
/// to the main thread.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    enum class Role {
        First,      ///< continue: this process holds the lock
        Second,     ///< end: the first process has accepted the request
        Unanswered, ///< end: the first process does not answer, and nothing was opened
    };

    /// `folder` is the path of the settings folder, which must exist. If it is not writable, every
    /// process counts as the first, since none can write settings there.
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    ~SingleInstance() override;

    /// What a later process asks the first one to do.
    struct Request {
        QList<QUrl> urls;        ///< To open.
        QString activationToken; ///< Lets the first process raise its window. May be empty.
        bool operator==(const Request &) const = default;
    };

    /// Becomes the first process, or sends `request` to the first process. Blocks for about 3 s at
    /// most.
    Role claim(const Request &request = {});

    /// Sets the function that handles requests of other processes. It is called on the main thread.
    /// Requests that arrived earlier are handled at once.
    void setHandler(std::function<void(const Request &request)> handler);

Q_SIGNALS:
    /// A request has arrived. Sent by the listener's thread.
    void requestArrived();

private:
    void listen();
    void handleRequests();
    bool ask(const Request &request) const;

    QString m_socketName;
    QLockFile m_lock;
    std::function<void(const Request &request)> m_handler;
    std::mutex m_mutex;
    std::vector<Request> m_requests; ///< Guarded by the mutex; not handled yet.
    QObject *m_listener = nullptr;   ///< Guarded by the mutex; deleteLater() ends its thread.
    std::jthread m_thread;           ///< The listener's; last, so that it is joined first.
};

} // namespace lyrabox
