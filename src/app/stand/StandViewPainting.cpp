// How the stand view is drawn.

#include "app/practice/WaveColors.h"
#include "app/stand/StandView.h"
#include "platform/ui/Theme.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace lyrabox {

namespace {

constexpr double hidden = 0.3; // the part of the text's colour in what is only hinted at

QColor mixed(const QColor &a, const QColor &b, double part)
{
    const auto mix = [part](int from, int to) { return qRound(from + (to - from) * part); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

constexpr int centred = static_cast<int>(Qt::AlignCenter) | Qt::TextSingleLine;

} // namespace

QColor StandView::quietText() const
{
    return mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.75);
}

void StandView::drawText(QPainter &painter, const QRectF &place, const QString &text, bool isBold,
                         double least) const
{
    const FittedText fitted = standLayout::fit(text, isBold, place, least);
    painter.setFont(standLayout::font(fitted.size, isBold));
    painter.drawText(place, centred, fitted.text);
}

void StandView::paintEvent(QPaintEvent *)
{
    ++m_paintCount;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    const StandLayout layout =
        standLayout::place(QSizeF(size()), m_page.numbers.size(), m_page.steps.size());
    painter.setPen(palette().color(QPalette::WindowText));
    drawText(painter, layout.title, m_page.title, false);
    drawLoop(painter, layout.loop);
    drawNumbers(painter, layout);
    drawDots(painter, layout.dots);
    drawSteps(painter, layout);
    painter.setPen(quietText());
    drawWords(painter, layout);
    drawText(painter, layout.hint, tr("Escape or F11: back to Lyrabox"), false);
}

/// What the trainer says and the count-in, in one size. One of them alone has the middle.
void StandView::drawWords(QPainter &painter, const StandLayout &layout) const
{
    if (m_page.countIn.isEmpty() || m_page.passes.isEmpty()) {
        drawText(painter, layout.passes.united(layout.countIn), m_page.passes + m_page.countIn,
                 false);
        return;
    }
    const int size = standLayout::commonSize({m_page.passes, m_page.countIn},
                                             {layout.passes, layout.countIn}, false);
    painter.setFont(standLayout::font(size, false));
    painter.drawText(layout.passes, centred, m_page.passes);
    painter.drawText(layout.countIn, centred, m_page.countIn);
}

/// The name with the loop's colour before it, both in the middle.
void StandView::drawLoop(QPainter &painter, const QRectF &place) const
{
    if (m_page.loop.isEmpty())
        return;
    const double dot = m_page.loopColour > 0 ? place.height() * 0.35 : 0.0;
    const double gap = dot * 0.7;
    const QRectF room = place.adjusted(0.0, 0.0, -dot - gap, 0.0);
    const FittedText fitted = standLayout::fit(m_page.loop, true, room);
    const QFont font = standLayout::font(fitted.size, true);
    const double width = QFontMetricsF(font).horizontalAdvance(fitted.text);
    const double left = place.center().x() - (dot + gap + width) / 2.0;
    if (dot > 0.0) {
        painter.save();
        painter.setPen(Qt::NoPen);
        painter.setBrush(waveColors::loopColor(m_page.loopColour));
        painter.drawEllipse(QRectF(left, place.center().y() - dot / 2.0, dot, dot));
        painter.restore();
    }
    painter.setFont(font);
    // A little more room than was measured, so that nothing is cut off.
    painter.drawText(QRectF(left + dot + gap, place.top(), width + dot + 2.0, place.height()),
                     static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextSingleLine,
                     fitted.text);
}

/// All numbers have the size of the one that needs the smallest.
void StandView::drawNumbers(QPainter &painter, const StandLayout &layout) const
{
    std::vector<QString> values;
    for (const StandNumber &number : m_page.numbers)
        values.push_back(number.value);
    const int size = standLayout::commonSize(values, layout.numbers, true);
    for (std::size_t index = 0; index < m_page.numbers.size(); ++index) {
        painter.setPen(quietText());
        drawText(painter, layout.captions[index], m_page.numbers[index].caption, false);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.setFont(standLayout::font(size, true));
        painter.drawText(layout.numbers[index], centred, m_page.numbers[index].value);
    }
}

void StandView::drawDots(QPainter &painter, const QRectF &area) const
{
    const std::vector<QRectF> places = standLayout::dots(area, m_page.beats);
    for (int index = 0; index < m_page.beats; ++index) {
        const bool sounds = index + 1 == m_page.beat;
        painter.setPen(Qt::NoPen);
        painter.setBrush(sounds ? Theme::accent
                                : mixed(palette().color(QPalette::Window),
                                        palette().color(QPalette::WindowText), hidden));
        painter.drawEllipse(places[static_cast<std::size_t>(index)]);
    }
}

/// The steps that were played are filled, the present one as far as it is done.
void StandView::drawSteps(QPainter &painter, const StandLayout &layout) const
{
    const QColor window = palette().color(QPalette::Window);
    const QColor text = palette().color(QPalette::WindowText);
    std::vector<QString> speeds;
    std::vector<QRectF> rooms;
    for (std::size_t index = 0; index < m_page.steps.size(); ++index) {
        speeds.push_back(m_page.steps[index].text);
        const double inset = layout.steps[index].height() * 0.12;
        rooms.push_back(layout.steps[index].adjusted(inset, inset, -inset, -inset));
    }
    const int size = standLayout::commonSize(speeds, rooms, true);
    for (std::size_t index = 0; index < m_page.steps.size(); ++index) {
        const StandStep &step = m_page.steps[index];
        const QRectF &box = layout.steps[index];
        const bool isPresent = step.state == StandStep::State::Present;
        QPainterPath shape;
        shape.addRoundedRect(box, box.height() * 0.12, box.height() * 0.12);
        if (step.state == StandStep::State::Done)
            painter.fillPath(shape, mixed(window, Theme::accent, 0.25));
        if (isPresent) {
            painter.save();
            painter.setClipPath(shape);
            painter.fillRect(QRectF(box.topLeft(), QSizeF(box.width() * step.part, box.height())),
                             mixed(window, Theme::accent, 0.5));
            painter.restore();
        }
        const double width = box.height() * (isPresent ? 0.06 : 0.025);
        painter.setPen(QPen(step.state == StandStep::State::Coming ? mixed(window, text, hidden)
                                                                   : Theme::accent,
                            width));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(shape);
        painter.setPen(step.state == StandStep::State::Coming ? quietText() : text);
        painter.setFont(standLayout::font(size, isPresent));
        painter.drawText(box, centred, step.text);
    }
}

} // namespace lyrabox
