#include "app/shell/WindowMemory.h"

#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/Notifications.h"
#include "platform/foundation/UserDefaults.h"
#include "platform/ui/SplitView.h"

#include <QDialog>
#include <QHeaderView>
#include <QScreen>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::windowMemory {

namespace {

const QString dividerKey = u"dividerPosition"_s;
constexpr int defaultDividerPosition = 228;

QString geometryKey(const QString &name)
{
    return name + u"Geometry"_s;
}

QString sizeKey(const QString &name)
{
    return name + u"Size"_s;
}

QString maximizedKey(const QString &name)
{
    return name + u"Maximized"_s;
}

QString columnsKey(const QString &name)
{
    return name + u"Columns"_s;
}

} // namespace

bool restoreWindow(QWidget *window, const QString &name)
{
    QSettings &defaults = userDefaults();
    const bool isPlaced = window->restoreGeometry(defaults.value(geometryKey(name)).toByteArray());
    const QSize size = defaults.value(sizeKey(name)).toSize();
    if (size.isValid()) {
        window->resize(size.boundedTo(window->screen()->availableSize()));
        const bool isMaximized = defaults.value(maximizedKey(name)).toBool();
        window->setWindowState(isMaximized ? window->windowState() | Qt::WindowMaximized
                                           : window->windowState() & ~Qt::WindowMaximized);
    }
    return isPlaced;
}

void saveWindow(const QWidget *window, const QString &name, bool knowsPlace)
{
    QSettings &defaults = userDefaults();
    if (knowsPlace) {
        defaults.setValue(geometryKey(name), window->saveGeometry());
        defaults.remove(sizeKey(name));
        defaults.remove(maximizedKey(name));
    } else {
        const bool isMaximized = window->isMaximized();
        const QSize restored = window->normalGeometry().size();
        defaults.setValue(sizeKey(name),
                          isMaximized && restored.isValid() ? restored : window->size());
        defaults.setValue(maximizedKey(name), isMaximized);
    }
}

void keepWindow(QDialog *window, const QString &name)
{
    restoreWindow(window, name);
    const auto save = [window, name] { saveWindow(window, name); };
    QObject::connect(window, &QDialog::finished, window, save);
    NotificationCenter::defaultCenter().addObserver(window, notification::applicationWillTerminate,
                                                    [window, save] {
                                                        if (window->isVisible())
                                                            save();
                                                    });
}

void restoreDivider(SplitView *view)
{
    view->setDividerPosition(userDefaults().value(dividerKey, defaultDividerPosition).toInt());
}

void saveDivider(const SplitView *view)
{
    userDefaults().setValue(dividerKey, view->dividerPosition());
}

void restoreColumns(QHeaderView *header, const QString &name)
{
    const QVariantList widths = userDefaults().value(columnsKey(name)).toList();
    if (widths.size() != header->count())
        return;
    for (int column = 0; column < header->count(); ++column) {
        const int width = widths.at(column).toInt();
        if (width > 0 && header->sectionResizeMode(column) == QHeaderView::Interactive)
            header->resizeSection(column, width);
    }
}

void saveColumns(const QHeaderView *header, const QString &name)
{
    QVariantList widths;
    for (int column = 0; column < header->count(); ++column)
        widths.append(header->sectionSize(column));
    userDefaults().setValue(columnsKey(name), widths);
}

} // namespace lyrabox::windowMemory
