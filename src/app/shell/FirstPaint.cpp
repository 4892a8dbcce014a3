#include "app/shell/FirstPaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <utility>

namespace lyrabox {

namespace {

/// A child of the window that it waits for. Gone once the work is done.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget *window, std::function<void()> work, std::chrono::milliseconds patience)
        : QObject(window), m_work(std::move(work))
    {
        window->installEventFilter(this);
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout(this, [this] {
            deleteLater();
            m_work();
        });
        m_timer.start(patience);
    }

    bool eventFilter(QObject *window, QEvent *event) override
    {
        // The window is painted first and its children within the same event of the event loop.
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

void afterFirstPaint(QWidget *window, std::function<void()> work,
                     std::chrono::milliseconds patience)
{
    new FirstPaint(window, std::move(work), patience);
}

} // namespace lyrabox
