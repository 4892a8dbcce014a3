#include "app/practice/HistoryWindow.h"

#include "app/controls/LB_TableHeaderCell.h"
#include "app/controls/LB_TableRowView.h"
#include "app/practice/HistoryModels.h"
#include "app/practice/HistoryPlots.h"
#include "app/practice/PracticeDiary.h"
#include "app/practice/SongPractice.h"
#include "platform/ui/ElidedLabel.h"
#include "platform/ui/ListEndKeys.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace lyrabox {

namespace {

constexpr int margin = 14;
constexpr QSize usualSize{900, 540};
constexpr int leastListWidth = 280;
constexpr int mostListWidth = 420;
constexpr double nameSize = 17.0;
constexpr double smallSize = 11.0;
constexpr int cellPadding = 16;
constexpr int emptyTextWidth = 380;

void makeQuiet(QLabel *label)
{
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
}

void setUpTable(QTableView *table, QAbstractItemModel *rows, const QString &name)
{
    table->setAccessibleName(name);
    table->setHorizontalHeader(new LB_TableHeaderCell(Qt::Horizontal, table));
    LB_TableRowView::install(table, LB_TableRowView::Separators::Hairline);
    table->setModel(rows);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->horizontalHeader()->setMinimumSectionSize(0);
    table->horizontalHeader()->setSectionsClickable(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->setFrameShape(QFrame::StyledPanel);
    new ListEndKeys(table);
}

QLabel *makeTitle(const QString &text, QWidget *parent)
{
    auto *title = new QLabel(text, parent);
    QFont font = uiFont(Theme::textSize);
    font.setBold(true);
    title->setFont(font);
    return title;
}

} // namespace

HistoryWindow::HistoryWindow(PracticeDiary *diary, const SongPractice *practice, QWidget *parent)
    : QDialog(parent),
      m_diary(diary),
      m_practice(practice),
      m_parts(new QStackedWidget(this)),
      m_rows(new HistoryLoops(this)),
      m_list(new QTableView(this)),
      m_name(new ElidedLabel(this)),
      m_song(new ElidedLabel(this)),
      m_form(new SegmentedControl(this)),
      m_speedForms(new QStackedWidget(this)),
      m_weekForms(new QStackedWidget(this)),
      m_speedPlot(new SpeedPlot(this)),
      m_weekBars(new WeekBars(this)),
      m_speedRows(new HistoryTable(tr("Day"), tr("Best Speed"), this)),
      m_weekRows(new HistoryTable(tr("Week"), tr("Practised"), this)),
      m_place(new ElidedLabel(this)),
      m_forget(new QPushButton(tr("Forget History…"), this))
{
    setObjectName(QStringLiteral("historyWindow"));
    setWindowTitle(tr("Practice History"));
    auto *full = new QWidget(this);
    auto *columns = new QHBoxLayout(full);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(margin);
    columns->addWidget(makeLoops(), 3);
    columns->addWidget(makePlots(), 4);
    m_parts->addWidget(makeEmptyPage());
    m_parts->addWidget(full);
    // The keyboard is in the list from the start, also while a slow disk is read. In an empty
    // window it would be on Close.
    m_parts->setCurrentWidget(full);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(margin);
    column->addWidget(m_parts, 1);
    column->addWidget(makeButtons());
    resize(usualSize);

    const auto refreshShown = [this] {
        if (isVisible())
            refresh();
    };
    connect(diary, &PracticeDiary::bestSpeedsChanged, this, refreshShown);
    connect(&practice->store(), &PracticeStore::recordChanged, this, [this] {
        if (isVisible())
            showRows();
    });
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &HistoryWindow::showLoop);
}

QWidget *HistoryWindow::makeEmptyPage()
{
    auto *empty = new QLabel(tr("Nothing was practised yet. Keep a loop and play it: its best "
                                "speed of each day, and the minutes of each week, appear here."),
                             this);
    empty->setObjectName(QStringLiteral("emptyHistory"));
    empty->setWordWrap(true);
    empty->setAlignment(Qt::AlignCenter);
    empty->setMaximumWidth(emptyTextWidth);
    makeQuiet(empty);
    auto *emptyPage = new QWidget(this);
    auto *centre = new QHBoxLayout(emptyPage);
    centre->addWidget(empty);
    return emptyPage;
}

