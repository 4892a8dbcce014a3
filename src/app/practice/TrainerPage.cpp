#include "app/practice/TrainerPage.h"

#include "app/practice/ChoiceButton.h"
#include "app/practice/PageParts.h"
#include "app/practice/RotationBox.h"
#include "app/practice/SongPractice.h"
#include "app/practice/TrainerRun.h"
#include "platform/audio/SoundRanges.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr int fieldWidth = 44;
constexpr int gap = 6;

int valueOf(const NumberField *field)
{
    return static_cast<int>(std::lround(field->floatValue()));
}

} // namespace

TrainerSettings inUnit(TrainerSettings settings, TempoUnit unit, double songTempo)
{
    if (settings.unit == unit)
        return settings;
    const double factor = unit == TempoUnit::BeatsPerMinute ? songTempo / 100.0 : 100.0 / songTempo;
    for (int *value : {&settings.from, &settings.to, &settings.step})
        *value = static_cast<int>(std::lround(*value * factor));
    settings.unit = unit;
    clean(settings);
    return settings;
}

TrainerPage::TrainerPage(TrainerRun *run, SongPractice *practice, QWidget *parent)
    : QWidget(parent),
      m_run(run),
      m_practice(practice),
      m_target(new ElidedLabel(this)),
      m_buttons(new QHBoxLayout)
{
    setObjectName(QStringLiteral("trainerPage"));
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(m_target);
    column->addWidget(pageParts::scrolling(makeForm(), this), 1);
    m_buttons->setSpacing(Theme::grid);
    m_buttons->addStretch(1);
    column->addLayout(m_buttons);
    connectControls();
    connect(run, &TrainerRun::changed, this, &TrainerPage::showTarget);
    showTarget();
}

void TrainerPage::addButton(QWidget *button)
{
    m_buttons->insertWidget(m_buttons->count() - 1, button);
}

void TrainerPage::addRotationButton(QWidget *button)
{
    m_buttons->addWidget(button);
}

QWidget *TrainerPage::makeForm()
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, gap, 0);
    column->setSpacing(2 * gap);
    m_form = new QWidget(page);
    m_rows = new QGridLayout(m_form);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setHorizontalSpacing(gap);
    m_rows->setVerticalSpacing(gap);
    m_rows->setColumnStretch(1, 1);
    addLadderRows();
    addRuleRows();
    addBetweenRows();
    column->addWidget(m_form);
    m_rotation = new RotationBox(m_run, m_practice, page);
    column->addWidget(m_rotation);
    column->addStretch(1);
    return page;
}

QWidget *TrainerPage::cell() const
{
    auto *made = new QWidget(m_form);
    auto *row = new QHBoxLayout(made);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(gap);
    return made;
}

NumberField *TrainerPage::addNumber(QWidget *row, const QString &name, int least, int most)
{
    auto *field = new NumberField(row);
    field->setFixedSize(fieldWidth, Theme::controlHeight);
    field->setLimits(static_cast<float>(least), static_cast<float>(most));
    field->setAccessibleName(name);
    field->setToolTip(name);
    row->layout()->addWidget(field);
    return field;
}

ChoiceButton *TrainerPage::addChoice(QWidget *row, const QString &name, const QStringList &choices)
{
    auto *button = new ChoiceButton(name, choices, row);
    static_cast<QHBoxLayout *>(row->layout())->addWidget(button, 1);
    return button;
}

void TrainerPage::addRow(const QString &label, QWidget *row)
{
    const int at = m_rows->rowCount();
    m_rows->addWidget(pageParts::quietLabel(label, m_form), at, 0);
    m_rows->addWidget(row, at, 1);
}

void TrainerPage::addLadderRows()
{
    QWidget *speeds = cell();
    const int least = TrainerSettings::minimumTempo;
    const int most = TrainerSettings::maximumTempo;
    m_from = addNumber(speeds, tr("First speed"), least, most);
    speeds->layout()->addWidget(pageParts::quietLabel(tr("to"), speeds));
    m_to = addNumber(speeds, tr("Last speed"), least, most);
    m_unit = addChoice(speeds, tr("Unit"), {tr("%"), tr("BPM")});
    addRow(tr("Speeds"), speeds);
    QWidget *steps = cell();
    m_step = addNumber(steps, tr("Size of a step"), 1, TrainerSettings::maximumStep);
    m_kind = addChoice(steps, tr("Way through the speeds"),
                       {tr("One speed"), tr("Up"), tr("Two up, one down"), tr("Up and back")});
    addRow(tr("Steps"), steps);
}

void TrainerPage::addRuleRows()
{
    QWidget *passes = cell();
    m_passes = addNumber(passes, tr("Passes at each speed"), 1, TrainerSettings::maximumPasses);
    m_counting = addChoice(passes, tr("How passes add up"), {tr("in a row"), tr("in all")});
    addRow(tr("Passes"), passes);
    QWidget *miss = cell();
    m_afterMiss = addChoice(
        miss, tr("On a miss"),
        {tr("Stay"), tr("One step down"), tr("Two steps down"), tr("To the first speed")});
    addRow(tr("On a miss"), miss);
    QWidget *top = cell();
    m_atTop = addChoice(
        top, tr("At the top"),
        {tr("Go on"), tr("Stop"), tr("Next loop"), tr("From the start"), tr("10 % more")});
    addRow(tr("At the top"), top);
    QWidget *judging = cell();
    m_judging = addChoice(judging, tr("What counts"),
                          {tr("All but the missed"), tr("Only the right ones")});
    addRow(tr("Counts"), judging);
}

