#include "WholeProgram.h"
#include "app/controls/LB_Slider.h"
#include "library/TrackTableModel.h"
#include "platform/ui/ButtonMatrix.h"
#include "platform/ui/Popover.h"
#include "sources/SourceTreeView.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTableView>
#include <QTest>

#include <gmock/gmock.h>

#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;
using test::WholeProgram;

namespace {

/// The name of a control for failure messages.
std::string nameOf(const QWidget *widget)
{
    const QString name =
        widget->objectName().isEmpty() ? widget->accessibleName() : widget->objectName();
    return (widget->parentWidget()->objectName() + u'/' + name).toStdString();
}

class Keyboard : public testing::Test {
protected:
    explicit Keyboard(Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        QApplication::setLayoutDirection(direction);
        program.emplace();
        program->composition->launch();
        main = WholeProgram::window(u"MainWindow"_s);
        equalizer = WholeProgram::window(u"EqualizerWindow"_s);
        activate(main);
    }

    ~Keyboard() override
    {
        program.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    static void activate(QMainWindow *window)
    {
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    }

    template <typename Widget>
    static Widget *find(QMainWindow *window, const QString &name)
    {
        auto *found = window->findChild<Widget *>(name);
        EXPECT_NE(found, nullptr) << name.toStdString();
        return found;
    }

    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }

    static bool popoverIsShown(QMainWindow *window)
    {
        return window->findChild<Popover *>()->isShown();
    }

    /// The command of the menu bar with this text.
    QAction *command(const QString &text) const
    {
        for (QAction *action : main->findChildren<QAction *>()) {
            if (QString(action->text()).remove(u'&') == text)
                return action;
        }
        ADD_FAILURE() << "no command " << text.toStdString();
        return nullptr;
    }

    std::optional<WholeProgram> program;
    QMainWindow *main;
    QMainWindow *equalizer;
};

/// Every control that Tab should reach while a song is loaded.
QList<QWidget *> tabStops(QMainWindow *window)
{
    QList<QWidget *> stops;
    for (QWidget *widget : window->findChildren<QWidget *>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible())
            continue;
        widget->setEnabled(true);
        stops.append(widget);
    }
    return stops;
}

QRect onWindow(const QWidget *widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

/// The areas of the window in reading order. Inside an area, rows are read from top to bottom.
int areaOf(const QWidget *widget)
{
    const QStringList areas{u"sourcePane"_s, u"divider"_s, u"trackPane"_s, u"transportView"_s,
                            u"presetPane"_s, u"sliders"_s, u"boxes"_s,     u"stepControls"_s};
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (areas.contains(widget->objectName()))
            return static_cast<int>(areas.indexOf(widget->objectName()));
    }
    return -1;
}

bool isReadBefore(const QWidget *first, const QWidget *second)
{
    const int firstArea = areaOf(first);
    const int secondArea = areaOf(second);
    if (firstArea != secondArea)
        return firstArea < secondArea;
    const QRect a = onWindow(first);
    const QRect b = onWindow(second);
    const bool sameRow = a.top() <= b.bottom() && b.top() <= a.bottom();
    if (!sameRow)
        return a.top() < b.top();
    const bool mirrored = first->parentWidget()->layoutDirection() == Qt::RightToLeft;
    return mirrored ? a.left() > b.left() : a.left() < b.left();
}

class TabOrder : public Keyboard, public testing::WithParamInterface<Qt::LayoutDirection> {
protected:
    TabOrder() : Keyboard(GetParam()) {}

    static void expectCompleteRound(QMainWindow *window)
    {
        const QList<QWidget *> stops = tabStops(window);
        ASSERT_FALSE(stops.isEmpty());
        QWidget *start = *std::min_element(stops.begin(), stops.end(), isReadBefore);
        start->setFocus(Qt::TabFocusReason);
        QList<QWidget *> visited;
        for (qsizetype i = 0; i < stops.size(); ++i) {
            visited.append(QApplication::focusWidget());
            press(Qt::Key_Tab);
        }
        EXPECT_EQ(nameOf(QApplication::focusWidget()), nameOf(start));
        for (QWidget *stop : stops)
            EXPECT_EQ(visited.count(stop), 1) << nameOf(stop);
        for (qsizetype i = 1; i < visited.size(); ++i)
            EXPECT_TRUE(isReadBefore(visited.at(i - 1), visited.at(i)))
                << nameOf(visited.at(i - 1)) << " before " << nameOf(visited.at(i));

        for (qsizetype i = visited.size(); i-- > 0;) {
            press(Qt::Key_Backtab, Qt::ShiftModifier);
            EXPECT_EQ(nameOf(QApplication::focusWidget()), nameOf(visited.at(i)));
        }
    }
};

TEST_P(TabOrder, ReachesEveryControlOfTheMainWindowInReadingOrder)
{
    expectCompleteRound(main);
    command(u"Playlists and Folders"_s)->trigger();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(GetParam() == Qt::LeftToRight ? Qt::Key_Right : Qt::Key_Left); // to the other tab
    expectCompleteRound(main);
}

