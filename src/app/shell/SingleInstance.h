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

/// Sees to it that one process per settings folder runs: the first holds a lock in the folder and
/// listens; a later one asks it to come to the front, hands over what it was to open, and ends.
///
/// The first listens on a thread of its own. It answers as soon as it has the whole request, also
/// while its main thread loads a song or builds a list; the main thread opens the files afterwards.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    enum class Role {
        First,      ///< go on; this process holds the lock
        Second,     ///< end; the first one has been asked
        Unanswered, ///< end; the first one does not answer, and what was to be opened is not
    };

    /// `folder` is the settings folder, which exists. Where it cannot be written to, every process
    /// counts as the first: nothing can be written there twice either.
    explicit SingleInstance(const QString &folder, QObject *parent = nullptr);
    ~SingleInstance() override;

    /// What a start asks the first process for.
    struct Request {
        QList<QUrl> urls;        ///< to open
        QString activationToken; ///< lets the first come to the front; empty where there is none
        bool operator==(const Request &) const = default;
    };

    /// Becomes the first, or asks the first. Blocks for 3 s at most.
    Role claim(const Request &request = {});

    /// What the first process does when another one asks; called on this object's thread. Requests
    /// until then are kept for it.
    void setHandler(std::function<void(const Request &request)> handler);

Q_SIGNALS:
    /// A request has come; sent by the listener's thread.
    void requestArrived();

private:
    void listen();
    void handleRequests();
    bool ask(const Request &request) const;

    QString m_socketName;
    QLockFile m_lock;
    std::function<void(const Request &request)> m_handler;
    std::mutex m_mutex;
    std::vector<Request> m_requests; ///< under the mutex: not handled yet
    QObject *m_listener = nullptr;   ///< under the mutex: deleting it later ends its thread
    std::jthread m_thread;           ///< the listener's; joined before the rest goes
};

} // namespace lyrabox
