#include "app/shell/WindowMemory.h"

#include "platform/foundation/UserDefaults.h"
#include "platform/ui/SplitView.h"

#include <QHeaderView>
#include <QWidget>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::windowMemory {

namespace {

const QString dividerKey = u"dividerPosition"_s;
constexpr int firstDividerPosition = 228;

QString geometryKey(const QString &name)
{
    return name + u"Geometry"_s;
}

QString columnsKey(const QString &name)
{
    return name + u"Columns"_s;
}

} // namespace

bool restoreWindow(QWidget *window, const QString &name)
{
    return window->restoreGeometry(userDefaults().value(geometryKey(name)).toByteArray());
}

void saveWindow(const QWidget *window, const QString &name)
{
    userDefaults().setValue(geometryKey(name), window->saveGeometry());
}

void restoreDivider(SplitView *view)
{
    view->setDividerPosition(userDefaults().value(dividerKey, firstDividerPosition).toInt());
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
