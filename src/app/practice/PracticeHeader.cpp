#include "app/practice/PracticeHeader.h"

#include "app/practice/PaneLayout.h"
#include "app/practice/PracticePane.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QHBoxLayout>

namespace lyrabox {

namespace {
constexpr int paneSegment = 1;
constexpr int groupGap = 14; // between a group and the text
} // namespace

SegmentedControl *makePaneSwitch(int selected, QWidget *parent)
{
    auto *control = new SegmentedControl(parent);
    control->setSegments({PracticePane::tr("Songs"), PracticePane::tr("Practice")});
    control->setSelectedSegment(selected);
    control->setAccessibleName(PracticePane::tr("Shown part"));
    control->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return control;
}

PracticeHeader::PracticeHeader(QWidget *parent)
    : QWidget(parent),
      m_left(new QHBoxLayout),
      m_right(new QHBoxLayout),
      m_switch(makePaneSwitch(paneSegment, this)),
      m_text(new ElidedLabel(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(paneLayout::sideMargin, 2, paneLayout::sideMargin, 2);
    row->setSpacing(Theme::grid);
    m_left->setSpacing(Theme::grid);
    m_right->setSpacing(Theme::grid);
    m_text->setAccessibleDescription(PracticePane::tr("Loop"));
    QPalette colors = m_text->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    m_text->setPalette(colors);
    m_text->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    row->addWidget(m_switch);
    row->addLayout(m_left);
    row->addWidget(m_text, 1);
    row->addLayout(m_right);
    connect(m_switch, &SegmentedControl::pressed, this, [this] {
        m_switch->setSelectedSegment(paneSegment);
        Q_EMIT songsWanted();
    });
    setSwitchShown(false);
}

void PracticeHeader::addLeft(QWidget *control)
{
    m_left->addWidget(control);
    m_text->setContentsMargins(groupGap, 0, 0, 0);
}

void PracticeHeader::addRight(QWidget *control)
{
    m_right->addWidget(control);
}

void PracticeHeader::setText(const QString &text)
{
    m_text->setText(text);
}

void PracticeHeader::setSwitchShown(bool shown)
{
    m_switch->setVisible(shown);
}

} // namespace lyrabox
