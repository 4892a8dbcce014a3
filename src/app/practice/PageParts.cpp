#include "app/practice/PageParts.h"

#include "platform/ui/Theme.h"

#include <QLabel>
#include <QScrollArea>

namespace lyrabox {

QScrollArea *pageParts::scrolling(QWidget *form, QWidget *parent)
{
    auto *area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);
    area->viewport()->setAutoFillBackground(false);
    area->setWidget(form);
    form->setAutoFillBackground(false);
    return area;
}

QLabel *pageParts::quietLabel(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    QPalette colors = label->palette();
    colors.setColor(QPalette::WindowText, Theme::secondaryText);
    label->setPalette(colors);
    return label;
}

} // namespace lyrabox
