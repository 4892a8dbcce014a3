#include "app/practice/HistoryPlots.h"

#include "app/practice/WaveColors.h"
#include "platform/ui/DevicePixels.h"
#include "platform/ui/Theme.h"

#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

namespace {

constexpr double textSize = 11.0;
constexpr int leftMargin = 58; // for "100 %" and "2 h 30 min"
constexpr int rightMargin = 20;
constexpr int topMargin = 18; // for the value of the best point
constexpr int bottomMargin = 24;
constexpr int textGap = 6;
constexpr int stepHeight = 22; // between two lines, at least
constexpr double dotRadius = 3.5;
constexpr double crowded = 9.0; // points from dot to dot
constexpr double lineWidth = 2.0;
constexpr double inset = 10.0; // from the sides of the box to the first and last point
constexpr double leastSlot = 14.0;
constexpr double widestSlot = 40.0;
constexpr double barShare = 0.66;
constexpr double barRadius = 2.0;
constexpr int daysOfWeek = 7;

} // namespace

QString historyText::speed(double percent)
{
    return SpeedPlot::tr("%1 %").arg(QLocale().toString(percent, 'g', 5));
}

QString historyText::minutes(double minutes)
{
    const int whole = static_cast<int>(std::lround(minutes));
    constexpr int hour = 60;
    if (whole < hour)
        return WeekBars::tr("%1 min").arg(whole);
    if (whole % hour == 0)
        return WeekBars::tr("%1 h").arg(whole / hour);
    return WeekBars::tr("%1 h %2 min").arg(whole / hour).arg(whole % hour);
}

QString historyText::date(QDate day)
{
    return QLocale().toString(day, QLocale::ShortFormat);
}

HistoryPlot::HistoryPlot(QWidget *parent) : QWidget(parent)
{
    setFont(uiFont(textSize));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QRectF HistoryPlot::area() const
{
    return QRectF(rect()).adjusted(leftMargin, topMargin, -rightMargin, -bottomMargin);
}

double HistoryPlot::yOf(double value, const historyScale::Axis &axis) const
{
    return area().bottom() - axis.at(value) * area().height();
}

int HistoryPlot::mostSteps() const
{
    return std::max(1, static_cast<int>(area().height()) / stepHeight);
}

void HistoryPlot::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawControlBox(painter, rect(), Theme::radius);
    if (!days().first.isValid())
        return;
    const historyScale::Axis values = axis(mostSteps());
    drawAxis(painter, values);
    drawDays(painter);
    drawValues(painter, values);
}

void HistoryPlot::drawAxis(QPainter &painter, const historyScale::Axis &axis) const
{
    const int textHeight = fontMetrics().height();
    for (double value = axis.from; value <= axis.to + axis.step / 2; value += axis.step) {
        const double y = std::round(yOf(value, axis));
        const bool isGround = value == axis.from;
        painter.fillRect(QRectF(area().left(), y, area().width(), 1.0),
                         isGround ? Theme::lineGray : Theme::hairline);
        painter.setPen(Theme::secondaryText);
        painter.drawText(QRectF(0.0, y - textHeight / 2.0, area().left() - textGap, textHeight),
                         int(Qt::AlignRight) | Qt::AlignVCenter | Qt::TextSingleLine |
                             Qt::TextDontClip,
                         axisText(value));
    }
}

void HistoryPlot::drawDays(QPainter &painter) const
{
    const Days all = days();
    const int width = fontMetrics().horizontalAdvance(historyText::date(all.last)) + 3 * textGap;
    const int most = std::max(1, static_cast<int>(area().width()) / width);
    painter.setPen(Theme::secondaryText);
    double end = 0.0; // of the text before
    for (const QDate day : historyScale::namedDays(all.first, all.last, most)) {
        const double left =
            std::clamp(xOf(day) - width / 2.0, 0.0, QWidget::width() - double(width));
        if (left < end)
            continue;
        painter.drawText(
            QRectF(left, area().bottom() + textGap / 2.0, width, bottomMargin - textGap / 2.0),
            int(Qt::AlignCenter) | Qt::TextSingleLine, historyText::date(day));
        end = left + width;
    }
}

bool HistoryPlot::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QString text = days().first.isValid() ? textAt(help->pos()) : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), text, this);
    return true;
}

void SpeedPlot::setDays(std::vector<DaySpeed> days)
{
    m_days = std::move(days);
    QString said;
    if (!m_days.empty()) {
        const auto best = std::ranges::max_element(m_days, {}, &DaySpeed::speed);
        said =
            tr("From %1 on %2 to %3 on %4; the best is %5")
                .arg(historyText::speed(m_days.front().speed),
                     historyText::date(m_days.front().day), historyText::speed(m_days.back().speed),
                     historyText::date(m_days.back().day), historyText::speed(best->speed));
    }
    setAccessibleDescription(said);
    update();
}

HistoryPlot::Days SpeedPlot::days() const
{
    if (m_days.empty())
        return {};
    return {.first = m_days.front().day, .last = m_days.back().day};
}

historyScale::Axis SpeedPlot::axis(int mostSteps) const
{
    return historyScale::speedAxis(m_days, mostSteps);
}

QString SpeedPlot::axisText(double value) const
{
    return historyText::speed(value);
}