TEST_P(TabOrder, ReachesEveryControlOfTheEqualizerInReadingOrder)
{
    activate(equalizer);
    expectCompleteRound(equalizer);
}

INSTANTIATE_TEST_SUITE_P(Both, TabOrder, testing::Values(Qt::LeftToRight, Qt::RightToLeft),
                         [](const auto &direction) {
                             return direction.param == Qt::LeftToRight ? "LeftToRight"
                                                                       : "RightToLeft";
                         });

TEST_F(Keyboard, EndGoesToTheLastPreset)
{
    activate(equalizer);
    auto *presets = find<QTableView>(equalizer, u"presetTableView"_s);
    presets->setFocus();
    press(Qt::Key_End);
    EXPECT_EQ(presets->currentIndex().row(), presets->model()->rowCount() - 1);
}

TEST_F(Keyboard, EscapeInAPopoverReturnsTheFocus)
{
    auto *songs = find<QTableView>(main, u"trackTableView"_s);
    songs->setFocus();
    command(u"Add Folder…"_s)->trigger();
    ASSERT_TRUE(popoverIsShown(main));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"browserOutlineView"_s);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    EXPECT_TRUE(main->findChild<Popover *>()->isAncestorOf(QApplication::focusWidget()));
    press(Qt::Key_Escape);
    EXPECT_FALSE(popoverIsShown(main));
    EXPECT_EQ(QApplication::focusWidget(), songs);
}

TEST_F(Keyboard, AddsAndRemovesAFolder)
{
    ASSERT_TRUE(QDir::home().mkpath(u"Music/Practice"_s));
    auto *folders = find<SourceTreeView>(main, u"folderOutlineView"_s);
    const int before = folders->model()->rowCount();
    QTest::keyClick(main, Qt::Key_O, Qt::ControlModifier);
    press(Qt::Key_Down);  // selects the home folder
    press(Qt::Key_Right); // expands it
    press(Qt::Key_Down);  // selects Music, which contains a folder
    press(Qt::Key_Return);
    EXPECT_FALSE(popoverIsShown(main));
    ASSERT_EQ(folders->model()->rowCount(), before + 1);
    EXPECT_EQ(folders->selectedRow().data().toString(), u"Music"_s);

    QTest::keyClick(main, Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), folders);
    press(Qt::Key_Delete);
    ASSERT_TRUE(popoverIsShown(main));
    EXPECT_EQ(main->findChild<Popover *>()->accessibleName(), u"Remove folder 'Music'?"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(popoverIsShown(main));
    EXPECT_EQ(folders->model()->rowCount(), before);
    EXPECT_EQ(QApplication::focusWidget(), folders);
}

TEST_F(Keyboard, AddsAndRemovesAPreset)
{
    activate(equalizer);
    auto *presets = find<QTableView>(equalizer, u"presetTableView"_s);
    presets->setFocus();
    const int before = presets->model()->rowCount();
    press(Qt::Key_Insert);
    ASSERT_TRUE(popoverIsShown(equalizer));
    QTest::keyClicks(QApplication::focusWidget(), u"Quiet L = 5"_s);
    press(Qt::Key_Return);
    EXPECT_FALSE(popoverIsShown(equalizer));
    ASSERT_EQ(presets->model()->rowCount(), before + 1);
    EXPECT_EQ(presets->currentIndex().data().toString(), u"Quiet L = 5"_s);
    EXPECT_EQ(QApplication::focusWidget(), presets);

    press(Qt::Key_Insert); // disabled: the selected preset can only be removed
    EXPECT_FALSE(popoverIsShown(equalizer));
    press(Qt::Key_Delete);
    ASSERT_TRUE(popoverIsShown(equalizer));
    press(Qt::Key_Return);
    EXPECT_EQ(presets->model()->rowCount(), before);
    press(Qt::Key_Delete); // disabled: a built-in preset cannot be removed
    EXPECT_FALSE(popoverIsShown(equalizer));
}

TEST_F(Keyboard, MovesAnEqualizerBandByStepsPagesAndToItsEnds)
{
    activate(equalizer);
    auto *slider = find<LB_Slider>(equalizer, u"slider3"_s);
    slider->setFocus(Qt::TabFocusReason);
    slider->setFloatValue(0.0);
    press(Qt::Key_Up);
    EXPECT_FLOAT_EQ(slider->floatValue(), 1.0F);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_FLOAT_EQ(slider->floatValue(), -1.0F);
    press(Qt::Key_PageUp);
    EXPECT_FLOAT_EQ(slider->floatValue(), 2.0F);
    press(Qt::Key_PageDown);
    EXPECT_FLOAT_EQ(slider->floatValue(), -1.0F);
    press(Qt::Key_Home);
    EXPECT_FLOAT_EQ(slider->floatValue(), -12.0F);
    press(Qt::Key_End);
    EXPECT_FLOAT_EQ(slider->floatValue(), 12.0F);
}

