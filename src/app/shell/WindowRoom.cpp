// The two windows, and the commands that concern the whole program: quit, help and updates.

#include "app/shell/HelpText.h"
#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"

#include <QAction>
#include <QApplication>

#include <utility>

namespace lyrabox {

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(lyrabox::Composition)
};

void build(ProgramParts &) {}

void setOutlets(ProgramParts &parts)
{
    Ui::MainWindow &ui = parts.mainUi;
    LB_AppDelegate &delegate = parts.appDelegate;
    delegate.setMainWindow(&parts.mainWindow);
    delegate.setEqWindow(&parts.eqWindow);
    delegate.setMainWindowMenuItem(parts.menu->mainWindow);
    delegate.setEqWindowMenuItem(parts.menu->eqWindow);
    delegate.setSearchField(ui.searchField);
    delegate.setSplitView(ui.splitView);
    delegate.setTransportView(ui.transportView);
    ui.splitView->setDelegate(&delegate);
    ui.splitView->setPanes(ui.sourcePane, ui.trackPane);
}

/// Brings the equalizer to the front. The first time it is placed over the upper part of the main
/// window, so that the transport stays visible.
void showEqualizer(ProgramParts &parts)
{
    if (std::exchange(parts.eqWindowNeedsPosition, false)) {
        const QRect main = parts.mainWindow.geometry();
        parts.eqWindow.move(main.center().x() - parts.eqWindow.width() / 2, main.top());
    }
    parts.appDelegate.toggleEqWindow();
}

void connectWindows(ProgramParts &parts)
{
    const MainMenu &menu = *parts.menu;
    LB_AppDelegate *delegate = &parts.appDelegate;
    // The check marks show which window is key. Choosing a command does not change that by itself.
    QObject::connect(menu.mainWindow, &QAction::triggered, delegate, [&parts] {
        parts.menu->mainWindow->setChecked(parts.mainWindow.isActiveWindow());
        parts.appDelegate.toggleMainWindow();
    });
    QObject::connect(menu.eqWindow, &QAction::triggered, delegate, [&parts] {
        parts.menu->eqWindow->setChecked(parts.eqWindow.isActiveWindow());
        showEqualizer(parts);
    });
    QObject::connect(menu.closeWindow, &QAction::triggered, delegate, [] {
        if (QWidget *window = QApplication::activeWindow())
            window->close();
    });
    QObject::connect(menu.quit, &QAction::triggered, qApp, &QApplication::quit);
    QObject::connect(delegate, &LB_AppDelegate::mainWindowClosed, qApp, &QApplication::quit,
                     Qt::QueuedConnection);
}

void connectHelp(ProgramParts &parts)
{
    const MainMenu &menu = *parts.menu;
    LB_AppDelegate *delegate = &parts.appDelegate;
    QWidget *window = &parts.mainWindow;
    QObject::connect(menu.emailSupport, &QAction::triggered, delegate,
                     &LB_AppDelegate::emailSupport);
    QObject::connect(menu.openWebsite, &QAction::triggered, delegate, &LB_AppDelegate::openWebsite);
    QObject::connect(menu.checkForUpdates, &QAction::triggered, &parts.updater,
                     &SUUpdater::checkForUpdates);
    QObject::connect(menu.keys, &QAction::triggered, window,
                     [window] { showHelp(window, Text::tr("Keys"), keysHelpText()); });
    QObject::connect(menu.about, &QAction::triggered, window,
                     [window] { showHelp(window, Text::tr("About Lyrabox"), aboutText()); });
}

void connectRoom(ProgramParts &parts)
{
    setOutlets(parts);
    connectWindows(parts);
    connectHelp(parts);
}

} // namespace

const Room windowRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
