#include "app/controls/LB_ScrollingTextView.h"

#include "platform/ui/OneLine.h"
#include "platform/ui/Theme.h"

#include <QAccessibleWidget>
#include <QFontMetricsF>
#include <QPainter>
#include <QTimerEvent>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr double startX = 5.0;
constexpr double gap = 25.0;
constexpr double initialFontSize = 12.0;
constexpr int scrollMilliseconds = 50;
constexpr int settleMilliseconds = 250;

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    auto *view = className == u"LB_ScrollingTextView"_s ? qobject_cast<QWidget *>(object) : nullptr;
    return view ? new QAccessibleWidget(view, QAccessible::StaticText) : nullptr;
}

void installAccessible()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace

lyrabox::MarqueePositions lyrabox::marqueePositions(double x, double stringWidth)
{
    MarqueePositions positions{std::nullopt, x};
    if (x < -gap)
        positions.second = x + stringWidth + gap;
    if (x + stringWidth < 0.0)
        positions.next = positions.second.value_or(0.0);
    return positions;
}

LB_ScrollingTextView::LB_ScrollingTextView(QWidget *parent)
    : QWidget(parent), m_font(lyrabox::uiFont(initialFontSize))
{
    installAccessible();
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void LB_ScrollingTextView::setFontSize(double points)
{
    m_font = lyrabox::uiFont(points);
    updateGeometry();
    update();
}

void LB_ScrollingTextView::setString(const QString &text)
{
    m_scrollTimer.stop();
    m_string = text;
    m_drawingPoint = QPointF(startX, 0.0);
    // An empty text is not measured, because measuring loads the font from its file.
    m_stringWidth =
        text.isEmpty() ? 0.0 : QFontMetricsF(m_font).horizontalAdvance(lyrabox::oneLine(text));
    setAccessibleName(text);
    m_wantsScroll = m_stringWidth > 0.0 && width() <= m_stringWidth;
    if (!m_wantsScroll)
        center();
    updateTimer();
    update();
}

void LB_ScrollingTextView::center()
{
    m_drawingPoint.setX((width() - m_stringWidth) * 0.5);
}

void LB_ScrollingTextView::updateTimer()
{
    const bool runs = m_wantsScroll && m_onScreen && !inLiveResize() && !window()->isMinimized();
    if (!runs)
        m_scrollTimer.stop();
    else if (!m_scrollTimer.isActive())
        m_scrollTimer.start(scrollMilliseconds, Qt::PreciseTimer, this);
}

void LB_ScrollingTextView::scrollText()
{
    m_drawingPoint.rx() -= 1.0;
    update();
}

void LB_ScrollingTextView::paintEvent(QPaintEvent *)
{
    if (inLiveResize() && width() > m_stringWidth)
        center();
    if (m_string.isEmpty())
        return;
    QPainter painter(this);
    painter.setFont(m_font);
    painter.setPen(Qt::black);
    const QFontMetricsF metrics(m_font);
    const double baseline = std::round((height() - metrics.height()) / 2.0 + metrics.ascent());
    const QString line = lyrabox::oneLine(m_string);
    const lyrabox::MarqueePositions positions =
        lyrabox::marqueePositions(m_drawingPoint.x(), m_stringWidth);
    painter.drawText(QPointF(m_drawingPoint.x(), baseline + m_drawingPoint.y()), line);
    if (positions.second)
        painter.drawText(QPointF(*positions.second, baseline + m_drawingPoint.y()), line);
    m_drawingPoint.setX(positions.next);
}

void LB_ScrollingTextView::viewWillStartLiveResize()
{
    m_scrollTimer.stop();
    m_settleTimer.start(settleMilliseconds, this);
}

void LB_ScrollingTextView::viewDidEndLiveResize()
{
    m_settleTimer.stop();
    m_wantsScroll = m_stringWidth > 0.0 && width() - m_stringWidth <= 0.0;
    if (!m_wantsScroll)
        center();
    updateTimer();
    update();
}

void LB_ScrollingTextView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (m_onScreen)
        viewWillStartLiveResize();
    else
        viewDidEndLiveResize();
}

void LB_ScrollingTextView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() == m_scrollTimer.timerId())
        scrollText();
    else if (event->timerId() == m_settleTimer.timerId())
        viewDidEndLiveResize();
    else
        QWidget::timerEvent(event);
}

void LB_ScrollingTextView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_onScreen = true;
    updateTimer();
}

void LB_ScrollingTextView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_onScreen = false;
    if (inLiveResize())
        viewDidEndLiveResize();
    updateTimer();
}

QSize LB_ScrollingTextView::sizeHint() const
{
    return {200, minimumSizeHint().height()};
}

QSize LB_ScrollingTextView::minimumSizeHint() const
{
    return {40, static_cast<int>(std::ceil(lyrabox::uiLineHeight(m_font.pixelSize())))};
}
