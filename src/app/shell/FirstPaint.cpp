#include "app/shell/FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace lyrabox {

namespace {

/// Waits for the first paint event of its parent window, runs the work and deletes itself.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget *window, std::function<void()> work, std::chrono::milliseconds timeout)
        : QObject(window), m_work(std::move(work))
    {
        window->installEventFilter(this);
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout(this, [this] {
            deleteLater();
            m_work();
        });
        m_timer.start(timeout);
    }

    bool eventFilter(QObject *window, QEvent *event) override
    {
        // The children are painted within the same event, so the work waits for the next one.
        if (event->type() == QEvent::Paint) {
            window->removeEventFilter(this);
            m_timer.start(0);
        }
        return QObject::eventFilter(window, event);
    }

private:
    std::function<void()> m_work;
    QTimer m_timer;
};

} // namespace

void afterFirstPaint(QWidget *window, std::function<void()> work, std::chrono::milliseconds timeout)
{
    new FirstPaint(window, std::move(work), timeout);
}

} // namespace lyrabox
