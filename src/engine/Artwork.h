#pragma once

#include <QByteArray>
#include <QImage>

namespace lyrabox {

/// The widest and highest artwork that is shown, in pixels.
constexpr int maximumArtworkSide = 8192;

/// What a picture may take in memory. A JPEG that takes up to four times as much is decoded to half
/// its sides.
constexpr qint64 maximumArtworkBytes = qint64{48} << 20;

/// The longer side of what is kept of a picture, in pixels: enough for the artwork of the main
/// window (174 points) on every display.
constexpr int keptArtworkSide = 1024;

/// The first image in `data` (PNG, JPEG, GIF, BMP, WebP or TIFF); null when there is none, when it
/// is broken, larger than maximumArtworkSide either way or takes more than maximumArtworkBytes. The
/// data comes from a song, so nothing in it is trusted. An image whose longer side exceeds
/// keptArtworkSide is made smaller, with its proportions kept.
QImage decodedArtwork(const QByteArray &data);

} // namespace lyrabox