QWidget *HistoryWindow::makeLoops()
{
    setUpTable(m_list, m_rows, tr("Practised loops"));
    m_list->setMinimumWidth(leastListWidth);
    m_list->setMaximumWidth(mostListWidth);
    return m_list;
}

QTableView *HistoryWindow::makeTable(HistoryTable *rows, const QString &name)
{
    auto *table = new QTableView(this);
    setUpTable(table, rows, name);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    return table;
}

QWidget *HistoryWindow::makePlots()
{
    auto *plots = new QWidget(this);
    auto *column = new QVBoxLayout(plots);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(Theme::grid);
    m_name->setFont(uiFont(nameSize));
    makeQuiet(m_song);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_song->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_form->setSegments({tr("Plot"), tr("Table")});
    m_form->setAccessibleName(tr("Form"));
    m_form->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);

    auto *names = new QVBoxLayout;
    names->setSpacing(2);
    names->addWidget(m_name);
    names->addWidget(m_song);
    auto *top = new QHBoxLayout;
    top->setSpacing(margin);
    top->addLayout(names, 1);
    top->addWidget(m_form);
    column->addLayout(top);

    const QString speeds = tr("Best Speed of Each Day");
    const QString weeks = tr("Minutes of Each Week, All Loops");
    m_speedPlot->setAccessibleName(speeds);
    m_weekBars->setAccessibleName(weeks);
    m_speedForms->addWidget(m_speedPlot);
    m_speedForms->addWidget(makeTable(m_speedRows, speeds));
    m_weekForms->addWidget(m_weekBars);
    m_weekForms->addWidget(makeTable(m_weekRows, weeks));
    column->addWidget(makeTitle(speeds, plots));
    column->addWidget(m_speedForms, 3);
    column->addWidget(makeTitle(weeks, plots));
    column->addWidget(m_weekForms, 2);
    connect(m_form, &SegmentedControl::pressed, this, [this] {
        m_speedForms->setCurrentIndex(m_form->selectedSegment());
        m_weekForms->setCurrentIndex(m_form->selectedSegment());
    });
    return plots;
}

QWidget *HistoryWindow::makeButtons()
{
    auto *buttons = new QWidget(this);
    auto *row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(Theme::grid);
    m_place->setFont(uiFont(smallSize));
    m_place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    makeQuiet(m_place);
    showPlace(true);
    auto *done = new QPushButton(tr("Close"), this);
    // Return must not close the window while the keyboard is in the list.
    done->setAutoDefault(false);
    m_forget->setAutoDefault(false);
    row->addWidget(m_place, 1);
    row->addWidget(m_forget);
    row->addWidget(done);
    setTabOrder(m_form, m_speedForms->widget(1));
    setTabOrder(m_speedForms->widget(1), m_weekForms->widget(1));
    setTabOrder(m_weekForms->widget(1), m_forget);
    setTabOrder(m_forget, done);
    connect(done, &QPushButton::clicked, this, &QDialog::close);
    connect(m_forget, &QPushButton::clicked, this, &HistoryWindow::askToForget);
    return buttons;
}

void HistoryWindow::showPlace(bool couldForget)
{
    m_place->setText(couldForget ? tr("The history is kept on this computer only.")
                                 : tr("The history could not be deleted."));
}

void HistoryWindow::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    showPlace(true);
    refresh();
}

void HistoryWindow::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    // What is played meanwhile is told of by no change.
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        refresh();
}

void HistoryWindow::refresh()
{
    if (std::exchange(m_isReading, true)) {
        m_isOutOfDate = true;
        return;
    }
    m_isOutOfDate = false;
    m_diary->read([window = QPointer(this)](PracticeLogReading reading) {
        if (window)
            window->take(std::move(reading));
    });
}

void HistoryWindow::take(PracticeLogReading reading)
{
    m_isReading = false;
    m_lines = std::move(reading.lines);
    showRows();
    if (std::exchange(m_isOutOfDate, false))
        refresh();
    else
        Q_EMIT shown();
}

