#include "app/practice/PracticePages.h"

#include "app/practice/PaneLayout.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QGridLayout>

#include <algorithm>
#include <utility>

namespace lyrabox {

PracticePages::PracticePages(QWidget *parent)
    : QWidget(parent), m_grid(new QGridLayout(this)), m_switch(new SegmentedControl(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(paneLayout::sideMargin);
    m_grid->setVerticalSpacing(Theme::grid);
    m_grid->setRowStretch(1, 1);
    m_switch->setAccessibleName(tr("Page"));
    m_switch->setFixedWidth(pageWidth); // however many pages it has
    connect(m_switch, &SegmentedControl::pressed, this, [this] {
        m_current = m_switch->selectedSegment() + (hasFirstApart() ? 1 : 0);
        arrange();
        Q_EMIT currentChanged();
    });
    arrange();
}

void PracticePages::addPage(const QString &title, QWidget *page)
{
    page->setParent(this);
    page->setFixedWidth(pageWidth);
    m_pages.append({.title = title, .widget = page});
    arrange();
}

void PracticePages::showPage(QWidget *page)
{
    const auto found = std::ranges::find(m_pages, page, &Page::widget);
    if (found == m_pages.end() || page == current())
        return;
    m_current = found - m_pages.begin();
    arrange();
    Q_EMIT currentChanged();
}

QWidget *PracticePages::current() const
{
    return m_pages.isEmpty() ? nullptr : m_pages.at(m_current).widget;
}

void PracticePages::setMarked(QWidget *page, bool marked)
{
    const auto found = std::ranges::find(m_pages, page, &Page::widget);
    if (found == m_pages.end() || std::exchange(found->isMarked, marked) == marked)
        return;
    arrange();
}

void PracticePages::setTwoColumns(bool two)
{
    if (m_hasTwoColumns == two)
        return;
    m_hasTwoColumns = two;
    arrange();
}

void PracticePages::arrange()
{
    const bool firstIsApart = hasFirstApart();
    const qsizetype firstOfSwitch = firstIsApart ? 1 : 0;
    const qsizetype selected = std::max(m_current, firstOfSwitch);
    QStringList titles;
    for (qsizetype index = 0; index < m_pages.size(); ++index) {
        QWidget *page = m_pages.at(index).widget;
        m_grid->removeWidget(page);
        if (index >= firstOfSwitch) {
            const Page &shown = m_pages.at(index);
            titles.append(shown.isMarked ? tr("%1 •").arg(shown.title) : shown.title);
            m_grid->addWidget(page, 1, 1);
            page->setVisible(index == selected);
        } else {
            m_grid->addWidget(page, 0, 0, 2, 1);
            page->setVisible(true);
        }
    }
    m_grid->removeWidget(m_switch);
    m_grid->addWidget(m_switch, 0, 1);
    m_switch->setSegments(titles);
    m_switch->setSelectedSegment(static_cast<int>(selected - firstOfSwitch));
    m_switch->setVisible(titles.size() > 1);
    // An empty column keeps its gap otherwise.
    m_grid->setHorizontalSpacing(firstIsApart ? paneLayout::sideMargin : 0);
}

} // namespace lyrabox
