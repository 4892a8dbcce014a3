#include "app/practice/TempoReadout.h"

#include "app/practice/BarText.h"
#include "app/practice/BeatPage.h"
#include "app/practice/SongBeats.h"
#include "app/practice/WaveView.h"
#include "engine/LB_AudioController.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double tempoSize = 18.0; // points
constexpr int fieldWidth = 90;
constexpr int narrowWave = 640; // points; then the header has little room
constexpr int mostDetail = 460; // points that a remark takes at most

/// A text that can be pressed, without a box.
class TempoButton : public QAbstractButton {
public:
    explicit TempoButton(QWidget *parent) : QAbstractButton(parent)
    {
        QFont font = uiFont(tempoSize);
        font.setBold(true);
        setFont(font);
        setFocusPolicy(Qt::TabFocus);
        setCursor(Qt::IBeamCursor);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 2 * margin, Theme::controlHeight};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        alignToDevicePixels(painter);
        painter.setPen(Theme::text);
        painter.drawText(rect().adjusted(margin, 0, -margin, 0),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
        if (hasFocus()) {
            painter.setRenderHint(QPainter::Antialiasing);
            drawFocusRing(painter, rect(), Theme::radius);
        }
    }

private:
    static constexpr int margin = 3;
};

} // namespace

TempoReadout::TempoReadout(LB_AudioController *audio, const SongBeats *beats, WaveView *wave,
                           QWidget *parent)
    : QWidget(parent),
      m_audio(audio),
      m_beats(beats),
      m_wave(wave),
      m_tempo(new TempoButton(this)),
      m_field(new NumberField(this)),
      m_detail(new ElidedLabel(this))
{
    setObjectName(QStringLiteral("practiceTempo"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    row->addWidget(m_tempo);
    row->addWidget(m_field);
    row->addWidget(m_detail);
    m_tempo->setToolTip(tr("Type a tempo"));
    m_tempo->setAccessibleDescription(m_tempo->toolTip());
    m_field->setFixedSize(fieldWidth, Theme::controlHeight);
    m_field->setAccessibleName(tr("Tempo"));
    m_field->setSuffix(tr(" BPM"));
    m_field->hide();
    m_field->installEventFilter(this);
    QPalette colors = m_detail->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    m_detail->setPalette(colors);
    m_detail->setMaximumWidth(mostDetail);

    connect(m_tempo, &QAbstractButton::clicked, this, &TempoReadout::beginEdit);
    connect(m_field, &NumberField::entered, this, &TempoReadout::enter);
    connect(audio, &LB_AudioController::speedOrPitchChanged, this, &TempoReadout::showTempo);
    connect(beats, &SongBeats::changed, this, &TempoReadout::showTempo);
    connect(beats, &SongBeats::stateChanged, this, &TempoReadout::showTempo);
    connect(wave, &WaveView::lineMoved, this, &TempoReadout::showPlace);
    wave->installEventFilter(this);
    showTempo();
}

QString TempoReadout::detailText() const
{
    return m_detail->text();
}

/// At the place that is heard.
double TempoReadout::songTempo() const
{
    return m_beats->grid().tempoAt(std::max(0.0, m_wave->line()));
}

/// The line has moved, as it does 60 times a second. The tempo is the same nearly always.
void TempoReadout::showPlace()
{
    if (!m_beats->grid().isEmpty() && (songTempo() != m_shownTempo || beatsPerBar() != m_shownBar))
        showTempo();
}

int TempoReadout::beatsPerBar() const
{
    return m_beats->beatsPerBar(static_cast<std::uint64_t>(std::max(0.0, m_wave->line())));
}

void TempoReadout::showTempo()
{
    const double speed = static_cast<double>(m_audio->playbackSpeedPct());
    const auto heard = [&](double songTempo) {
        return tr("%1 BPM").arg(barText::tempo(songTempo * speed / 100.0));
    };
    const TapSeries &taps = m_beats->taps();
    if (taps.count() > 0 && !taps.isComplete()) {
        const std::optional<double> tempo = taps.tempo();
        const QString count = tr("tap %1 of %2").arg(taps.count()).arg(TapSeries::needed);
        showTexts(tempo ? heard(*tempo) : QString(), count, count);
        return;
    }
    if (const QString remark = beatRemarkText(m_beats->remark()); !remark.isEmpty()) {
        showTexts(m_tempo->text(), remark, remark);
        return;
    }
    if (!m_beats->grid().isEmpty()) {
        const double tempo = m_shownTempo = songTempo();
        m_shownBar = beatsPerBar();
        const QString whole = tr("at %1 % · song %2 · %3/4")
                                  .arg(qRound(speed))
                                  .arg(barText::tempo(tempo))
                                  .arg(m_shownBar);
        const QString brief = tr("at %1 % of %2").arg(qRound(speed)).arg(barText::tempo(tempo));
        const QString &detail = m_wave->width() < narrowWave ? brief : whole;
        showTexts(heard(tempo), detail, tr("Tempo: %1, %2").arg(heard(tempo), whole));
        return;
    }
    if (!m_beats->suggestion().isEmpty()) {
        const QString about = tr("about %1 BPM").arg(qRound(m_beats->suggestedTempo()));
        showTexts({}, about, about);
        return;
    }
    showTexts({}, {}, {});
}

void TempoReadout::showTexts(const QString &tempo, const QString &detail, const QString &spoken)
{
    if (m_tempo->text() != tempo) {
        m_tempo->setText(tempo);
        m_tempo->updateGeometry();
    }
    if (m_tempo->accessibleName() != spoken)
        m_tempo->setAccessibleName(spoken);
    if (m_detail->text() != detail)
        m_detail->setText(detail);
    const bool isEditing = m_field->isVisibleTo(this);
    if (tempo.isEmpty() && isEditing)
        endEdit();
    m_tempo->setVisible(!tempo.isEmpty() && !isEditing);
    m_detail->setVisible(!detail.isEmpty());
    m_tempo->setEnabled(!m_beats->grid().isEmpty());
}

void TempoReadout::beginEdit()
{
    if (m_beats->grid().isEmpty())
        return;
    const double tempo = songTempo();
    const ValueRange speeds = m_audio->playbackSpeedRange();
    m_field->setLimits(static_cast<float>(tempo * speeds.minimum / 100.0),
                       static_cast<float>(tempo * speeds.maximum / 100.0));
    m_field->setFloatValue(
        static_cast<float>(tempo * static_cast<double>(m_audio->playbackSpeedPct()) / 100.0));
    m_field->show();
    m_tempo->hide();
    m_field->setFocus(Qt::OtherFocusReason);
    m_field->selectAll();
}

void TempoReadout::endEdit()
{
    if (!m_field->isVisibleTo(this))
        return;
    const bool hadKeyboard = m_field->hasFocus();
    m_field->hide();
    m_tempo->setVisible(!m_tempo->text().isEmpty());
    if (hadKeyboard && m_tempo->isVisible())
        m_tempo->setFocus(Qt::OtherFocusReason);
    showTempo();
}

/// Sets the speed that is nearest to the typed tempo.
void TempoReadout::enter()
{
    if (m_beats->grid().isEmpty())
        return;
    const double wanted = static_cast<double>(m_field->floatValue());
    const auto speed = static_cast<float>(std::round(100.0 * wanted / songTempo()));
    m_audio->setPlaybackSpeedPct(m_audio->playbackSpeedRange().clamped(speed));
}

/// The field goes when the edit ends, however it ends.
bool TempoReadout::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_wave) {
        if (event->type() == QEvent::Resize)
            showTempo();
        return false;
    }
    bool isLost = false;
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        isLost = reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
    }
    bool isKey = false;
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        isKey = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
    }
    if (isLost || isKey)
        QMetaObject::invokeMethod(this, &TempoReadout::endEdit, Qt::QueuedConnection);
    return QWidget::eventFilter(watched, event);
}

} // namespace lyrabox
