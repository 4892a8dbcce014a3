#include "app/practice/CentrePanel.h"

#include "app/practice/SongSound.h"
#include "platform/ui/NumberField.h"

#include <QLabel>

#include <cmath>

namespace lyrabox {

namespace {

constexpr int fieldWidth = 62;

NumberField *inRange(NumberField *field, const ValueRange &range)
{
    field->setLimits(range.minimum, range.maximum);
    field->setFixedWidth(fieldWidth);
    return field;
}

} // namespace

CentrePanel::CentrePanel(SongSound *sound, QWidget *parent)
    : SettingsPanel(tr("Centre"), parent),
      m_sound(sound),
      m_from(inRange(makeNumber(tr("Lowest frequency of the middle"), 0, 0), centreFromRange)),
      m_upTo(inRange(makeNumber(tr("Highest frequency of the middle"), 0, 0), centreUpToRange))
{
    setHint(tr("What lies below or above does not count as the middle, such as bass and cymbals."));
    addRow(tr("From"), joined({m_from, makeLabel(tr("Hz"))}));
    addRow(tr("To"), joined({m_upTo, makeLabel(tr("Hz"))}));
    for (const NumberField *field : {m_from, m_upTo})
        connect(field, &NumberField::entered, this, &CentrePanel::changeLimits);
    connect(sound, &SongSound::changed, this, &CentrePanel::showLimits);
    showLimits();
}

void CentrePanel::showLimits()
{
    const ChannelTools &kept = m_sound->kept();
    m_from->setFloatValue(static_cast<float>(kept.centreFrom));
    m_upTo->setFloatValue(static_cast<float>(kept.centreUpTo));
    setEnabled(m_sound->canChange());
}

void CentrePanel::changeLimits()
{
    ChannelTools tools = m_sound->kept();
    tools.centreFrom = static_cast<int>(std::lround(m_from->floatValue()));
    tools.centreUpTo = static_cast<int>(std::lround(m_upTo->floatValue()));
    m_sound->change(tools);
}

} // namespace lyrabox
