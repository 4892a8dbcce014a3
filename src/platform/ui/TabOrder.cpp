#include "platform/ui/TabOrder.h"

#include "platform/ui/SplitView.h"

#include <QWidget>

namespace lyrabox {

namespace {

void appendStops(QWidget *widget, QList<QWidget *> &stops)
{
    if (widget->focusPolicy() != Qt::NoFocus)
        stops.append(widget);
    const auto *split = qobject_cast<SplitView *>(widget);
    if (split != nullptr && split->leftPane() != nullptr) {
        for (QWidget *part : {split->leftPane(), split->divider(), split->rightPane()})
            appendStops(part, stops);
        return;
    }
    for (QObject *child : widget->children()) {
        auto *inner = qobject_cast<QWidget *>(child);
        if (inner != nullptr && !inner->isWindow())
            appendStops(inner, stops);
    }
}

} // namespace

void orderTabStops(QWidget *window)
{
    QList<QWidget *> stops;
    appendStops(window, stops);
    for (qsizetype i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops.at(i - 1), stops.at(i));
}

} // namespace lyrabox