double SpeedPlot::xOf(QDate day) const
{
    const qint64 all = m_days.front().day.daysTo(m_days.back().day);
    const QRectF inner = area().adjusted(inset, 0.0, -inset, 0.0);
    if (all == 0)
        return inner.center().x();
    return inner.left() + inner.width() * static_cast<double>(m_days.front().day.daysTo(day)) /
                              static_cast<double>(all);
}

void SpeedPlot::drawValues(QPainter &painter, const historyScale::Axis &axis)
{
    QPolygonF line;
    for (const DaySpeed &day : m_days)
        line.append({xOf(day.day), yOf(day.speed, axis)});
    QPainterPath below;
    below.addPolygon(line);
    below.lineTo(line.last().x(), area().bottom());
    below.lineTo(line.first().x(), area().bottom());
    painter.fillPath(below, waveColors::loopBackground);
    painter.setPen(QPen(Theme::accent, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);

    const bool showsAll = line.size() < 2 || area().width() / double(line.size()) >= crowded;
    const auto best = std::ranges::max_element(m_days, {}, &DaySpeed::speed);
    const qsizetype bestAt = best - m_days.begin();
    painter.setPen(QPen(Theme::surface, 1.5));
    for (qsizetype i = 0; i < line.size(); ++i) {
        const bool isMarked = i == bestAt || i == line.size() - 1;
        if (!showsAll && !isMarked)
            continue;
        painter.setBrush(isMarked ? Theme::strongAccent : Theme::accent);
        const double radius = isMarked ? dotRadius + 1.0 : dotRadius;
        painter.drawEllipse(line[i], radius, radius);
    }
    const QString text = historyText::speed(best->speed);
    const double half = fontMetrics().horizontalAdvance(text) / 2.0 + 1.0;
    const double middle =
        std::clamp(line[bestAt].x(), area().left() + half, width() - half - textGap);
    painter.setPen(Theme::text);
    painter.drawText(
        QRectF(middle - half, line[bestAt].y() - dotRadius - topMargin, 2.0 * half, topMargin),
        int(Qt::AlignCenter) | Qt::TextSingleLine, text);
}

QString SpeedPlot::textAt(QPoint point) const
{
    const auto distance = [&](const DaySpeed &day) { return std::abs(xOf(day.day) - point.x()); };
    const auto nearest = std::ranges::min_element(m_days, {}, distance);
    return tr("%1: %2").arg(historyText::date(nearest->day), historyText::speed(nearest->speed));
}

void WeekBars::setWeeks(std::vector<WeekMinutes> weeks)
{
    m_weeks = std::move(weeks);
    setAccessibleDescription(m_weeks.empty()
                                 ? QString()
                                 : tr("%1 in the week of %2")
                                       .arg(historyText::minutes(m_weeks.back().minutes),
                                            historyText::date(m_weeks.back().monday)));
    update();
}

std::vector<WeekMinutes> WeekBars::shown() const
{
    const auto room = static_cast<std::size_t>(std::max(1.0, area().width() / leastSlot));
    const std::size_t left = m_weeks.size() > room ? m_weeks.size() - room : 0;
    return {m_weeks.begin() + static_cast<std::ptrdiff_t>(left), m_weeks.end()};
}

double WeekBars::slotWidth() const
{
    return std::min(widestSlot,
                    area().width() / static_cast<double>(std::max<std::size_t>(1, shown().size())));
}

HistoryPlot::Days WeekBars::days() const
{
    if (m_weeks.empty())
        return {};
    return {.first = shown().front().monday, .last = m_weeks.back().monday};
}

historyScale::Axis WeekBars::axis(int mostSteps) const
{
    return historyScale::minutesAxis(shown(), mostSteps);
}

QString WeekBars::axisText(double value) const
{
    return historyText::minutes(value);
}

/// The middle of a week's bar.
double WeekBars::xOf(QDate day) const
{
    const qint64 week = days().first.daysTo(day) / daysOfWeek;
    return area().left() + (static_cast<double>(week) + 0.5) * slotWidth();
}

void WeekBars::drawValues(QPainter &painter, const historyScale::Axis &axis)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::accent);
    const double bar = slotWidth() * barShare;
    for (const WeekMinutes &week : shown()) {
        if (week.minutes <= 0.0)
            continue;
        const double top = std::min(yOf(week.minutes, axis), area().bottom() - 1.0);
        QPainterPath path;
        // The round corners at the bottom lie below the ground and are cut off.
        path.addRoundedRect(
            QRectF(xOf(week.monday) - bar / 2, top, bar, area().bottom() - top + 2 * barRadius),
            barRadius, barRadius);
        painter.save();
        painter.setClipRect(QRectF(area().left(), 0.0, area().width(), area().bottom()));
        painter.drawPath(path);
        painter.restore();
    }
}

QString WeekBars::textAt(QPoint point) const
{
    const std::vector<WeekMinutes> weeks = shown();
    const double place = (point.x() - area().left()) / slotWidth();
    if (place < 0.0 || place >= static_cast<double>(weeks.size()))
        return {};
    const WeekMinutes &week = weeks[static_cast<std::size_t>(place)];
    return tr("Week of %1: %2")
        .arg(historyText::date(week.monday), historyText::minutes(week.minutes));
}

} // namespace lyrabox