TEST_F(Keyboard, SortsTheListFromTheMenu)
{
    const auto sortedBy = [this] {
        QStringList checked;
        for (const QString &column : {u"Playing"_s, u"Title"_s, u"Artist"_s, u"Album"_s, u"Time"_s,
                                      u"Kept Speed and Pitch"_s}) {
            if (command(column)->isChecked())
                checked << column;
        }
        return checked;
    };
    command(u"Artist"_s)->trigger();
    EXPECT_EQ(sortedBy(), QStringList(u"Artist"_s));
    const auto *songs = find<QTableView>(main, u"trackTableView"_s);
    const auto header = [songs](int column) {
        return songs->model()->headerData(column, Qt::Horizontal).toString();
    };
    const QString rising = header(TrackTableModel::Artist);
    command(u"Reverse Order"_s)->trigger();
    EXPECT_EQ(sortedBy(), QStringList(u"Artist"_s));
    EXPECT_NE(header(TrackTableModel::Artist), rising);
    command(u"Artist"_s)->trigger();
    EXPECT_EQ(header(TrackTableModel::Artist), rising);
}

TEST_F(Keyboard, MovesTheDivider)
{
    auto *split = find<SplitView>(main, u"splitView"_s);
    auto *divider = find<QWidget>(main, u"divider"_s);
    split->setDividerPosition(200);
    divider->setFocus(Qt::TabFocusReason);
    press(Qt::Key_Right);
    EXPECT_EQ(split->dividerPosition(), 208);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    EXPECT_EQ(split->dividerPosition(), 192);
    press(Qt::Key_Home);
    EXPECT_EQ(split->dividerPosition(), split->minimumDividerPosition());
    press(Qt::Key_End);
    EXPECT_EQ(split->dividerPosition(), split->maximumDividerPosition());
}

TEST_F(Keyboard, TheMenuKeyOpensContextMenus)
{
    activate(equalizer);
    for (QWidget *view :
         {find<QWidget>(equalizer, u"presetTableView"_s), find<QWidget>(main, u"trackTableView"_s),
          find<QWidget>(main, u"folderOutlineView"_s)}) {
        EXPECT_EQ(view->contextMenuPolicy(), Qt::ActionsContextMenu) << nameOf(view);
        EXPECT_FALSE(view->actions().isEmpty()) << nameOf(view);
    }
}

TEST_F(Keyboard, ShowsEveryTransportKeyInTheMenus)
{
    const QHash<QString, QString> keys{
        {u"Play or Pause"_s, u"Space"_s},
        {u"Next Song"_s, u"Ctrl+Right"_s},
        {u"Previous Song"_s, u"Ctrl+Left"_s},
        {u"Back 5 Seconds"_s, u"Shift+Left"_s},
        {u"Forward 5 Seconds"_s, u"Shift+Right"_s},
        {u"Loop"_s, u"L"_s},
        {u"Faster"_s, u"="_s},
        {u"Slower"_s, u"-"_s},
        {u"Normal Speed"_s, u"0"_s},
        {u"Pitch Up"_s, u"]"_s},
        {u"Pitch Down"_s, u"["_s},
        {u"Original Pitch"_s, u"\\"_s},
    };
    for (auto key = keys.begin(); key != keys.end(); ++key)
        EXPECT_EQ(command(key.key())->shortcut().toString(), key.value());
}

TEST_F(Keyboard, EveryCommandOfTheMenuBarHasItsOwnMnemonicAndKey)
{
    QStringList keys;
    for (QMenu *menu : main->menuBar()->findChildren<QMenu *>()) {
        if (menu->title().isEmpty())
            continue; // the bar's own menu of items that do not fit
        EXPECT_FALSE(menu->accessibleName().isEmpty()) << menu->title().toStdString();
        QStringList letters;
        for (const QAction *action : menu->actions()) {
            if (action->isSeparator())
                continue;
            const qsizetype mark = action->text().indexOf(u'&');
            ASSERT_GE(mark, 0) << action->text().toStdString();
            letters << QString(action->text().at(mark + 1)).toLower();
            for (const QKeySequence &key : action->shortcuts())
                keys << key.toString();
        }
        EXPECT_EQ(letters.removeDuplicates(), 0)
            << menu->title().toStdString() << " " << letters.join(u' ').toStdString();
    }
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

TEST_F(Keyboard, ReturnInTheSearchFieldFocusesTheTransport)
{
    QTest::keyClick(main, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"searchField"_s);
    QTest::keyClicks(QApplication::focusWidget(),
                     u"l 0-="_s); // transport keys are typed as text here
    EXPECT_EQ(qobject_cast<QLineEdit *>(QApplication::focusWidget())->text(), u"l 0-="_s);
    press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"transportView"_s);
    QTest::keyClick(main, Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"trackTableView"_s);
}

TEST_F(Keyboard, ControlWClosesTheEqualizerOnly)
{
    activate(equalizer);
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(equalizer->isVisible());
    EXPECT_TRUE(main->isVisible());
}

} // namespace
