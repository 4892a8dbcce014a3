#include "app/controls/LB_TableHeaderCell.h"

#include "platform/ui/Theme.h"

#include <QPainter>

#include <cmath>

namespace Theme = lyrabox::Theme;

namespace {

constexpr QChar arrowUp(u'\u25B2');
constexpr QChar arrowDown(u'\u25BC');
constexpr float fillAlpha = 0.8F;
constexpr double lineWidth = 0.25;
constexpr double insetX = 3.0;
constexpr double insetY = 2.0;
constexpr double fontSize = 12.0;
constexpr int headerHeight = 26;
constexpr double arrowGap = 6.0;
constexpr double arrowWidth = 8.0;
constexpr double arrowHeight = 6.0;

bool isSpaceOrArrow(QChar character)
{
    return character == QChar::Space || character == arrowUp || character == arrowDown;
}

void drawBackground(QPainter &painter, const QRectF &frame, const QColor &fill)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::lineGray, lineWidth));
    painter.drawRect(frame);
    QColor translucent = fill;
    translucent.setAlphaF(fillAlpha);
    painter.fillRect(frame, translucent);
}

/// Draws the text and returns the x coordinate of its end. Leaves `room` points free on the right.
double drawText(QPainter &painter, const QRectF &frame, const QString &text,
                Qt::Alignment alignment, double room)
{
    const QRectF area = frame.adjusted(insetX, insetY, -insetX, -insetY);
    const QRectF textArea = area.adjusted(0.0, 0.0, -room, 0.0);
    const QString line = painter.fontMetrics().elidedText(
        text, Qt::ElideRight, static_cast<int>(std::floor(textArea.width())));
    QRectF drawn;
    const int flags =
        int((alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter) | Qt::TextSingleLine;
    painter.drawText(textArea, flags, line, &drawn);
    return drawn.right();
}

} // namespace

QString lyrabox::trimmedHeaderText(const QString &text)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && isSpaceOrArrow(text.at(first)))
        ++first;
    while (last > first && isSpaceOrArrow(text.at(last - 1)))
        --last;
    return text.mid(first, last - first);
}

QChar lyrabox::headerArrow(const QString &text)
{
    for (auto character = text.crbegin(); character != text.crend() && isSpaceOrArrow(*character);
         ++character) {
        if (*character != QChar::Space)
            return *character;
    }
    return {};
}

LB_TableHeaderCell::LB_TableHeaderCell(Qt::Orientation orientation, QWidget *parent)
    : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    setHighlightSections(false);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setFont(lyrabox::uiFont(fontSize));
    setMinimumSectionSize(24);
}

void LB_TableHeaderCell::setHighlightedSection(int section)
{
    m_highlighted = section;
    viewport()->update();
}

QSize LB_TableHeaderCell::sizeHint() const
{
    return {length(), headerHeight}; // no text is measured: the texts are elided to fit
}

void LB_TableHeaderCell::drawInterior(QPainter &painter, const QRectF &frame, const QString &text,
                                      Qt::Alignment alignment)
{
    drawBackground(painter, frame, Theme::lineGray);
    painter.setPen(Qt::black);
    drawText(painter, frame, lyrabox::trimmedHeaderText(text), alignment, 0.0);
}

void LB_TableHeaderCell::highlight(QPainter &painter, const QRectF &frame, const QString &text,
                                   Qt::Alignment alignment, QChar arrow)
{
    drawBackground(painter, frame, Theme::accent);
    painter.setPen(Qt::white);
    const double room = arrow.isNull() ? 0.0 : arrowGap + arrowWidth;
    const double end = drawText(painter, frame, text, alignment, room);
    if (arrow.isNull())
        return;
    const double left = std::round(end + arrowGap);
    const double top = std::round(frame.center().y() - arrowHeight / 2.0);
    const double base = arrow == arrowUp ? top + arrowHeight : top;
    const double tip = arrow == arrowUp ? top : top + arrowHeight;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawPolygon(QPolygonF{QPointF(left, base), QPointF(left + arrowWidth, base),
                                  QPointF(left + arrowWidth / 2.0, tip)});
}

void LB_TableHeaderCell::paintSection(QPainter *painter, const QRect &rect, int logicalIndex) const
{
    if (!rect.isValid() || !model())
        return;
    painter->save();
    painter->setClipRect(rect);
    painter->setFont(font());
    painter->fillRect(rect, Theme::surface);
    const QString text =
        model()->headerData(logicalIndex, orientation(), Qt::DisplayRole).toString();
    const QVariant own = model()->headerData(logicalIndex, orientation(), Qt::TextAlignmentRole);
    const Qt::Alignment alignment = own.isValid() ? Qt::Alignment(own.toInt()) : defaultAlignment();
    if (logicalIndex == m_highlighted)
        highlight(*painter, rect, lyrabox::trimmedHeaderText(text), alignment,
                  lyrabox::headerArrow(text));
    else
        drawInterior(*painter, rect, text, alignment);
    // The outline is too thin to separate two sections of the same colour.
    painter->fillRect(QRectF(rect.right(), rect.top(), 1.0, rect.height()), Theme::lineGray);
    painter->restore();
}

void LB_TableHeaderCell::paintEvent(QPaintEvent *event)
{
    QHeaderView::paintEvent(event);
    const int end = length() - offset();
    if (orientation() != Qt::Horizontal || end >= viewport()->width())
        return;
    // The area without sections gets the same background.
    QPainter painter(viewport());
    const QRect rest(end, 0, viewport()->width() - end, viewport()->height());
    painter.fillRect(rest, Theme::surface);
    drawBackground(painter, rest, Theme::lineGray);
}