void TrainerPage::addBetweenRows()
{
    QWidget *between = cell();
    m_between = addChoice(between, tr("Before a pass"),
                          {tr("Nothing"), tr("Count-in"), tr("Run-up"), tr("Rest")});
    m_beats = addNumber(between, tr("Beats before a pass"), 1, TrainerSettings::maximumBeats);
    between->layout()->addWidget(pageParts::quietLabel(tr("beats"), between));
    addRow(tr("Before"), between);
    QWidget *when = cell();
    m_countInWhen =
        addChoice(when, tr("When to count in"),
                  {tr("At the start"), tr("At a new speed"), tr("Before every pass"), tr("Never")});
    addRow(tr("Count-in"), when);
}

void TrainerPage::connectControls()
{
    for (const NumberField *field : {m_from, m_to, m_step, m_passes, m_beats})
        connect(field, &NumberField::entered, this, &TrainerPage::keep);
    for (const ChoiceButton *button :
         {m_kind, m_counting, m_afterMiss, m_atTop, m_judging, m_between, m_countInWhen})
        connect(button, &ChoiceButton::chosen, this, &TrainerPage::keep);
    connect(m_unit, &ChoiceButton::chosen, this, &TrainerPage::changeUnit);
}

void TrainerPage::show(const TrainerSettings &settings)
{
    m_shown = settings;
    m_from->setFloatValue(static_cast<float>(settings.from));
    m_to->setFloatValue(static_cast<float>(settings.to));
    m_unit->setCurrent(static_cast<int>(settings.unit));
    m_step->setFloatValue(static_cast<float>(settings.step));
    m_kind->setCurrent(static_cast<int>(settings.kind));
    m_passes->setFloatValue(static_cast<float>(settings.passes));
    m_counting->setCurrent(static_cast<int>(settings.counting));
    m_afterMiss->setCurrent(static_cast<int>(settings.afterMiss));
    m_atTop->setCurrent(static_cast<int>(settings.atTop));
    m_judging->setCurrent(static_cast<int>(settings.judging));
    m_between->setCurrent(static_cast<int>(settings.between));
    m_beats->setFloatValue(static_cast<float>(settings.beats));
    m_countInWhen->setCurrent(static_cast<int>(settings.countInWhen));
}

TrainerSettings TrainerPage::entered() const
{
    TrainerSettings settings;
    settings.from = valueOf(m_from);
    settings.to = valueOf(m_to);
    settings.unit = static_cast<TempoUnit>(m_unit->current());
    settings.step = valueOf(m_step);
    settings.kind = static_cast<LadderKind>(m_kind->current());
    settings.passes = valueOf(m_passes);
    settings.counting = static_cast<PassCounting>(m_counting->current());
    settings.afterMiss = static_cast<AfterMiss>(m_afterMiss->current());
    settings.atTop = static_cast<AtTop>(m_atTop->current());
    settings.judging = static_cast<PassJudging>(m_judging->current());
    settings.between = static_cast<BetweenPasses>(m_between->current());
    settings.beats = valueOf(m_beats);
    settings.countInWhen = static_cast<CountInWhen>(m_countInWhen->current());
    clean(settings);
    return settings;
}

/// Keeps what the controls say. Then they show what was kept, which may be another value: a top
/// below the start changes places with it.
void TrainerPage::keep()
{
    const TrainerSettings settings = entered();
    if (settings != m_run->settings())
        m_run->setSettings(settings);
    show(m_run->settings());
    enableControls();
}

void TrainerPage::changeUnit()
{
    const double tempo = m_run->songTempo();
    const auto unit = static_cast<TempoUnit>(m_unit->current());
    TrainerSettings settings = m_run->settings();
    if (tempo > 0.0)
        settings = inUnit(settings, unit, tempo);
    else if (unit == TempoUnit::Percent && settings.unit != unit) // the beats are gone
        settings = TrainerSettings{};
    m_run->setSettings(settings);
    show(m_run->settings());
    enableControls();
}

void TrainerPage::showTarget()
{
    const std::optional<PracticeId> id = m_run->target();
    const PracticeLoop *loop = id ? m_practice->record().loop(*id) : nullptr;
    const TrainerSettings settings = m_run->settings();
    const bool lacksBeats = settings.unit == TempoUnit::BeatsPerMinute && m_run->songTempo() <= 0.0;
    // The header names the loop that sounds, so this line is there only to say more.
    QString said;
    if (loop != nullptr && lacksBeats)
        said = tr("This ladder needs the song's beats.");
    else if (loop != nullptr && id != m_practice->calledUp())
        said = loop->name;
    else if (loop == nullptr && !m_practice->canKeepLoop())
        said = tr("Make a loop to train it.");
    m_target->setText(said);
    m_target->setVisible(!said.isEmpty());
    if (m_shown != settings)
        show(settings);
    enableControls();
}

/// Controls that would do nothing are gray.
void TrainerPage::enableControls()
{
    const TrainerSettings settings = m_shown.value_or(TrainerSettings{});
    const bool hasTarget = m_run->target() || m_practice->canKeepLoop();
    m_form->setEnabled(hasTarget && !m_practice->store().isReadOnly());
    const bool isSteady = settings.kind == LadderKind::Steady;
    m_to->setEnabled(!isSteady);
    m_step->setEnabled(!isSteady);
    m_unit->setChoiceEnabled(static_cast<int>(TempoUnit::BeatsPerMinute), m_run->songTempo() > 0.0);
    m_beats->setEnabled(settings.between != BetweenPasses::Nothing);
    m_countInWhen->setEnabled(settings.between == BetweenPasses::CountIn);
}

} // namespace lyrabox
