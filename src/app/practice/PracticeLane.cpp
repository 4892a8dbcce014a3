#include "app/practice/PracticeLane.h"

#include "app/practice/LoopListModel.h"
#include "app/practice/SongPeaks.h"
#include "app/practice/WaveColors.h"
#include "app/practice/WaveView.h"
#include "platform/ui/Theme.h"
#include "practice/PracticeStore.h"

#include <QFontMetricsF>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

using laneLayout::Hit;
using loopHands::Grip;

namespace {
constexpr double dragDistance = 3.0; // points; less is a click
}

PracticeLane::PracticeLane(WaveView *wave, SongPeaks *peaks, PracticeStore *store)
    : QWidget(wave), m_wave(wave), m_peaks(peaks), m_store(store)
{
    setAccessibleName(tr("Loops and markers above the wave"));
    setMouseTracking(true);
    setLayoutDirection(Qt::LeftToRight); // as the wave
    setGeometry(0, 0, wave->width(), WaveView::laneHeight);
    wave->installEventFilter(this);
    connect(store, &PracticeStore::recordChanged, this, &PracticeLane::showRecord);
    connect(peaks, &SongPeaks::songChanged, this, [this] {
        endPress();
        update();
    });
    show();
}

void PracticeLane::setCalledUp(std::optional<PracticeId> id)
{
    m_calledUp = id;
    showColor();
    update();
}

void PracticeLane::showRecord()
{
    m_names.clear();
    if (m_press && m_press->hit.kind == Hit::Kind::Loop &&
        m_store->record().loop(m_press->hit.id) == nullptr)
        endPress();
    if (m_press && m_press->hit.kind == Hit::Kind::Marker &&
        m_store->record().marker(m_press->hit.id) == nullptr)
        endPress();
    showColor();
    update();
}

/// The ends of the loop that sounds have the colour of its bracket.
void PracticeLane::showColor()
{
    const PracticeLoop *loop = m_calledUp ? m_store->record().loop(*m_calledUp) : nullptr;
    m_wave->setLoopColor(waveColors::loopColor(loop != nullptr ? loop->colour : 1));
}

const PracticeRecord &PracticeLane::record() const
{
    return m_press && m_press->record ? *m_press->record : m_store->record();
}

std::optional<laneLayout::Sounding> PracticeLane::sounding() const
{
    const std::optional<LoopRange> loop = m_wave->shownLoop();
    if (!loop)
        return {};
    return laneLayout::Sounding{*loop, m_calledUp.value_or(0)};
}

laneLayout::Lane PracticeLane::layAt(double ratio) const
{
    if (m_peaks->frames() == 0)
        return {};
    const laneLayout::View view{m_wave->scale(), static_cast<double>(width()), ratio,
                                m_peaks->frames()};
    return laneLayout::lay(record(), view, sounding(),
                           [this](PracticeId id) { return named(id).width; });
}

QString PracticeLane::nameOf(PracticeId id) const
{
    const PracticeRecord &all = m_store->record();
    if (const PracticeMarker *marker = all.marker(id))
        return marker->name;
    const PracticeLoop *loop = all.loop(id);
    if (loop == nullptr || !loop->name.isEmpty())
        return loop != nullptr ? loop->name : QString();
    return LoopListModel::tr("Loop %1").arg(loop - all.loops.data() + 1);
}

void PracticeLane::endPress()
{
    if (!std::exchange(m_press, std::nullopt))
        return;
    m_wave->setHeld(false);
    update();
}

bool PracticeLane::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_wave && event->type() == QEvent::Resize)
        setGeometry(0, 0, m_wave->width(), WaveView::laneHeight);
    return QWidget::eventFilter(watched, event);
}

void PracticeLane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    endPress();
}

/// Whatever is left alone here goes to the wave below.
void PracticeLane::mousePressEvent(QMouseEvent *event)
{
    const Hit hit = hitAt(event->position().x());
    event->setAccepted(event->button() == Qt::LeftButton &&
                       (hit.kind == Hit::Kind::Marker || hit.kind == Hit::Kind::Loop));
    if (!event->isAccepted())
        return;
    m_press = Press{.hit = hit, .x = event->position().x()};
    m_wave->setHeld(true);
}

void PracticeLane::mouseMoveEvent(QMouseEvent *event)
{
    const double x = event->position().x();
    if (!m_press) {
        if (event->buttons() == Qt::NoButton)
            showCursor(hitAt(x));
        event->ignore();
        return;
    }
    if (!m_press->isDrag && std::abs(x - m_press->x) < dragDistance)
        return;
    m_press->isDrag = true;
    dragTo(x, m_wave->snap(event->modifiers()));
}

void PracticeLane::dragTo(double x, const loopHands::Snap &snap)
{
    const WaveScale scale = m_wave->scale();
    const SongSamples samples = m_peaks->samples();
    const double from = scale.frameAt(m_press->x);
    const double to = scale.frameAt(x);
    const PracticeRecord &before = m_store->record();
    m_press->edit.reset();
    if (const PracticeMarker *marker = before.marker(m_press->hit.id)) {
        // It keeps its distance from the pointer, which may have taken it by its name.
        PracticeMarker moved = *marker;
        const double place = static_cast<double>(moved.at) + to - from;
        moved.at = loopHands::placed(place, snap, samples);
        m_press->edit = PutMarker{moved};
    } else if (const PracticeLoop *loop = before.loop(m_press->hit.id);
               loop != nullptr && loop->isWithin(m_peaks->frames())) {
        const loopHands::Drag drag{m_press->hit.grip, from, {loop->from, loop->to}};
        if (const auto range = loopHands::dragged(drag, to, snap, samples)) {
            PracticeLoop moved = *loop;
            moved.from = range->start;
            moved.to = range->end;
            m_press->edit = PutLoop{moved};
        }
    }
    m_press->record = before;
    if (m_press->edit)
        applyEdits(*m_press->record, {*m_press->edit});
    update();
}

void PracticeLane::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_press || event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    const Press press = *m_press;
    endPress();
    if (press.isDrag) {
        if (press.edit)
            m_store->apply({*press.edit});
    } else if (press.hit.kind == Hit::Kind::Marker) {
        Q_EMIT seekRequested(press.hit.id);
    } else {
        Q_EMIT playRequested(press.hit.id);
    }
    showCursor(hitAt(event->position().x()));
}

/// Over what belongs to the wave, the wave chooses.
void PracticeLane::showCursor(const Hit &hit)
{
    if (hit.kind != Hit::Kind::Marker && hit.kind != Hit::Kind::Loop)
        unsetCursor();
    else if (hit.grip == Grip::Start || hit.grip == Grip::End)
        setCursor(Qt::SizeHorCursor);
    else
        setCursor(Qt::PointingHandCursor);
}

bool PracticeLane::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && showToolTip(*static_cast<QHelpEvent *>(event)))
        return true;
    return QWidget::event(event);
}

/// Shows the whole name. Names are untrusted, and a tool tip may be rich text.
bool PracticeLane::showToolTip(const QHelpEvent &event)
{
    const Hit hit = hitAt(event.pos().x());
    const QString name = nameOf(hit.id);
    if (name.isEmpty())
        return false;
    QToolTip::showText(event.globalPos(),
                       QStringLiteral("<span>%1</span>").arg(name.toHtmlEscaped()), this);
    return true;
}

} // namespace lyrabox
