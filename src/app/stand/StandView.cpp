#include "app/stand/StandView.h"

#include "app/practice/Metronome.h"
#include "app/practice/PracticePane.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "engine/LB_AudioController.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"

#include <QKeyEvent>

#include <chrono>

using namespace std::chrono_literals;

namespace lyrabox {

namespace {
constexpr auto motionInterval = 33ms; // A beat is shown at most this late.
} // namespace

StandView::StandView(const StandSource &source, QWidget *parent)
    : QWidget(parent, Qt::Window), m_source(source)
{
    setObjectName(QStringLiteral("standView"));
    setWindowTitle(tr("Stand View"));
    setAccessibleName(tr("Stand View"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::BlankCursor);
    setMinimumSize(320, 200);
    m_motion.setInterval(motionInterval);
    m_motion.setTimerType(Qt::PreciseTimer);
    connect(&m_motion, &QTimer::timeout, this, &StandView::showNow);
    follow();
}

void StandView::follow()
{
    const auto show = [this] { showNow(); };
    const LB_AudioController *audio = m_source.audio();
    SongPractice *practice = m_source.practice();
    connect(audio, &LB_AudioController::loopChanged, this, show);
    connect(audio, &LB_AudioController::speedOrPitchChanged, this, show);
    connect(audio, &LB_AudioController::positionSet, this, show);
    connect(audio, &LB_AudioController::runningChanged, this, show);
    connect(practice, &SongPractice::calledUpChanged, this, show);
    connect(&practice->store(), &PracticeStore::recordChanged, this, show);
    connect(m_source.metronome(), &Metronome::changed, this, show);
    connect(m_source.pane()->trainer(), &TrainerRun::changed, this, show);
    NotificationCenter::defaultCenter().addObserver(this, notification::currentTrackChanged, show);
}

void StandView::updateMotion()
{
    const bool moves = isVisible() && m_source.audio()->isRunning();
    if (moves && !m_motion.isActive())
        m_motion.start();
    else if (!moves)
        m_motion.stop();
}

void StandView::showNow()
{
    if (!isVisible())
        return;
    updateMotion();
    StandPage page = standText::page(m_source.facts());
    if (page == m_page)
        return;
    m_page = std::move(page);
    if (const QString spoken = standText::spoken(m_page); spoken != accessibleDescription())
        setAccessibleDescription(spoken);
    update();
}

void StandView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showNow();
    if (!event->spontaneous())
        Q_EMIT shownChanged(true);
}

void StandView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_motion.stop();
    if (!event->spontaneous())
        Q_EMIT shownChanged(false);
}

void StandView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void StandView::mouseDoubleClickEvent(QMouseEvent *)
{
    close();
}

} // namespace lyrabox
