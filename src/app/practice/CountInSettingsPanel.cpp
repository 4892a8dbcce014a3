#include "app/practice/CountInSettingsPanel.h"

#include "app/practice/Metronome.h"
#include "app/practice/MetronomeText.h"
#include "app/practice/TextButton.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/SegmentedControl.h"

#include <QLabel>
#include <QScopedValueRollback>

#include <cmath>

namespace lyrabox {

namespace {

constexpr int usualBeats = 4;

// The segments of the length.
constexpr int oneBar = 0;
constexpr int beatsSegment = 2;

int valueOf(const NumberField *field)
{
    return static_cast<int>(std::lround(field->floatValue()));
}

} // namespace

CountInSettingsPanel::CountInSettingsPanel(Metronome *metronome, QWidget *parent)
    : SettingsPanel(tr("Count-in"), parent), m_metronome(metronome)
{
    addLength();
    m_when = addChoice(tr("When"), {tr("At Play"), tr("Before every pass")});
    addLoop();
    for (SegmentedControl *choice : {m_length, m_when})
        connect(choice, &SegmentedControl::pressed, this, &CountInSettingsPanel::changeSettings);
    connect(m_beats, &NumberField::entered, this, &CountInSettingsPanel::changeSettings);
    connect(metronome, &Metronome::changed, this, &CountInSettingsPanel::showSettings);
    showSettings();
}

void CountInSettingsPanel::addLength()
{
    m_length = new SegmentedControl(this);
    m_length->setSegments({tr("1 bar"), tr("2 bars"), tr("Beats")});
    m_length->setFocusPolicy(Qt::TabFocus);
    m_length->setAccessibleName(tr("Length"));
    m_beats = makeNumber(tr("Beats of the count-in"), 1, CountInLength::maximumBeats);
    m_beats->setFloatValue(usualBeats);
    addRow(tr("Length"), joined({m_length, m_beats}));
}

void CountInSettingsPanel::addLoop()
{
    m_bars = makeNumber(tr("Bars of the loop"), 1, LoopBars::maximumBars);
    m_beatsPerBar = makeNumber(tr("Beats of a bar"), BeatGrid::shortestBar, BeatGrid::longestBar);
    m_set = new TextButton(tr("Set"), this);
    m_loop = joined({m_bars, makeLabel(tr("bars of")), m_beatsPerBar, m_set});
    addRow(tr("This loop has"), m_loop);
    const LoopBars usual;
    m_bars->setFloatValue(static_cast<float>(usual.bars));
    m_beatsPerBar->setFloatValue(static_cast<float>(usual.beatsPerBar));
    for (NumberField *field : {m_bars, m_beatsPerBar})
        connect(field, &NumberField::entered, this, &CountInSettingsPanel::changeBars);
    connect(m_set, &QAbstractButton::clicked, this, [this] {
        if (m_metronome->loopBars())
            m_metronome->setLoopBars(std::nullopt);
        else
            changeBars();
    });
}

void CountInSettingsPanel::showSettings()
{
    const QScopedValueRollback showing(m_isShowing, true);
    const CountInSettings &settings = m_metronome->countIn();
    const bool isInBars = settings.length.unit == CountInLength::Unit::Bars;
    m_length->setSelectedSegment(isInBars ? oneBar + settings.length.amount - 1 : beatsSegment);
    m_beats->setEnabled(!isInBars);
    if (!isInBars)
        m_beats->setFloatValue(static_cast<float>(settings.length.amount));
    m_when->setSelectedSegment(settings.when == CountInSettings::When::AtPlay ? 0 : 1);
    m_loop->setEnabled(m_metronome->canSetLoopBars());
    const std::optional<LoopBars> told = m_metronome->loopBars();
    if (told) {
        m_bars->setFloatValue(static_cast<float>(told->bars));
        m_beatsPerBar->setFloatValue(static_cast<float>(told->beatsPerBar));
    }
    m_set->setText(told ? tr("Forget") : tr("Set"));
    m_set->updateGeometry();
    setHint(m_metronome->beats().isEmpty() ? metronomeText::beatsOrBarsMissing() : QString());
}

void CountInSettingsPanel::changeSettings()
{
    CountInSettings settings = m_metronome->countIn();
    const bool isInBeats = m_length->selectedSegment() == beatsSegment;
    settings.length.unit = isInBeats ? CountInLength::Unit::Beats : CountInLength::Unit::Bars;
    settings.length.amount =
        isInBeats ? valueOf(m_beats) : m_length->selectedSegment() - oneBar + 1;
    settings.when = m_when->selectedSegment() == 0 ? CountInSettings::When::AtPlay
                                                   : CountInSettings::When::EveryPass;
    m_metronome->setCountIn(settings);
}

void CountInSettingsPanel::changeBars()
{
    // A field that is disabled while it has the keyboard ends its edit.
    if (!m_isShowing && m_metronome->canSetLoopBars())
        m_metronome->setLoopBars(
            LoopBars{.bars = valueOf(m_bars), .beatsPerBar = valueOf(m_beatsPerBar)});
}

} // namespace lyrabox
