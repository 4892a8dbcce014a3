#pragma once

#include "app/practice/HistoryScale.h"
#include "practice/PracticeLog.h"

#include <QWidget>

#include <vector>

class QHelpEvent;

namespace lyrabox {

/// A plot over the days: a box with lines, the texts of both axes, and what a subclass draws. Time
/// runs from left to right in every language. The description for assistive technologies says what
/// the plot shows. Main thread.
class HistoryPlot : public QWidget {
    Q_OBJECT

public:
    explicit HistoryPlot(QWidget *parent = nullptr);

    QSize sizeHint() const override { return {420, 200}; }
    QSize minimumSizeHint() const override { return {220, 96}; }

protected:
    /// The first and the last day; null if there is nothing to show.
    struct Days {
        QDate first;
        QDate last;
    };
    virtual Days days() const = 0;
    virtual historyScale::Axis axis(int mostSteps) const = 0;
    virtual QString axisText(double value) const = 0;
    virtual void drawValues(QPainter &painter, const historyScale::Axis &axis) = 0;
    /// What is said of the place under the pointer; empty for nothing.
    virtual QString textAt(QPoint point) const = 0;

    /// Where values are drawn.
    QRectF area() const;
    virtual double xOf(QDate day) const = 0;
    double yOf(double value, const historyScale::Axis &axis) const;

    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    int mostSteps() const;
    void drawAxis(QPainter &painter, const historyScale::Axis &axis) const;
    void drawDays(QPainter &painter) const;
};

/// The best speed of a loop on each day: points that a line joins. The highest one has its value
/// beside it.
class SpeedPlot : public HistoryPlot {
    Q_OBJECT

public:
    using HistoryPlot::HistoryPlot;

    void setDays(std::vector<DaySpeed> days);

protected:
    Days days() const override;
    historyScale::Axis axis(int mostSteps) const override;
    QString axisText(double value) const override;
    void drawValues(QPainter &painter, const historyScale::Axis &axis) override;
    QString textAt(QPoint point) const override;
    double xOf(QDate day) const override;

private:
    std::vector<DaySpeed> m_days;
};

/// The minutes of each week as bars. Shows the last weeks, as many as have room.
class WeekBars : public HistoryPlot {
    Q_OBJECT

public:
    using HistoryPlot::HistoryPlot;

    void setWeeks(std::vector<WeekMinutes> weeks);

protected:
    Days days() const override;
    historyScale::Axis axis(int mostSteps) const override;
    QString axisText(double value) const override;
    void drawValues(QPainter &painter, const historyScale::Axis &axis) override;
    QString textAt(QPoint point) const override;
    double xOf(QDate day) const override;

private:
    std::vector<WeekMinutes> shown() const;
    double slotWidth() const;

    std::vector<WeekMinutes> m_weeks;
};

/// The speed of a day and the minutes of a week as they are written in plots and tables.
namespace historyText {

/// "72.5 %"
QString speed(double percent);
/// "45 min", from an hour on "1 h 5 min"
QString minutes(double minutes);
/// The date as the language writes it.
QString date(QDate day);

} // namespace historyText
} // namespace lyrabox
