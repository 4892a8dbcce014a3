#include "platform/ui/ImageView.h"

#include "platform/ui/Accessibility.h"
#include "platform/ui/DevicePixels.h"

#include <QPainter>

namespace lyrabox {

namespace {
constexpr double cornerRadius = 4.0;
constexpr QSize naturalSize(174, 174);
} // namespace

ImageView::ImageView(QWidget *parent) : QWidget(parent)
{
    installAccessibleControls();
    setFocusPolicy(Qt::NoFocus);
}

void ImageView::setImage(const QImage &image)
{
    m_image = image;
    m_scaled = {};
    update();
}

QSize ImageView::sizeHint() const
{
    return naturalSize;
}

void ImageView::paintEvent(QPaintEvent *)
{
    if (m_image.isNull())
        return;
    const qreal ratio = devicePixelRatioF();
    const QSize fitted = m_image.size().scaled(size(), Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    const QSize deviceSize = (QSizeF(fitted) * ratio).toSize();
    if (m_scaled.size() != deviceSize) {
        m_scaled = QPixmap::fromImage(
            m_image.scaled(deviceSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        m_scaled.setDevicePixelRatio(ratio);
    }
    const QRect target(QPoint((width() - fitted.width()) / 2, (height() - fitted.height()) / 2),
                       fitted);

    QPainter painter(this);
    alignToDevicePixels(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    // The image is painted as a brush, because a clip path would leave jagged corners.
    QBrush brush(m_scaled);
    brush.setTransform(QTransform::fromTranslate(target.x(), target.y()));
    painter.setBrush(brush);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(target, cornerRadius, cornerRadius);
}

} // namespace lyrabox
