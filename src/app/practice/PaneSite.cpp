#include "app/practice/PaneSite.h"

#include "app/practice/PaneDivider.h"
#include "app/practice/PaneLayout.h"
#include "app/practice/PracticeHeader.h"
#include "app/practice/PracticePane.h"
#include "app/practice/WaveView.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/DesktopWindows.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/TabOrder.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

const QString openKey = u"practicePane"_s;         // boolean; absent until it is first opened
const QString heightKey = u"practicePaneHeight"_s; // in points
constexpr int anyHeight = QWIDGETSIZE_MAX;
constexpr int stripMargin = 14;

/// The bar above the lists that leads back to the pane.
QWidget *makeStrip(QWidget *parent, const std::function<void()> &showPane)
{
    auto *strip = new QWidget(parent);
    auto *row = new QHBoxLayout(strip);
    row->setContentsMargins(stripMargin, PaneDivider::thickness + 2, stripMargin, 2);
    SegmentedControl *control = makePaneSwitch(0, strip);
    row->addWidget(control);
    row->addStretch(1);
    QObject::connect(control, &SegmentedControl::pressed, strip, [control, showPane] {
        control->setSelectedSegment(0);
        showPane();
    });
    return strip;
}

} // namespace

PaneSite::PaneSite(QVBoxLayout *column, QWidget *lists, MakePane make)
    : m_column(column), m_lists(lists), m_make(std::move(make)), m_height(paneLayout::usualHeight)
{}

PaneSite::~PaneSite()
{
    delete m_strip;
    delete m_pane;
}

void PaneSite::restore()
{
    m_height = userDefaults().value(heightKey, paneLayout::usualHeight).toInt();
    if (userDefaults().value(openKey).toBool())
        setOpen(true);
}

void PaneSite::setOpen(bool open)
{
    if (std::exchange(m_isOpen, open) == open)
        return;
    if (open) {
        m_prefersPane = true;
        makePane();
        if (!userDefaults().contains(openKey))
            growWindow();
    }
    userDefaults().setValue(openKey, open);
    arrange();
    if (!open)
        m_pane->releaseSong();
    Q_EMIT openChanged(open);
}

void PaneSite::makePane()
{
    if (m_pane != nullptr)
        return;
    QWidget *contents = m_column->parentWidget();
    m_pane = m_make(contents);
    m_pane->hide();
    m_strip = makeStrip(contents, [this] { showPane(); });
    m_strip->hide();
    const int lists = m_column->indexOf(m_lists);
    m_column->insertWidget(lists + 1, m_pane);
    m_column->insertWidget(lists, m_strip);
    connect(m_pane->header(), &PracticeHeader::songsWanted, this, [this] { showLists(); });
    connect(m_pane->divider(), &PaneDivider::heightWanted, this, [this](int height) {
        m_height = std::clamp(height, paneLayout::minimumHeight, paneLayout::maximumHeight);
        arrange();
        userDefaults().setValue(heightKey, m_pane->divider()->paneHeight());
    });
    contents->installEventFilter(this);
    orderTabStops(contents->window());
}

void PaneSite::growWindow() const
{
    QWidget *window = m_column->parentWidget()->window();
    if (window->isMaximized() || window->isFullScreen() || !window->isVisible())
        return;
    const QRect before = window->frameGeometry();
    const QRect after = paneLayout::grown(before, window->screen()->availableGeometry(), m_height);
    window->resize(window->width(), window->height() + after.height() - before.height());
    if (after.top() != before.top() && programPlacesWindows())
        window->move(after.topLeft());
}

void PaneSite::showInstead(bool pane)
{
    if (!m_isOpen || std::exchange(m_prefersPane, pane) == pane)
        return;
    arrange();
}

/// The height that the lists and the pane share.
int PaneSite::available() const
{
    int height = m_column->parentWidget()->height();
    for (int index = 0; index < m_column->count(); ++index) {
        const QWidget *widget = m_column->itemAt(index)->widget();
        if (widget != m_lists && widget != m_pane && widget != m_strip)
            height -= m_column->itemAt(index)->sizeHint().height();
    }
    return height;
}

void PaneSite::arrange()
{
    if (m_pane == nullptr || m_isArranging)
        return;
    const QScopedValueRollback arranging(m_isArranging, true);
    const paneLayout::Share share = paneLayout::share(available(), m_height);
    const bool isInstead = share.place == paneLayout::Place::Instead;
    const bool showsPane = m_isOpen && (!isInstead || m_prefersPane);
    const bool showsLists = !m_isOpen || !isInstead || !m_prefersPane;
    const bool listsHadKeyboard = m_lists->isAncestorOf(m_lists->window()->focusWidget());

    m_pane->header()->setSwitchShown(isInstead);
    m_pane->divider()->setEnabled(!isInstead);
    m_pane->divider()->setPaneHeight(share.height);
    m_pane->setMinimumHeight(isInstead ? 0 : share.height);
    m_pane->setMaximumHeight(isInstead ? anyHeight : share.height);
    m_column->setStretchFactor(m_pane, isInstead ? 1 : 0);
    m_strip->setVisible(m_isOpen && isInstead && showsLists);
    // The new part comes before the old one goes, so that the keyboard can move.
    if (showsLists)
        m_lists->show();
    m_pane->setVisible(showsPane);
    if (!showsLists) {
        m_lists->hide();
        if (listsHadKeyboard)
            m_pane->wave()->setFocus(Qt::OtherFocusReason);
    }
    if (std::exchange(m_isShown, showsPane) != showsPane)
        Q_EMIT shownChanged(showsPane);
}

bool PaneSite::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && watched == m_column->parentWidget()) {
        arrange();
        m_column->activate(); // so that the new shares are painted at once
    }
    return QObject::eventFilter(watched, event);
}

} // namespace lyrabox
