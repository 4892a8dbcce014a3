#pragma once

#include "platform/ui/SplitView.h"

#include <QColor>
#include <QObject>
#include <QUrl>

#include <functional>

class QAction;
class QMainWindow;

namespace lyrabox {

class SearchField;

/// The background of both windows: 0xECF0F1, at 95 % opacity.
QColor windowBackgroundColor();

/// The width of the left pane after a resize: `currentWidth`, but at most a quarter of
/// `splitViewWidth`. In device-independent pixels.
int leftPaneWidthAfterResize(int currentWidth, int splitViewWidth);

} // namespace lyrabox

/// Handles what concerns both windows: their background at launch, the check marks of their menu
/// items, the limits of the split view, the focus after a search, and the support links. Outlets
/// are set once, before the launch notification, and are not owned. Main thread.
class LB_AppDelegate : public QObject, public lyrabox::SplitViewDelegate {
    Q_OBJECT

public:
    explicit LB_AppDelegate(QObject *parent = nullptr);

    QMainWindow *mainWindow() const { return m_mainWindow; }
    void setMainWindow(QMainWindow *window);
    QMainWindow *eqWindow() const { return m_eqWindow; }
    void setEqWindow(QMainWindow *window);
    QAction *mainWindowMenuItem() const { return m_mainWindowMenuItem; }
    void setMainWindowMenuItem(QAction *item) { m_mainWindowMenuItem = item; }
    QAction *eqWindowMenuItem() const { return m_eqWindowMenuItem; }
    void setEqWindowMenuItem(QAction *item) { m_eqWindowMenuItem = item; }
    lyrabox::SearchField *searchField() const { return m_searchField; }
    void setSearchField(lyrabox::SearchField *field) { m_searchField = field; }
    lyrabox::SplitView *splitView() const { return m_splitView; }
    void setSplitView(lyrabox::SplitView *view) { m_splitView = view; }
    QWidget *transportView() const { return m_transportView; }
    void setTransportView(QWidget *view) { m_transportView = view; }

    /// Called on the notification applicationDidFinishLaunching.
    void applicationDidFinishLaunching();

    /// Each brings its window to the front and makes it key. Neither ever hides it; see
    /// docs/kept-on-purpose.md.
    void toggleMainWindow();
    void toggleEqWindow();

    /// Both update the check marks of the menu items: the item of the key window is checked.
    /// Update the check marks of the menu items. Called when a window gets or loses the keyboard.
    void windowDidBecomeKey(const QMainWindow *window);
    void windowDidResignKey(const QMainWindow *window);

    /// Empties the field and gives the keyboard to the transport.
    /// Empties the search field and moves the focus to the transport.
    void searchFieldCanceled(lyrabox::SearchField *sender);
    /// Moves the focus from the search field to the transport, after Return.
    void controlTextDidEndEditing();

    double splitViewConstrainMinCoordinateOfSubviewAt(double proposed, int index) override;
    double splitViewConstrainMaxCoordinateOfSubviewAt(double proposed, int index) override;
    void splitViewResizeSubviewsWithOldSize(lyrabox::SplitView *view, QSize oldSize) override;

    /// Open the addresses of BuildSettings.h, with the desktop's mail program or browser.
    void emailSupport();
    void openWebsite();

    /// For tests: replaces the function that opens a URL. The default uses the desktop's service.
    void setURLOpener(std::function<bool(const QUrl &)> opener) { m_openURL = std::move(opener); }

Q_SIGNALS:
    /// The user closed the main window. The program ends with it.
    void mainWindowClosed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QMainWindow *m_mainWindow = nullptr;
    QMainWindow *m_eqWindow = nullptr;
    QAction *m_mainWindowMenuItem = nullptr;
    QAction *m_eqWindowMenuItem = nullptr;
    lyrabox::SearchField *m_searchField = nullptr;
    lyrabox::SplitView *m_splitView = nullptr;
    QWidget *m_transportView = nullptr;
    std::function<bool(const QUrl &)> m_openURL;
};
