#include "app/practice/WaveTiles.h"

#include "app/practice/WaveColors.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

/// The height of the loudest parts' RMS, as a part of half the picture. Their peaks then nearly
/// fill it.
constexpr double loudHeight = 0.36;
/// A song that is softer than this is drawn lower: about -54 dB.
constexpr float softestRms = 0.002F;
/// Gains that differ by less draw the same picture.
constexpr double gainTolerance = 0.02;

// Of the ground, in points.
constexpr double hatchDistance = 9.0;
constexpr double dashLength = 4.0;
constexpr double footWidth = 3.0;
constexpr double footHeight = 5.0;

/// Whether a pixel belongs to the inner shape, which is darker than every pale one.
bool isInner(QRgb pixel)
{
    constexpr int palest = 160;
    return qAlpha(pixel) != 0 && qGray(pixel) < palest;
}

std::int64_t floorDivided(std::int64_t value, std::int64_t by)
{
    const std::int64_t quotient = value / by;
    return quotient * by > value ? quotient - 1 : quotient;
}

} // namespace

double waveGain(float loudRms)
{
    return loudHeight / static_cast<double>(std::max(loudRms, softestRms));
}

QImage drawnWave(std::span<const PeakColumn> columns, int height, double gain, bool inColor)
{
    QImage image(static_cast<int>(columns.size()), height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const double half = height / 2.0;
    const auto row = [&](double sample) {
        const double y = half - std::clamp(sample * gain, -1.0, 1.0) * half;
        return std::clamp(static_cast<int>(std::lround(y)), 0, height);
    };
    const auto bytesPerLine = image.bytesPerLine();
    uchar *bits = image.bits();
    for (int x = 0; x < image.width(); ++x) {
        const PeakColumn &column = columns[static_cast<std::size_t>(x)];
        if (!column.isKnown)
            continue;
        const QColor color = inColor ? waveColors::hue(column) : waveColors::gray;
        const auto fill = [&](int top, int bottom, QRgb pixel) {
            for (int y = top; y < std::min(height, std::max(bottom, top + 1)); ++y)
                reinterpret_cast<QRgb *>(bits + y * bytesPerLine)[x] = pixel;
        };
        const auto rms = static_cast<double>(column.rms);
        fill(row(static_cast<double>(column.maximum)), row(static_cast<double>(column.minimum)),
             waveColors::pale(color).rgb());
        fill(row(rms), row(-rms), color.rgb());
    }
    return image;
}

void drawGround(QImage &wave, const WaveGround &ground, std::int64_t first, double ratio)
{
    const auto pixels = [ratio](double points) {
        return std::max(1, static_cast<int>(std::lround(points * ratio)));
    };
    const int width = wave.width();
    const int height = wave.height();
    const auto line = [&wave](int y) { return reinterpret_cast<QRgb *>(wave.scanLine(y)); };
    const int hatch = pixels(hatchDistance);
    const int thin = pixels(1.0);
    for (const WaveGround::Part &part : ground.hatched) {
        const auto from = static_cast<int>(std::max<std::int64_t>(0, part.first - first));
        const auto to = static_cast<int>(std::min<std::int64_t>(width, part.end - first));
        for (int y = 0; y < height; ++y) {
            QRgb *row = line(y);
            for (int x = from; x < to; ++x) {
                // Counted from the first column of the song, so that the lines go on in the next
                // picture.
                if ((first + x + y) % hatch < thin && qAlpha(row[x]) == 0)
                    row[x] = waveColors::hatch.rgb();
            }
        }
    }
    const int dash = pixels(dashLength);
    const int foot = height - pixels(footHeight);
    for (const WaveGround::Line &mark : ground.lines) {
        const auto draw = [&](int thickness, int top) {
            const auto left = static_cast<int>(mark.column - first) - thickness / 2;
            for (int y = top; y < height; ++y) {
                if (mark.isDashed && y / dash % 2 != 0)
                    continue;
                QRgb *row = line(y);
                for (int x = std::max(0, left); x < std::min(width, left + thickness); ++x) {
                    if (!isInner(row[x]))
                        row[x] = mark.color.rgb();
                }
            }
        };
        draw(thin, 0);
        if (mark.hasFoot)
            draw(pixels(footWidth), foot);
    }
}

void WaveTiles::forgetGround()
{
    for (auto &[index, tile] : m_tiles)
        tile.color = tile.gray = QImage();
}

void WaveTiles::setShape(double columnFrames, int height, double ratio)
{
    const double gain = waveGain(m_peaks.loudRms());
    const bool isSameGain = std::abs(gain - m_gain) <= gainTolerance * m_gain;
    if (columnFrames == m_columnFrames && height == m_height && ratio == m_ratio && isSameGain)
        return;
    m_ratio = ratio;
    m_columnFrames = columnFrames;
    m_height = height;
    m_gain = gain;
    m_tiles.clear();
}

void WaveTiles::forgetIncomplete()
{
    std::erase_if(m_tiles, [](const auto &entry) { return !entry.second.isComplete; });
}

WaveTiles::Tile &WaveTiles::tileAt(std::int64_t index)
{
    const auto [place, isNew] = m_tiles.try_emplace(index);
    Tile &tile = place->second;
    if (!isNew)
        return tile;
    tile.columns.resize(static_cast<std::size_t>(tileColumns));
    const auto firstColumn = static_cast<double>(index * tileColumns);
    const double from = firstColumn * m_columnFrames;
    const double to = (firstColumn + tileColumns) * m_columnFrames;
    const auto frames = static_cast<double>(m_peaks.frames());
    // Columns outside the song are never known.
    if (to > 0.0 && from < frames)
        m_peaks.fillColumns(from, to, tile.columns);
    tile.isComplete = m_peaks.isComplete();
    return tile;
}

const QImage &WaveTiles::picture(std::int64_t index, bool inColor)
{
    Tile &tile = tileAt(index);
    QImage &image = inColor ? tile.color : tile.gray;
    if (!image.isNull())
        return image;
    image = drawnWave(tile.columns, m_height, m_gain, inColor);
    if (m_groundOf) {
        const std::int64_t first = index * tileColumns;
        drawGround(image, m_groundOf(m_columnFrames, first, first + tileColumns), first, m_ratio);
    }
    return image;
}

void WaveTiles::drawPart(QPainter &painter, std::int64_t origin, std::int64_t first,
                         std::int64_t end, bool inColor)
{
    while (first < end) {
        const std::int64_t index = floorDivided(first, tileColumns);
        const std::int64_t tileFirst = index * tileColumns;
        const std::int64_t partEnd = std::min(end, tileFirst + tileColumns);
        painter.drawImage(QPoint(static_cast<int>(first - origin), 0), picture(index, inColor),
                          QRect(static_cast<int>(first - tileFirst), 0,
                                static_cast<int>(partEnd - first), m_height));
        first = partEnd;
    }
}

void WaveTiles::draw(QPainter &painter, std::int64_t first, std::int64_t end,
                     std::int64_t loopFirst, std::int64_t loopEnd)
{
    if (m_height <= 0)
        return;
    const std::int64_t colorFirst = std::clamp(loopFirst, first, end);
    const std::int64_t colorEnd = std::clamp(loopEnd, colorFirst, end);
    drawPart(painter, first, first, colorFirst, false);
    drawPart(painter, first, colorFirst, colorEnd, true);
    drawPart(painter, first, colorEnd, end, false);
    const std::int64_t nearFirst = floorDivided(first, tileColumns) - 1;
    const std::int64_t nearLast = floorDivided(end, tileColumns) + 1;
    std::erase_if(m_tiles, [&](const auto &entry) {
        return entry.first < nearFirst || entry.first > nearLast;
    });
}

} // namespace lyrabox
