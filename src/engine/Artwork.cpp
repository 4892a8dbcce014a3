#include "engine/Artwork.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace lyrabox {

namespace {

/// Only plain raster formats, because a drawing could refer to other files.
bool isAcceptedFormat(const QByteArray &format)
{
    constexpr std::array<const char *, 7> accepted{"png", "jpeg", "jpg", "gif",
                                                   "bmp", "webp", "tiff"};
    return std::any_of(accepted.begin(), accepted.end(),
                       [&](const char *name) { return format == name; });
}

bool isTooLarge(const QSize &size)
{
    return size.width() > maximumArtworkSide || size.height() > maximumArtworkSide;
}

/// The memory, in bytes, that decoding at `size` takes.
qint64 decodedBytes(const QImageReader &reader, const QSize &size)
{
    const QImage::Format format = reader.imageFormat();
    const int bits =
        format == QImage::Format_Invalid ? 32 : QImage::toPixelFormat(format).bitsPerPixel();
    return qint64{size.width()} * size.height() * bits / 8;
}

/// The image, scaled down if it is larger than needed. Null if it is too large.
QImage reduced(const QImage &image)
{
    if (image.isNull() || isTooLarge(image.size()))
        return {};
    if (std::max(image.width(), image.height()) <= keptArtworkSide)
        return image;
    const QSize size = image.size()
                           .scaled(keptArtworkSide, keptArtworkSide, Qt::KeepAspectRatio)
                           .expandedTo(QSize(1, 1));
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QImage decodedArtwork(const QByteArray &data)
{
    if (data.isEmpty())
        return {};
    QBuffer buffer;
    buffer.setData(data);
    if (!buffer.open(QIODevice::ReadOnly))
        return {};
    QImageReader reader(&buffer);
    // If a header does not state the size, the reader's own allocation limit applies.
    const QSize size = reader.size();
    if (!isAcceptedFormat(reader.format()) || isTooLarge(size))
        return {};
    if (decodedBytes(reader, size) > maximumArtworkBytes) {
        const QSize half((size.width() + 1) / 2, (size.height() + 1) / 2);
        if (reader.format() != "jpeg" || decodedBytes(reader, half) > maximumArtworkBytes)
            return {};
        reader.setScaledSize(half); // The JPEG decoder itself works at this size.
    }
    return reduced(reader.read());
}

} // namespace lyrabox
