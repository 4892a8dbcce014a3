#pragma once

#include "platform/ui/NamedImage.h"

#include <QImage>
#include <QPainter>
#include <QWidget>

namespace lyrabox::test {

/// A white image of the size of `widget`, with `ratio` device pixels per point.
inline QImage paperFor(const QWidget &widget, qreal ratio)
{
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

/// The picture that `widget` draws on white.
inline QImage drawn(QWidget &widget, qreal ratio = 1.0)
{
    QImage image = paperFor(widget, ratio);
    widget.render(&image, {}, {}, QWidget::DrawChildren);
    return image;
}

/// The expected picture of a widget that shows the image `name`, centred on whole points.
inline QImage expected(const QWidget &widget, const QString &name, qreal ratio = 1.0)
{
    QImage image = paperFor(widget, ratio);
    const NamedImage named(name);
    QPainter painter(&image);
    if (!named.isNull())
        painter.drawPixmap(QPoint(qRound(widget.width() * 0.5 - named.size().width() * 0.5),
                                  qRound(widget.height() * 0.5 - named.size().height() * 0.5)),
                           named.pixmap(ratio));
    return image;
}

} // namespace lyrabox::test
