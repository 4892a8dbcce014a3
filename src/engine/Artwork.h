#pragma once

#include <QByteArray>
#include <QImage>

namespace lyrabox {

/// The largest width and height of an artwork, in pixels.
constexpr int maximumArtworkSide = 8192;

/// The largest size of a decoded picture in memory. A JPEG of up to four times this size is decoded
/// at half its width and height.
constexpr qint64 maximumArtworkBytes = qint64{48} << 20;

/// The longer side of the picture that is kept, in pixels. This is enough for the main window's
/// artwork (174 points) on every display.
constexpr int keptArtworkSide = 1024;

/// Decodes the first image in `data`, which is PNG, JPEG, GIF, BMP, WebP or TIFF. Returns a null
/// image if there is none, if it is broken, if a side exceeds maximumArtworkSide or if it takes
/// more than maximumArtworkBytes. The data comes from a song and may be malicious. A larger image
/// is scaled down to keptArtworkSide with its proportions. Any thread.
QImage decodedArtwork(const QByteArray &data);

} // namespace lyrabox
