#include "app/export/ExportForm.h"

#include "app/export/ExportText.h"
#include "app/practice/ChoiceButton.h"
#include "app/practice/TextButton.h"
#include "platform/ui/NumberField.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr int numberWidth = 42;
constexpr int labelColumn = 0;
constexpr int controlColumn = 1;

/// Controls side by side, as one.
QWidget *joined(const QList<QWidget *> &controls, QWidget *parent)
{
    auto *group = new QWidget(parent);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    for (QWidget *control : controls)
        row->addWidget(control);
    row->addStretch(1);
    return group;
}

QLabel *makeLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
    return label;
}

} // namespace

ExportForm::ExportForm(QWidget *parent) : QWidget(parent), m_rows(new QGridLayout(this))
{
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setHorizontalSpacing(12);
    m_rows->setVerticalSpacing(Theme::grid);
    m_rows->setColumnStretch(controlColumn, 1);
    addSubject();
    addTimes();
    addSwitches();
    m_format = new ChoiceButton(tr("Format"), {QString()}, this);
    m_format->setAutoDefault(false);
    m_format->setEnabled(false);
    connect(m_format, &ChoiceButton::chosen, this, &ExportForm::changed);
    addRow(tr("Format"), m_format);
}

void ExportForm::addRow(const QString &label, QWidget *control)
{
    const int row = m_rows->rowCount();
    m_rows->addWidget(makeLabel(label, this), row, labelColumn);
    m_rows->addWidget(control, row, controlColumn);
    m_rows->setRowMinimumHeight(row, Theme::controlHeight);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(label);
}

void ExportForm::addSubject()
{
    m_what = new SegmentedControl(this);
    m_what->setSegments({tr("Loop"), tr("Song"), tr("Every Loop")});
    m_what->setFocusPolicy(Qt::TabFocus);
    setFocusProxy(m_what);
    addRow(tr("Export"), m_what);
    m_loop = new ChoiceButton(tr("Loop"), {QString()}, this);
    m_loop->setAutoDefault(false);
    addRow(tr("Loop"), m_loop);
    connect(m_what, &SegmentedControl::pressed, this, [this] {
        chooseAgain();
        Q_EMIT subjectChanged();
    });
    connect(m_loop, &ChoiceButton::chosen, this, &ExportForm::subjectChanged);
}

void ExportForm::addTimes()
{
    m_times = new NumberField(this);
    m_times->setLimits(1.0F, static_cast<float>(exportPlan::Wanted::mostTimes));
    m_times->setFloatValue(1.0F);
    m_times->setFixedSize(numberWidth, Theme::controlHeight);
    m_times->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_times->setAccessibleName(tr("Times"));
    connect(m_times, &NumberField::entered, this, &ExportForm::changed);
    m_ladder = new TextButton(tr("As the Ladder"), this);
    m_ladder->setCheckable(true);
    m_ladder->setAutoDefault(false);
    connect(m_ladder, &TextButton::toggled, this, [this] {
        chooseAgain();
        Q_EMIT changed();
    });
    addRow(tr("Times"), joined({m_times, m_ladder}, this));
}

void ExportForm::addSwitches()
{
    makeSwitch(m_speed, tr("Speed and Pitch"));
    makeSwitch(m_equalizer, tr("Equalizer"));
    makeSwitch(m_channels, tr("Channels"));
    makeSwitch(m_click, tr("Click"));
    addRow(tr("As heard"),
           joined({m_speed.button, m_equalizer.button, m_channels.button, m_click.button}, this));
}

void ExportForm::makeSwitch(Switch &made, const QString &text)
{
    made.button = new TextButton(text, this);
    made.button->setCheckable(true);
    made.button->setAutoDefault(false);
    connect(made.button, &TextButton::clicked, this, [this, &made](bool isChecked) {
        made.isWanted = isChecked;
        Q_EMIT changed();
    });
}

/// A switch without an effect is gray and off.
void ExportForm::offer(const Switch &offered, bool applies)
{
    offered.button->setEnabled(applies);
    offered.button->setChecked(applies && offered.isWanted);
    offered.button->setToolTip(applies ? QString() : tr("This is as in the song."));
}

void ExportForm::setOffer(const Offer &offered)
{
    if (offered.loops != m_offer.loops) {
        const QString old = m_offer.loops.value(loop());
        qsizetype same = loop();
        if (same >= 0 && offered.loops.value(same) != old)
            same = offered.loops.indexOf(old);
        m_offer = offered;
        m_loop->setChoices(offered.loops.isEmpty() ? QStringList{tr("There is no loop.")}
                                                   : offered.loops);
        m_loop->setCurrent(same >= 0 ? static_cast<int>(same) : offered.present);
    }
    m_offer = offered;
    offer(m_speed, offered.hasSpeedOrPitch);
    offer(m_equalizer, offered.hasEqualizer);
    offer(m_channels, offered.hasChannels);
    offer(m_click, offered.hasClick);
    m_ladder->setText(offered.ladder.isEmpty() ? tr("As the Ladder")
                                               : tr("As the Ladder, %1").arg(offered.ladder));
    m_ladder->updateGeometry();
    chooseAgain();
}

/// Only what has an effect can be chosen.
void ExportForm::chooseAgain()
{
    m_loop->setEnabled(what() == What::Loop && !m_offer.loops.isEmpty());
    m_ladder->setEnabled(what() != What::Song && !m_offer.ladder.isEmpty());
    m_times->setEnabled(!wanted().asLadder);
}

ExportForm::What ExportForm::what() const
{
    return static_cast<What>(m_what->selectedSegment());
}

void ExportForm::setWhat(What what)
{
    m_what->setSelectedSegment(static_cast<int>(what));
    chooseAgain();
}

int ExportForm::loop() const
{
    return m_offer.loops.isEmpty() ? -1 : m_loop->current();
}

exportPlan::Wanted ExportForm::wanted() const
{
    return {.times = static_cast<int>(std::lround(m_times->floatValue())),
            .asLadder = m_ladder->isEnabled() && m_ladder->isChecked(),
            .hasSpeedAndPitch = m_speed.isWanted,
            .hasEqualizer = m_equalizer.isWanted,
            .hasChannels = m_channels.isWanted,
            .hasClick = m_click.isWanted};
}

void ExportForm::setFormats(const std::vector<SongFormat> &formats, SongFormat present)
{
    if (formats == m_formats)
        return;
    m_formats = formats;
    QStringList names;
    for (const SongFormat format : formats)
        names.append(exportText::format(format));
    m_format->setEnabled(!formats.empty());
    m_format->setChoices(names.isEmpty() ? QStringList{QString()} : names);
    const auto found = std::ranges::find(formats, present);
    if (found != formats.end())
        m_format->setCurrent(static_cast<int>(found - formats.begin()));
}

SongFormat ExportForm::format() const
{
    return m_formats.empty() ? SongFormat::Flac
                             : m_formats.at(static_cast<std::size_t>(m_format->current()));
}

} // namespace lyrabox
