#include "app/practice/BeatPage.h"

#include "app/practice/BarText.h"
#include "app/practice/BeatMarks.h"
#include "app/practice/SongBeats.h"
#include "app/practice/TextButton.h"
#include "app/practice/WaveView.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr int gap = 4;
constexpr int rowGap = 6;
constexpr int tempoWidth = 62;
constexpr int barWidth = 34;

void setQuiet(QLabel *label)
{
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
}

QHBoxLayout *makeRow()
{
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    return row;
}

} // namespace

QString beatRemarkText(SongBeats::Remark remark)
{
    using Remark = SongBeats::Remark;
    switch (remark) {
    case Remark::None:
        break;
    case Remark::NotPlaying:
        return BeatPage::tr("Play the song, and tap along with it.");
    case Remark::TooFewPlaces:
        return BeatPage::tr("Tap along with at least four different beats.");
    case Remark::TooSlow:
        return BeatPage::tr("These taps are slower than %1 BPM. Tap every beat.")
            .arg(TapLimits::slowest);
    case Remark::TooFast:
        return BeatPage::tr("These taps are faster than %1 BPM. Tap every second one.")
            .arg(TapLimits::fastest);
    case Remark::Uneven:
        return BeatPage::tr("These taps are uneven. Wait a moment, and begin again at the first "
                            "beat of a bar.");
    case Remark::NoSuchTempo:
        return BeatPage::tr("The song has no beats of this tempo. Tap them instead.");
    case Remark::Refused:
        return BeatPage::tr("The beats of this song cannot be changed.");
    }
    return {};
}

QString beatStateText(const SongBeats &beats)
{
    if (QString remark = beatRemarkText(beats.remark()); !remark.isEmpty())
        return remark;
    const TapSeries &taps = beats.taps();
    if (taps.count() > 0 && !taps.isComplete())
        return BeatPage::tr("Tap %1 of %2 …").arg(taps.count()).arg(TapSeries::needed);
    if (beats.isListening())
        return BeatPage::tr("Listening to the song …");
    if (!beats.grid().isEmpty()) {
        const std::size_t lost = beats.lostParts().size();
        if (lost == 0)
            return BeatPage::tr("The beats of the whole song are known.");
        return BeatPage::tr("Where the wave is hatched, the beats are not known. Tap there, too.");
    }
    if (!beats.suggestion().isEmpty())
        return BeatPage::tr("About %1 BPM. Use this, or tap eight beats from a first beat on.")
            .arg(qRound(beats.suggestedTempo()));
    if (!beats.canChange())
        return {};
    return BeatPage::tr("Tap eight beats along with the song. Begin at the first beat of a bar.");
}

