#include "app/practice/ClickSettingsPanel.h"

#include "app/controls/LB_Slider.h"
#include "app/practice/Metronome.h"
#include "app/practice/MetronomeText.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/SegmentedControl.h"

#include <QLabel>

#include <array>
#include <cmath>

namespace lyrabox {

namespace {

// The order of the segments.
constexpr std::array timbres{ClickTimbre::Tick, ClickTimbre::Wood, ClickTimbre::Beep};
constexpr std::array sides{ClickSide::Left, ClickSide::Both, ClickSide::Right};
constexpr int shownSubdivisions = 4;

template <typename Values, typename Value>
int indexOf(const Values &values, Value value)
{
    return static_cast<int>(std::ranges::find(values, value) - values.begin());
}

} // namespace

ClickSettingsPanel::ClickSettingsPanel(Metronome *metronome, QWidget *parent)
    : SettingsPanel(tr("Click"), parent), m_metronome(metronome)
{
    addLoudness();
    m_timbre = addChoice(tr("Sound"), {tr("Tick"), tr("Wood"), tr("Beep")});
    m_side = addChoice(tr("Side"), {tr("Left"), tr("Both"), tr("Right")});
    m_accents = addChoice(tr("Accent"), {tr("On 1"), tr("None")});
    m_beats = addChoice(tr("Beats"), {tr("All"), tr("Only 2 and 4")});
    QStringList numbers;
    for (int number = 1; number <= shownSubdivisions; ++number)
        numbers.append(QString::number(number));
    m_subdivision = addChoice(tr("Clicks in a beat"), numbers);
    addBars();
    for (SegmentedControl *choice : {m_timbre, m_side, m_accents, m_beats, m_subdivision})
        connect(choice, &SegmentedControl::pressed, this, &ClickSettingsPanel::changeSettings);
    connect(metronome, &Metronome::changed, this, &ClickSettingsPanel::showSettings);
    showSettings();
}

void ClickSettingsPanel::addLoudness()
{
    m_loudness = new LB_Slider(this);
    m_loudness->setMaxValue(100.0);
    m_loudness->setStep(1.0);
    m_loudness->setKeySteps(5.0, 20.0);
    m_loudness->setFixedWidth(150);
    m_loudness->setAccessibleName(tr("Loudness"));
    m_loudnessText = makeLabel({});
    addRow(tr("Loudness"), joined({m_loudness, m_loudnessText}));
    connect(m_loudness, &LB_Slider::moved, this, &ClickSettingsPanel::changeSettings);
}

void ClickSettingsPanel::addBars()
{
    m_barsOn = makeNumber(tr("Bars that sound"), 1, ClickPattern::maximumBars);
    m_barsOff = makeNumber(tr("Silent bars"), 0, ClickPattern::maximumBars);
    addRow(tr("Bars"),
           joined({m_barsOn, makeLabel(tr("sound, then")), m_barsOff, makeLabel(tr("silent"))}));
    for (NumberField *field : {m_barsOn, m_barsOff})
        connect(field, &NumberField::entered, this, &ClickSettingsPanel::changeSettings);
}

void ClickSettingsPanel::showSettings()
{
    const ClickSettings &settings = m_metronome->click();
    m_loudness->setFloatValue(settings.loudness);
    m_loudnessText->setText(tr("%1 %").arg(settings.loudness));
    m_timbre->setSelectedSegment(indexOf(timbres, settings.timbre));
    m_side->setSelectedSegment(indexOf(sides, settings.side));
    m_accents->setSelectedSegment(settings.hasAccents ? 0 : 1);
    m_beats->setSelectedSegment(settings.pattern.onlyBackbeats ? 1 : 0);
    m_subdivision->setSelectedSegment(settings.pattern.subdivision - 1);
    m_subdivision->setEnabled(!settings.pattern.onlyBackbeats);
    m_barsOn->setFloatValue(static_cast<float>(settings.pattern.barsOn));
    m_barsOff->setFloatValue(static_cast<float>(settings.pattern.barsOff));
    setHint(m_metronome->beats().isEmpty() ? metronomeText::beatsMissing() : QString());
}

void ClickSettingsPanel::changeSettings()
{
    ClickSettings settings = m_metronome->click();
    settings.loudness = static_cast<int>(std::lround(m_loudness->floatValue()));
    settings.timbre = timbres.at(static_cast<std::size_t>(m_timbre->selectedSegment()));
    settings.side = sides.at(static_cast<std::size_t>(m_side->selectedSegment()));
    settings.hasAccents = m_accents->selectedSegment() == 0;
    settings.pattern.onlyBackbeats = m_beats->selectedSegment() == 1;
    settings.pattern.subdivision = m_subdivision->selectedSegment() + 1;
    settings.pattern.barsOn = static_cast<int>(std::lround(m_barsOn->floatValue()));
    settings.pattern.barsOff = static_cast<int>(std::lround(m_barsOff->floatValue()));
    m_metronome->setClick(settings);
}

} // namespace lyrabox
