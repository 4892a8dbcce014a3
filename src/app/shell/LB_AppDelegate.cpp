#include "app/shell/LB_AppDelegate.h"

#include "app/shell/BuildSettings.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/ui/DesktopWindows.h"
#include "platform/ui/SearchField.h"

#include <QAction>
#include <QDesktopServices>
#include <QEvent>
#include <QMainWindow>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {
constexpr double minimumDividerPosition = 162.0;
constexpr double maximumDividerPosition = 300.0;
constexpr double maximumLeftPaneShare = 0.25;

void setWindowBackground(QWidget *window)
{
    // The colour is blended with white. A translucent window would need a compositor, which not
    // every desktop runs.
    const QColor color = windowBackgroundColor();
    const auto overWhite = [&color](float component) {
        return component * color.alphaF() + 1.0F - color.alphaF();
    };
    QPalette palette = window->palette();
    palette.setColor(QPalette::Window,
                     QColor::fromRgbF(overWhite(color.redF()), overWhite(color.greenF()),
                                      overWhite(color.blueF())));
    window->setPalette(palette);
    window->setAutoFillBackground(true);
}

void setChecked(QAction *item, bool checked)
{
    if (item != nullptr)
        item->setChecked(checked);
}
} // namespace

QColor windowBackgroundColor()
{
    return QColor::fromRgbF(0.9255F, 0.9412F, 0.9451F, 0.95F);
}

int leftPaneWidthAfterResize(int currentWidth, int splitViewWidth)
{
    const double limit = splitViewWidth * maximumLeftPaneShare;
    return currentWidth > limit ? static_cast<int>(limit) : currentWidth;
}

} // namespace lyrabox

LB_AppDelegate::LB_AppDelegate(QObject *parent)
    : QObject(parent), m_openURL(&QDesktopServices::openUrl)
{
    lyrabox::NotificationCenter::defaultCenter().addObserver(
        this, lyrabox::notification::applicationDidFinishLaunching,
        [this] { applicationDidFinishLaunching(); });
}

void LB_AppDelegate::setMainWindow(QMainWindow *window)
{
    m_mainWindow = window;
    window->installEventFilter(this);
}

void LB_AppDelegate::setEqWindow(QMainWindow *window)
{
    m_eqWindow = window;
    window->installEventFilter(this);
}

void LB_AppDelegate::applicationDidFinishLaunching()
{
    lyrabox::setWindowBackground(m_mainWindow);
    lyrabox::setWindowBackground(m_eqWindow);
    m_transportView->setFocus();
    connect(m_searchField, &lyrabox::SearchField::canceled, this,
            &LB_AppDelegate::searchFieldCanceled);
    connect(m_searchField, &QLineEdit::editingFinished, this,
            &LB_AppDelegate::controlTextDidEndEditing);
}

void LB_AppDelegate::toggleMainWindow()
{
    lyrabox::bringToFront(m_mainWindow);
}

void LB_AppDelegate::toggleEqWindow()
{
    lyrabox::bringToFront(m_eqWindow);
}

void LB_AppDelegate::windowDidBecomeKey(const QMainWindow *window)
{
    if (window == m_mainWindow) {
        lyrabox::setChecked(m_mainWindowMenuItem, true);
        lyrabox::setChecked(m_eqWindowMenuItem, false);
    }
    if (window == m_eqWindow) {
        lyrabox::setChecked(m_mainWindowMenuItem, false);
        lyrabox::setChecked(m_eqWindowMenuItem, true);
    }
}

void LB_AppDelegate::windowDidResignKey(const QMainWindow *window)
{
    if (window == m_mainWindow)
        lyrabox::setChecked(m_mainWindowMenuItem, false);
    if (window == m_eqWindow)
        lyrabox::setChecked(m_eqWindowMenuItem, false);
}

void LB_AppDelegate::searchFieldCanceled(lyrabox::SearchField *sender)
{
    sender->setText(QString());
    m_transportView->setFocus();
}

void LB_AppDelegate::controlTextDidEndEditing()
{
    // If the focus has moved to another control, it stays there. It is still in the field only
    // after Return.
    if (m_searchField->hasFocus())
        m_transportView->setFocus();
}

double LB_AppDelegate::splitViewConstrainMinCoordinateOfSubviewAt(double, int)
{
    return lyrabox::minimumDividerPosition;
}

double LB_AppDelegate::splitViewConstrainMaxCoordinateOfSubviewAt(double, int)
{
    return lyrabox::maximumDividerPosition;
}

void LB_AppDelegate::splitViewResizeSubviewsWithOldSize(lyrabox::SplitView *view, QSize)
{
    QWidget *left = view->leftPane();
    QWidget *right = view->rightPane();
    const int thickness = lyrabox::SplitView::dividerThickness;
    const int leftWidth = lyrabox::leftPaneWidthAfterResize(left->width(), view->width());
    left->setGeometry(left->x(), left->y(), leftWidth, view->height());
    right->setGeometry(leftWidth + thickness, right->y(), view->width() - (thickness + leftWidth),
                       view->height());
}

void LB_AppDelegate::emailSupport()
{
    m_openURL(QUrl(u"mailto:"_s + lyrabox::supportAddress()));
}

void LB_AppDelegate::openWebsite()
{
    m_openURL(QUrl(lyrabox::websiteAddress()));
}

bool LB_AppDelegate::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        windowDidBecomeKey(static_cast<QMainWindow *>(watched));
    else if (event->type() == QEvent::WindowDeactivate)
        windowDidResignKey(static_cast<QMainWindow *>(watched));
    else if (event->type() == QEvent::Close && watched == m_mainWindow)
        Q_EMIT mainWindowClosed();
    return QObject::eventFilter(watched, event);
}
