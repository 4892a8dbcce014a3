#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

namespace lyrabox {

/// Delivers named notifications within the process. post() calls the observers at once, in the
/// order in which they registered. Main thread only.
class NotificationCenter {
public:
    using Handler = std::function<void()>;

    /// The program's only center.
    static NotificationCenter &defaultCenter();

    /// Calls `handler` at every post of `name` until `context` is destroyed or removed. `context`
    /// must be alive; the center does not own it.
    void addObserver(const QObject *context, const QString &name, Handler handler);

    /// Removes every registration of `context`. May be called by a handler.
    void removeObserver(const QObject *context);

    /// Calls the observers of `name` that are registered now. An observer that a handler adds
    /// during this post is not called by it, nor is one that a handler removes before its turn.
    void post(const QString &name);

    /// Posts `name` before the call returns, unless an observer of `name` makes this call while
    /// `name` is being posted this way. Then the observers are called once more after the current
    /// round; several such calls cause one round only.
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
