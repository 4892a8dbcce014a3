#include "PracticingFixture.h"
#include "app/practice/HistoryModels.h"
#include "app/practice/HistoryPlots.h"
#include "app/practice/HistoryWindow.h"
#include "app/practice/PracticeDiary.h"
#include "platform/ui/SegmentedControl.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTimeZone>

using namespace lyrabox;
using namespace lyrabox::test;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int patience = 60000;
const QDate today(2026, 11, 23);

PracticeLogLine line(const QString &song, const QString &loop, int daysAgo, double speed,
                     int passes = 2, std::uint64_t from = 0)
{
    return {.at = {today.addDays(-daysAgo), QTime(20, 0), QTimeZone(3600)},
            .song = song,
            .loop = loop,
            .from = from,
            .to = from + 1000,
            .speed = speed,
            .passes = passes,
            .seconds = 90};
}

std::vector<PracticeLogLine> history()
{
    return {line(u"B"_s, u"Coda"_s, 30, 70.0),        line(u"B"_s, u"Bridge"_s, 40, 60.0),
            line(u"A"_s, u"Ending"_s, 9, 80.0, 2, 9), line(u"A"_s, u"Riff"_s, 8, 65.0),
            line(u"A"_s, u"Riff"_s, 1, 75.0),         line(u"A"_s, u"Ending"_s, 0, 90.0, 0, 9)};
}

QStringList texts(const QAbstractItemModel &rows, int column)
{
    QStringList all;
    for (int row = 0; row < rows.rowCount(); ++row)
        all.append(rows.index(row, column).data().toString());
    return all;
}

TEST(TheHistorysLoops, AreThoseOfTheSongFirstThenTheOthersWithTheLongestNotPractisedFirst)
{
    HistoryLoops rows;
    rows.setLines(history(), line(u"A"_s, {}, 0, 0.0), today);
    EXPECT_EQ(texts(rows, HistoryLoops::Loop),
              (QStringList{u"This Song"_s, u"Riff"_s, u"Ending"_s,
                           u"Other Songs, Longest Not Practised First"_s, u"Bridge"_s, u"Coda"_s}));
    EXPECT_EQ(texts(rows, HistoryLoops::Best),
              (QStringList{{}, u"75 %"_s, u"80 %"_s, {}, u"60 %"_s, u"70 %"_s}));
    EXPECT_EQ(rows.index(1, HistoryLoops::Practised).data().toString(), u"Yesterday"_s);
    EXPECT_EQ(rows.index(2, HistoryLoops::Practised).data().toString(), u"Today"_s);
    EXPECT_FALSE(rows.loop(0));
    EXPECT_FALSE(rows.flags(rows.index(0, 0)).testFlag(Qt::ItemIsSelectable));
    EXPECT_EQ(rows.rowOf(line(u"B"_s, u"Coda"_s, 0, 0.0)), 5);
}

TEST(TheHistorysLoops, HaveOnePartWithoutASong)
{
    HistoryLoops rows;
    rows.setLines(history(), {}, today);
    EXPECT_EQ(rows.rowCount(), 5);
    rows.setLines({}, {}, today);
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_EQ(rows.firstRow(), -1);
}

TEST(TheHistorysLoops, ALoopWithoutANameIsNamedByItsPlace)
{
    PracticeLogLine loop = line(u"A"_s, {}, 0, 70.0);
    loop.from = 44100;
    loop.to = 44100 * 3;
    EXPECT_EQ(historyLoopName(loop), u"0:01.000 to 0:03.000"_s);
}

class TheHistoryWindow : public PracticingFixture {
protected:
    void writeHistory(const std::vector<PracticeLogLine> &lines) const
    {
        PracticeLog log(folder() + u"/History.csv"_s);
        for (const PracticeLogLine &each : lines)
            ASSERT_TRUE(log.add(each));
    }

    void open()
    {
        diary = std::make_unique<PracticeDiary>(&audio(), practice.get(), folder());
        window = std::make_unique<HistoryWindow>(diary.get(), practice.get(), nullptr);
        QSignalSpy shown(window.get(), &HistoryWindow::shown);
        window->show();
        ASSERT_TRUE(!shown.isEmpty() || shown.wait(patience));
    }

    ~TheHistoryWindow() override
    {
        window.reset();
        diary.reset();
    }