BeatPage::BeatPage(SongBeats *beats, const WaveView *wave, const MakeButton &makeButton,
                   QWidget *parent)
    : QWidget(parent),
      m_beats(beats),
      m_wave(wave),
      m_state(new QLabel(this)),
      m_tempo(new NumberField(this)),
      m_shorter(new TextButton(QStringLiteral("‹"), this)),
      m_bar(new NumberField(this)),
      m_longer(new TextButton(QStringLiteral("›"), this)),
      m_fromHere(new TextButton({}, this))
{
    setObjectName(QStringLiteral("beatPage"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(rowGap);
    column->addLayout(makeTapRow(makeButton));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_state->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_state->setFixedHeight(2 * m_state->fontMetrics().lineSpacing());
    setQuiet(m_state);
    column->addWidget(m_state);
    column->addLayout(makeTempoRow(makeButton));
    column->addLayout(makeBarRow());
    auto *places = makeRow();
    auto *label = new QLabel(tr("First beat"), this);
    setQuiet(label);
    places->addWidget(label, 1);
    places->addWidget(makeButton(QStringLiteral("‹"), PracticeCommand::ShiftBars, -1));
    places->addWidget(makeButton(QStringLiteral("›"), PracticeCommand::ShiftBars, 1));
    column->addLayout(places);
    column->addStretch(1);

    connect(beats, &SongBeats::changed, this, &BeatPage::showState);
    connect(beats, &SongBeats::stateChanged, this, &BeatPage::showState);
    connect(wave, &WaveView::lineMoved, this, &BeatPage::showPlace);
    showState();
}

QLayout *BeatPage::makeTapRow(const MakeButton &makeButton)
{
    QHBoxLayout *row = makeRow();
    row->addWidget(makeButton(tr("Tap"), PracticeCommand::Tap, 0));
    row->addWidget(makeButton(tr("Use"), PracticeCommand::UseSuggestion, 0));
    row->addStretch(1);
    row->addWidget(makeButton(tr("Clear"), PracticeCommand::ClearBeats, 0));
    return row;
}

QLayout *BeatPage::makeTempoRow(const MakeButton &makeButton)
{
    QHBoxLayout *row = makeRow();
    auto *label = new QLabel(tr("Tempo"), this);
    setQuiet(label);
    row->addWidget(label, 1);
    m_tempo->setFixedSize(tempoWidth, Theme::controlHeight);
    m_tempo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_tempo->setAccessibleName(tr("Tempo of the song in beats per minute"));
    m_tempo->setToolTip(m_tempo->accessibleName());
    m_tempo->setLimits(static_cast<float>(TapLimits::slowest),
                       static_cast<float>(TapLimits::fastest));
    connect(m_tempo, &NumberField::entered, this, &BeatPage::enterTempo);
    row->addWidget(m_tempo);
    row->addWidget(makeButton(QStringLiteral("÷2"), PracticeCommand::HalfTempo, 0));
    row->addWidget(makeButton(QStringLiteral("×2"), PracticeCommand::DoubleTempo, 0));
    row->addWidget(makeButton(QStringLiteral("×3/2"), PracticeCommand::ThreeHalvesTempo, 0));
    return row;
}

QLayout *BeatPage::makeBarRow()
{
    QHBoxLayout *row = makeRow();
    auto *label = new QLabel(tr("Meter"), this);
    setQuiet(label);
    row->addWidget(label, 1);
    row->addWidget(m_fromHere);
    row->addSpacing(gap);
    m_fromHere->setCheckable(true);
    m_fromHere->setAccessibleName(tr("Change the bars only from the bar at the line on"));
    m_fromHere->setToolTip(m_fromHere->accessibleName());
    connect(m_fromHere, &QAbstractButton::toggled, this, &BeatPage::showPlace);
    m_shorter->setAccessibleName(tr("One beat less per bar"));
    m_longer->setAccessibleName(tr("One beat more per bar"));
    m_bar->setFixedSize(barWidth, Theme::controlHeight);
    m_bar->setAlignment(Qt::AlignCenter);
    m_bar->setAccessibleName(tr("Beats per bar"));
    m_bar->setToolTip(m_bar->accessibleName());
    m_bar->setLimits(BeatGrid::shortestBar, BeatGrid::longestBar);
    row->addWidget(m_shorter);
    row->addWidget(m_bar);
    row->addWidget(m_longer);
    connect(m_shorter, &QAbstractButton::clicked, this, [this] { setBar(m_shownLength - 1); });
    connect(m_longer, &QAbstractButton::clicked, this, [this] { setBar(m_shownLength + 1); });
    connect(m_bar, &NumberField::entered, this, [this] { setBar(qRound(m_bar->floatValue())); });
    return row;
}

QString BeatPage::stateText() const
{
    return m_state->text();
}

/// The frame at the line.
std::uint64_t BeatPage::place() const
{
    return static_cast<std::uint64_t>(std::max(0.0, std::round(m_wave->line())));
}

/// Of the song at the line. None without beats.
std::optional<double> BeatPage::tempo() const
{
    if (!m_beats->grid().isEmpty())
        return m_beats->grid().tempoAt(static_cast<double>(place()));
    if (!m_beats->suggestion().isEmpty())
        return m_beats->suggestedTempo();
    return std::nullopt;
}

void BeatPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    showState();
}

void BeatPage::showState()
{
    if (const QString text = beatStateText(*m_beats); text != m_state->text()) {
        m_state->setText(text);
        m_state->setToolTip(text);
    }
    const bool canChange = m_beats->canChange();
    m_tempo->setEnabled(canChange);
    m_bar->setEnabled(canChange);
    m_shownTempo = m_shownLength = m_shownBar = -1;
    showPlace();
}

/// Shows the tempo and the bar at the line. Called 60 times a second.
void BeatPage::showPlace()
{
    if (!isVisible() && m_shownLength > 0)
        return;
    const double tempo = this->tempo().value_or(0.0);
    if (tempo != m_shownTempo && !m_tempo->hasFocus()) {
        m_shownTempo = tempo;
        if (tempo > 0.0)
            m_tempo->setFloatValue(static_cast<float>(tempo));
        else
            m_tempo->clear();
    }
    const BeatGrid &grid = m_beats->grid();
    const bool hasBeats = !grid.isEmpty();
    const int length = m_beats->beatsPerBar(place());
    if (length != m_shownLength) {
        m_shownLength = length;
        m_bar->setFloatValue(static_cast<float>(length));
        m_shorter->setEnabled(m_beats->canChange() && length > BeatGrid::shortestBar);
        m_longer->setEnabled(m_beats->canChange() && length < BeatGrid::longestBar);
    }
    const int bar = hasBeats ? std::max(1, grid.placeAt(static_cast<double>(place())).bar) : 0;
    if (bar != m_shownBar) {
        m_shownBar = bar;
        m_fromHere->setText(hasBeats ? tr("from bar %1").arg(bar) : tr("from here"));
        m_fromHere->setEnabled(hasBeats);
        m_fromHere->updateGeometry();
    }
}

void BeatPage::enterTempo()
{
    m_shownTempo = -1.0; // What is found may be a little different.
    m_beats->setTempo(static_cast<double>(m_tempo->floatValue()));
}

void BeatPage::setBar(int beats)
{
    const bool fromHere = m_fromHere->isChecked() && m_fromHere->isEnabled();
    m_beats->setBeatsPerBar(std::clamp(beats, BeatGrid::shortestBar, BeatGrid::longestBar),
                            fromHere ? std::optional(place()) : std::nullopt);
    showState();
}

} // namespace lyrabox
