#pragma once

#include <QByteArray>
#include <QImage>

namespace lyrabox {

/// The widest and highest artwork that is shown, in pixels.
constexpr int maximumArtworkSide = 8192;

/// The first image in `data` (PNG, JPEG, GIF, BMP, WebP or TIFF); null when there is none, when it
/// is broken or larger than maximumArtworkSide either way. The data comes from a song, so nothing
/// in it is trusted.
QImage decodedArtwork(const QByteArray &data);

} // namespace lyrabox