    bool isEmpty() const { return window->findChild<QLabel *>(u"emptyHistory"_s)->isVisible(); }
    QString described(const QString &name) const
    {
        for (const auto *plot : window->findChildren<HistoryPlot *>()) {
            if (plot->accessibleName() == name)
                return plot->accessibleDescription();
        }
        return {};
    }
    QPushButton *button(QWidget *parent, const QString &text) const
    {
        for (auto *each : parent->findChildren<QPushButton *>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }

    std::unique_ptr<PracticeDiary> diary;
    std::unique_ptr<HistoryWindow> window;
};

TEST_F(TheHistoryWindow, SaysWhatWillAppearWhileThereIsNothing)
{
    open();
    EXPECT_TRUE(isEmpty());
    EXPECT_FALSE(button(window.get(), u"Forget History…"_s)->isEnabled());
}

TEST_F(TheHistoryWindow, ShowsTheBestSpeedsOfTheSelectedLoop)
{
    load(u"A"_s);
    writeHistory(history());
    open();
    EXPECT_FALSE(isEmpty());
    EXPECT_EQ(window->loops()->currentIndex().row(), 1);
    EXPECT_TRUE(described(u"Best Speed of Each Day"_s).contains(u"65 %"_s));
    EXPECT_TRUE(described(u"Best Speed of Each Day"_s).contains(u"75 %"_s));
    QTest::keyClick(window->loops(), Qt::Key_Down);
    EXPECT_TRUE(described(u"Best Speed of Each Day"_s).contains(u"80 %"_s));
    QTest::keyClick(window->loops(), Qt::Key_Down); // over the title of the second part
    EXPECT_EQ(window->loops()->currentIndex().row(), 4);
    EXPECT_FALSE(described(u"Minutes of Each Week, All Loops"_s).isEmpty());
}

TEST_F(TheHistoryWindow, SelectsTheLoopThatIsCalledUp)
{
    load(u"A"_s);
    const PracticeId loop = addLoop(9, 1009, u"Ending"_s);
    writeHistory(history());
    practice->play(loop);
    open();
    EXPECT_EQ(window->loops()->currentIndex().row(), 2);
}

TEST_F(TheHistoryWindow, ShowsThePlotsAsTablesToo)
{
    load(u"A"_s);
    writeHistory(history());
    open();
    window->findChild<SegmentedControl *>()->pressSegment(1);
    QStringList shown;
    for (const auto *table : window->findChildren<QTableView *>()) {
        if (table->isVisible() && table != window->loops())
            shown.append(table->accessibleName() + u": "_s + texts(*table->model(), 1).join(u", "));
    }
    EXPECT_EQ(shown, (QStringList{u"Best Speed of Each Day: 75 %, 65 %"_s,
                                  u"Minutes of Each Week, All Loops: 2 min, 2 min, 3 min, 0 min, "
                                  u"0 min, 2 min, 2 min"_s}));
}

TEST_F(TheHistoryWindow, FollowsWhatIsPractisedAndKeepsTheSelection)
{
    load(u"A"_s);
    writeHistory(history());
    const PracticeId loop = addLoop(9, 1009, u"New"_s);
    open();
    QTest::keyClick(window->loops(), Qt::Key_End);
    const int last = window->loops()->currentIndex().row();
    QSignalSpy shown(window.get(), &HistoryWindow::shown);
    practice->play(loop);
    transport.audio.pull(4096); // four passes and a bit
    audio().setIsRunning(false);
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return texts(*window->loops()->model(), 0).contains(u"New"_s); }, patience));
    EXPECT_EQ(window->loops()->currentIndex().row(), last + 1);
    EXPECT_FALSE(isEmpty());
}

TEST_F(TheHistoryWindow, AsksBeforeItForgets)
{
    load(u"A"_s);
    writeHistory(history());
    open();
    const auto ask = [this] {
        button(window.get(), u"Forget History…"_s)->click();
        return window->findChild<QMessageBox *>();
    };
    QTest::keyClick(ask(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QFile::exists(folder() + u"/History.csv"_s));
    QSignalSpy shown(window.get(), &HistoryWindow::shown);
    button(ask(), u"Forget History"_s)->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return isEmpty(); }, patience));
    EXPECT_FALSE(QFile::exists(folder() + u"/History.csv"_s));
}

TEST_F(TheHistoryWindow, EscapeClosesIt)
{
    open();
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(TheHistoryWindow, DrawsAnyHistory)
{
    load(u"A"_s);
    std::vector<PracticeLogLine> lines;
    for (int day = 0; day < 3700; day += 3)
        lines.push_back(line(u"A"_s, u"Long"_s, day, 50.0 + day % 60));
    lines.push_back(line(u"A"_s, u"One day"_s, 5, 400.0));
    lines.push_back(line(u"A"_s, u"Only missed"_s, 5, 70.0, 0));
    writeHistory(lines);
    open();
    for (const QSize size : {QSize(1, 1), QSize(2000, 1400), QSize(900, 540)}) {
        window->resize(size);
        for (int row = 0; row < window->loops()->model()->rowCount(); ++row) {
            window->loops()->selectRow(row);
            EXPECT_FALSE(window->grab().isNull());
        }
    }
}

} // namespace
