#pragma once

#include "practice/PracticeLog.h"

#include <QDialog>
#include <QEvent>

#include <optional>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTableView;

namespace lyrabox {

class ElidedLabel;
class HistoryLoops;
class HistoryTable;
class PracticeDiary;
class SegmentedControl;
class SongPractice;
class SpeedPlot;
class WeekBars;

/// The history of practising: the loops that were practised, the best speed of the selected one day
/// by day, and the minutes of each week. The plots can be read as tables, too. Follows the diary
/// while it is shown. It is not modal. Main thread.
class HistoryWindow : public QDialog {
    Q_OBJECT

public:
    /// Both must outlive the window.
    HistoryWindow(PracticeDiary *diary, const SongPractice *practice, QWidget *parent);

    QTableView *loops() const { return m_list; }

    /// Asks whether the history should be forgotten, without blocking.
    void askToForget();

Q_SIGNALS:
    /// The window shows what the diary had when it was asked.
    void shown();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeEmptyPage();
    QWidget *makeLoops();
    QWidget *makePlots();
    QWidget *makeButtons();
    QTableView *makeTable(HistoryTable *rows, const QString &name);
    void refresh();
    void take(PracticeLogReading reading);
    void showRows();
    void showLoop();
    void showPlace(bool couldForget);
    void fitColumns();

    PracticeDiary *m_diary;
    const SongPractice *m_practice;
    std::vector<PracticeLogLine> m_lines;
    bool m_isReading = false;
    bool m_isOutOfDate = false; ///< the diary has more than what is being read
    std::optional<PracticeLogLine> m_selected;

    QStackedWidget *m_parts; ///< the text for an empty history, or everything else
    HistoryLoops *m_rows;
    QTableView *m_list;
    ElidedLabel *m_name;
    ElidedLabel *m_song;
    SegmentedControl *m_form;
    QStackedWidget *m_speedForms; ///< the plot, and the same as a table
    QStackedWidget *m_weekForms;
    SpeedPlot *m_speedPlot;
    WeekBars *m_weekBars;
    HistoryTable *m_speedRows;
    HistoryTable *m_weekRows;
    ElidedLabel *m_place;
    QPushButton *m_forget;
};

} // namespace lyrabox
