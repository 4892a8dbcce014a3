#include "platform/foundation/NotificationCenter.h"

#include <algorithm>

namespace lyrabox {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::addObserver(const QObject *context, const QString &name, Handler handler)
{
    const bool known = std::any_of(m_observers.begin(), m_observers.end(),
                                   [context](const Observer &o) { return o.context == context; });
    if (!known)
        QObject::connect(context, &QObject::destroyed,
                         [this, context] { removeObserver(context); });
    m_observers.push_back({context, name, std::move(handler), m_nextId++});
}

void NotificationCenter::removeObserver(const QObject *context)
{
    std::erase_if(m_observers, [context](const Observer &o) { return o.context == context; });
}

void NotificationCenter::post(const QString &name)
{
    std::vector<quint64> due;
    for (const Observer &observer : m_observers) {
        if (observer.name == name)
            due.push_back(observer.id);
    }
    for (const quint64 id : due) {
        const auto found = std::find_if(m_observers.begin(), m_observers.end(),
                                        [id](const Observer &o) { return o.id == id; });
        if (found == m_observers.end())
            continue;
        const Handler handler = found->handler; // a copy: the handler may remove its own observer
        handler();
    }
}

void NotificationCenter::postCoalescingOnName(const QString &name)
{
    if (std::find(m_posting.begin(), m_posting.end(), name) != m_posting.end()) {
        if (std::find(m_pending.begin(), m_pending.end(), name) == m_pending.end())
            m_pending.push_back(name);
        return;
    }
    m_posting.push_back(name);
    post(name);
    while (std::erase(m_pending, name) > 0)
        post(name);
    std::erase(m_posting, name);
}

} // namespace lyrabox
