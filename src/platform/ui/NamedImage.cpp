#include "platform/ui/NamedImage.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

/// The drawings are in a static library. Without this reference the linker would drop them.
static void linkImages()
{
    Q_INIT_RESOURCE(images);
}

namespace lyrabox {

namespace {

QString pathForName(const QString &name)
{
    return u":/images/"_s + name + u".svg"_s;
}

QSize naturalSize(const QString &name)
{
    static QHash<QString, QSize> sizes;
    const auto known = sizes.constFind(name);
    if (known != sizes.constEnd())
        return *known;
    QFile drawing(pathForName(name));
    if (name.isEmpty() || !drawing.open(QIODevice::ReadOnly))
        return {};
    // Only the first element is read, because most drawings are rarely or never shown.
    QXmlStreamReader xml(&drawing);
    xml.readNextStartElement();
    const QXmlStreamAttributes attributes = xml.attributes();
    const QSize size(attributes.value(u"width"_s).toInt(), attributes.value(u"height"_s).toInt());
    sizes.insert(name, size);
    return size;
}

} // namespace

NamedImage::NamedImage(const QString &name) : m_name(name)
{
    linkImages();
    m_size = naturalSize(name);
}

QIcon NamedImage::icon() const
{
    return isNull() ? QIcon() : QIcon(pathForName(m_name));
}

QPixmap NamedImage::pixmap(qreal devicePixelRatio) const
{
    return pixmap(m_size, devicePixelRatio);
}

QPixmap NamedImage::pixmap(const QSize &size, qreal devicePixelRatio) const
{
    const QSize deviceSize = (QSizeF(size) * devicePixelRatio).toSize();
    if (isNull() || deviceSize.isEmpty())
        return {};
    const QString key = u"image/%1/%2x%3@%4"_s.arg(m_name)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(devicePixelRatio);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(deviceSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(pathForName(m_name)).render(&painter, QRectF(QPointF(), QSizeF(deviceSize)));
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void NamedImage::draw(QPainter &painter, const QPoint &position) const
{
    // Not the device's pixel ratio: a widget rendered into an image has a ratio of its own.
    const QTransform transform = painter.deviceTransform();
    const qreal scale = std::hypot(transform.m11(), transform.m12());
    painter.drawPixmap(position, pixmap(scale));
}

} // namespace lyrabox