/// Shows all loops, and selects the one that was selected, or is called up, or is the first.
void HistoryWindow::showRows()
{
    const bool isEmpty = m_lines.empty();
    m_parts->setCurrentIndex(isEmpty ? 0 : 1);
    m_forget->setEnabled(!isEmpty);
    std::optional<PracticeLogLine> selected = m_selected;
    if (const PracticeLoop *loop = m_practice->calledUpLoop(); loop != nullptr && !selected) {
        selected = m_diary->songLine();
        selected->loop = loop->name;
        selected->from = loop->from;
        selected->to = loop->to;
    }
    m_rows->setLines(m_lines, m_diary->songLine(), QDate::currentDate());
    m_list->clearSpans();
    for (int row = 0; row < m_rows->rowCount(); ++row) {
        if (!m_rows->loop(row))
            m_list->setSpan(row, 0, 1, HistoryLoops::Columns);
    }
    const int row = selected ? m_rows->rowOf(*selected) : -1;
    m_list->selectRow(row >= 0 ? row : m_rows->firstRow());
    fitColumns();

    const std::vector<WeekMinutes> weeks = minutesByWeek(m_lines);
    m_weekBars->setWeeks(weeks);
    std::vector<HistoryTable::Row> weekRows;
    for (const WeekMinutes &week : weeks)
        weekRows.push_back({historyText::date(week.monday), historyText::minutes(week.minutes)});
    m_weekRows->setRows(std::move(weekRows));
    showLoop();
}

void HistoryWindow::showLoop()
{
    const std::optional<PracticeLogLine> loop = m_rows->loop(m_list->currentIndex().row());
    if (!loop)
        return;
    m_selected = loop;
    m_name->setText(historyLoopName(*loop));
    m_song->setText(loop->artist.isEmpty() ? loop->song
                                           : tr("%1 · %2").arg(loop->song, loop->artist));
    const std::vector<DaySpeed> days = bestSpeedByDay(m_lines, *loop);
    m_speedPlot->setDays(days);
    std::vector<HistoryTable::Row> dayRows;
    for (const DaySpeed &day : days)
        dayRows.push_back({historyText::date(day.day), historyText::speed(day.speed)});
    m_speedRows->setRows(std::move(dayRows));
}

/// The numbers get what they need, the song and the loop share the rest.
void HistoryWindow::fitColumns()
{
    QHeaderView *header = m_list->horizontalHeader();
    for (const int column : {HistoryLoops::Best, HistoryLoops::Practised}) {
        int width = header->fontMetrics().horizontalAdvance(
            m_rows->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
        for (int row = 0; row < m_rows->rowCount(); ++row) {
            const QString text = m_rows->index(row, column).data(Qt::DisplayRole).toString();
            width = std::max(width, m_list->fontMetrics().horizontalAdvance(text));
        }
        header->setSectionResizeMode(column, QHeaderView::Fixed);
        header->resizeSection(column, width + cellPadding);
    }
    for (const int column : {HistoryLoops::Loop, HistoryLoops::Song})
        header->setSectionResizeMode(column, QHeaderView::Stretch);
}

void HistoryWindow::askToForget()
{
    auto *box = new QMessageBox(QMessageBox::Question, windowTitle(),
                                tr("Forget the whole history?"), QMessageBox::Cancel, this);
    box->setInformativeText(tr("The best speeds and the minutes of all songs are deleted from this "
                               "computer. They were never anywhere else. Loops and markers stay."));
    QPushButton *forget = box->addButton(tr("Forget History"), QMessageBox::DestructiveRole);
    box->setDefaultButton(QMessageBox::Cancel);
    box->setAttribute(Qt::WA_DeleteOnClose);
    connect(forget, &QPushButton::clicked, this, [this] {
        m_selected.reset();
        m_diary->forget([window = QPointer(this)](bool isGone) {
            if (!window)
                return;
            window->showPlace(isGone);
            window->refresh();
        });
    });
    box->open();
}

} // namespace lyrabox
