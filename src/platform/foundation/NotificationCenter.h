#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace lyrabox {

/// Named announcements within the process, delivered at once to every observer in the order in
/// which they registered. Main thread only.
class NotificationCenter {
public:
    using Handler = std::function<void()>;

    static NotificationCenter &defaultCenter();

    /// Calls `handler` at every post of `name` until `context` is destroyed or removed. `context`
    /// is not owned and must be a live object.
    void addObserver(const QObject *context, const QString &name, Handler handler);

    /// Forgets every registration of `context`. Allowed from inside a handler.
    void removeObserver(const QObject *context);

    /// Calls the observers of `name`, those registered now. An observer added or removed meanwhile
    /// is neither called nor missed by this post.
    void post(const QString &name);

    /// Queued posting "now, coalesced on name": what is still queued under `name` is merged into
    /// this post, which takes place before the call returns. A post of the same name made from
    /// inside one of its own observers is merged into one more round after the current one.
    void postCoalescingOnName(const QString &name);

private:
    struct Observer {
        const QObject *context;
        QString name;
        Handler handler;
        quint64 id;
    };

    std::vector<Observer> m_observers;
    std::vector<QString> m_posting;
    std::vector<QString> m_pending;
    quint64 m_nextId = 1;
};

} // namespace lyrabox
