#include "platform/ui/NamedImage.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

using namespace Qt::Literals::StringLiterals;

/// The drawings lie in a static library, from which nothing else would link them in.
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
    if (name.isEmpty() || !QFile::exists(pathForName(name)))
        return {};
    const QSize size = QSvgRenderer(pathForName(name)).defaultSize();
    sizes.insert(name, size);
    return size;
}

} // namespace

NamedImage::NamedImage(const QString &name) : m_name(name)
{
    linkImages();
    m_size = naturalSize(name);
    if (!m_size.isEmpty())
        m_icon = QIcon(pathForName(name));
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
    // Not the device's ratio: a widget that is rendered into an image has its own.
    const QTransform transform = painter.deviceTransform();
    const qreal scale = std::hypot(transform.m11(), transform.m12());
    painter.drawPixmap(position, pixmap(scale));
}

} // namespace lyrabox
