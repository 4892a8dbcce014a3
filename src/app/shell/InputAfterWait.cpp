#include "app/shell/InputAfterWait.h"

#include "platform/ui/StateButton.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <utility>

namespace lyrabox {

using namespace std::chrono_literals;

namespace {

constexpr auto reactionTime = 100ms;

} // namespace

InputAfterWait::InputAfterWait(StateButton *playButton, QWidget *songs, ProgressClock clock)
    : m_songs(songs), m_clock(std::move(clock)), m_stateBefore(playButton->state())
{
    // Queued, because the user has not yet seen the effect of the press that starts the wait.
    connect(
        playButton, &StateButton::stateChanged, this, [this](int state) { m_stateBefore = state; },
        Qt::QueuedConnection);
    m_settleTimer.setSingleShot(true);
    connect(&m_settleTimer, &QTimer::timeout, this, [this] {
        if (!m_busy) {
            settle();
            return;
        }
        // The event loop runs again. All input from the wait arrives in its first round, before or
        // after this timer.
        m_busy = !std::exchange(m_hasRun, true);
        if (m_busy) {
            m_settleTimer.start(0ms);
            return;
        }
        m_end = m_clock() + reactionTime;
        m_settleTimer.start(reactionTime);
    });
}

InputAfterWait::~InputAfterWait() = default;

void InputAfterWait::noteWork(Work work)
{
    if (!m_songs->isVisible())
        return; // during the start there is no input yet
    if (!isFromWait()) {
        m_showedPlay = m_stateBefore == 0;
        m_listChanged = false;
        m_loaded = false;
        m_dropsEscape = false;
        qApp->installEventFilter(this);
    }
    m_settling = true;
    m_busy = true;
    m_hasRun = false;
    (work == Work::List ? m_listChanged : m_loaded) = true;
    m_settleTimer.start(0ms);
}

bool InputAfterWait::isFromWait() const
{
    return m_settling && (m_busy || m_clock() < m_end);
}

bool InputAfterWait::pressMeansPlay()
{
    if (!isFromWait())
        return false;
    if (m_picked)
        std::exchange(m_picked, {})();
    return m_showedPlay;
}

void InputAfterWait::pick(const TrackRecordRef &track, const TrackRecordRef &loaded,
                          std::function<void()> play)
{
    if (!isFromWait())
        play();
    else if (m_loaded && track == loaded)
        m_picked = {};
    else
        m_picked = std::move(play);
}

void InputAfterWait::settle()
{
    m_settleTimer.stop();
    m_settling = false;
    m_busy = false;
    qApp->removeEventFilter(this);
    if (m_picked)
        std::exchange(m_picked, {})();
}

bool InputAfterWait::isOnSongs(const QObject *watched) const
{
    return watched->isWidgetType() &&
           (watched == m_songs || m_songs->isAncestorOf(static_cast<const QWidget *>(watched)));
}

bool InputAfterWait::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool hasStoppedWork = m_dropsEscape && key->key() == Qt::Key_Escape;
        if (!(hasStoppedWork || key->isAutoRepeat()) || !isFromWait())
            return false;
        event->accept(); // so that no shortcut gets it either
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        // Clicks are dropped only in the first round. After it, the new list may be on the screen.
        return m_listChanged && m_busy && isOnSongs(watched);
    default:
        return false;
    }
}

} // namespace lyrabox
