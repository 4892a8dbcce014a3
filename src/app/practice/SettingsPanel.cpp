#include "app/practice/SettingsPanel.h"

#include "platform/ui/NumberField.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

namespace lyrabox {

namespace {
constexpr int numberWidth = 42;
constexpr int labelColumn = 0;
constexpr int controlColumn = 1;
} // namespace

SettingsPanel::SettingsPanel(const QString &title, QWidget *parent)
    : QWidget(parent), m_rows(new QGridLayout(this)), m_hint(makeLabel({}))
{
    m_rows->setContentsMargins(14, 10, 14, 12);
    m_rows->setHorizontalSpacing(12);
    m_rows->setVerticalSpacing(Theme::grid);
    m_rows->setColumnStretch(controlColumn, 1);
    auto *heading = new QLabel(title, this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    m_rows->addWidget(heading, 0, labelColumn, 1, 2);
    m_hint->setWordWrap(true);
    m_rows->addWidget(m_hint, 1, labelColumn, 1, 2);
    m_hint->hide();
}

void SettingsPanel::setHint(const QString &text)
{
    m_hint->setText(text);
    m_hint->setVisible(!text.isEmpty());
}

void SettingsPanel::addRow(const QString &label, QWidget *control)
{
    const int row = m_rows->rowCount();
    m_rows->addWidget(makeLabel(label), row, labelColumn);
    m_rows->addWidget(control, row, controlColumn);
    m_rows->setRowMinimumHeight(row, Theme::controlHeight);
    if (control->accessibleName().isEmpty())
        control->setAccessibleName(label);
}

SegmentedControl *SettingsPanel::addChoice(const QString &label, const QStringList &values)
{
    auto *control = new SegmentedControl(this);
    control->setSegments(values);
    control->setFocusPolicy(Qt::TabFocus);
    addRow(label, control);
    return control;
}

NumberField *SettingsPanel::makeNumber(const QString &name, int minimum, int maximum)
{
    auto *field = new NumberField(this);
    field->setLimits(static_cast<float>(minimum), static_cast<float>(maximum));
    field->setFixedSize(numberWidth, Theme::controlHeight);
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setAccessibleName(name);
    return field;
}

QWidget *SettingsPanel::joined(const QList<QWidget *> &controls)
{
    auto *group = new QWidget(this);
    auto *row = new QHBoxLayout(group);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    for (QWidget *control : controls)
        row->addWidget(control);
    row->addStretch(1);
    return group;
}

QLabel *SettingsPanel::makeLabel(const QString &text)
{
    auto *label = new QLabel(text, this);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
    return label;
}

} // namespace lyrabox
