#include "engine/Artwork.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace lyrabox {

namespace {

/// Only plain raster formats: a drawing could name other files.
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
    // A header that lies about its size is stopped by the reader's own allocation limit of 256 MB.
    if (!isAcceptedFormat(reader.format()) || isTooLarge(reader.size()))
        return {};
    QImage image = reader.read();
    return isTooLarge(image.size()) ? QImage() : image;
}

} // namespace lyrabox
