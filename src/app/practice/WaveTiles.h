#pragma once

#include "app/practice/SongPeaks.h"

#include <QColor>
#include <QImage>

#include <cstdint>
#include <functional>
#include <map>
#include <utility>
#include <vector>

class QPainter;

namespace lyrabox {

/// Draws the columns `columns` of a wave into an image that is `columns.size()` device pixels wide
/// and `height` high, on a transparent ground. `gain` is the height of full scale, as a part of
/// half the image.
QImage drawnWave(std::span<const PeakColumn> columns, int height, double gain, bool inColor);

/// What is drawn below a wave. Places are columns.
struct WaveGround {
    /// A line from the top to the bottom.
    struct Line {
        std::int64_t column = 0; ///< its middle
        QColor color;
        bool isDashed = false;
        bool hasFoot = false; ///< a handle at its lower end
    };
    /// From `first` up to, but not including, `end`.
    struct Part {
        std::int64_t first = 0;
        std::int64_t end = 0;
    };
    std::vector<Line> lines;
    std::vector<Part> hatched;
};

/// Draws a ground into a picture of the columns from `first` on. Its lines lie below the inner
/// shape of the wave, and above the pale outer one. `ratio` is the number of device pixels per
/// point.
void drawGround(QImage &wave, const WaveGround &ground, std::int64_t first, double ratio);

/// The gain that gives a song its usual height, from SongPeaks::loudRms().
double waveGain(float loudRms);

/// Pictures of a wave, each of some columns of one device pixel. They are kept as long as they are
/// near to what is shown, so a wave that moves costs little more than copying them. Main thread.
class WaveTiles {
public:
    explicit WaveTiles(const SongPeaks &peaks) : m_peaks(peaks) {}

    /// Tells what lies below the columns from `first` up to, but not including, `end`.
    using GroundOf =
        std::function<WaveGround(double columnFrames, std::int64_t first, std::int64_t end)>;
    void setGround(GroundOf groundOf) { m_groundOf = std::move(groundOf); }
    /// Asks for the ground again.
    void forgetGround();

    /// A wave of columns of `columnFrames` frames, `height` device pixels high, with `ratio` of
    /// them per point. Column 0 begins at frame 0.
    void setShape(double columnFrames, int height, double ratio);
    /// Draws everything anew.
    void forget() { m_tiles.clear(); }
    /// Draws again what was not completely measured.
    void forgetIncomplete();

    /// Draws the columns from `first` up to, but not including, `end`. The painter's units are
    /// device pixels, and its origin is the upper left corner of column `first`. `loopFirst` and
    /// `loopEnd` bound the columns in colour; the others are gray.
    void draw(QPainter &painter, std::int64_t first, std::int64_t end, std::int64_t loopFirst,
              std::int64_t loopEnd);

private:
    static constexpr std::int64_t tileColumns = 256;

    struct Tile {
        std::vector<PeakColumn> columns;
        bool isComplete = false;
        QImage color; ///< null until it is first needed
        QImage gray;
    };

    Tile &tileAt(std::int64_t index);
    const QImage &picture(std::int64_t index, bool inColor);
    void drawPart(QPainter &painter, std::int64_t origin, std::int64_t first, std::int64_t end,
                  bool inColor);

    const SongPeaks &m_peaks;
    double m_columnFrames = 1.0;
    int m_height = 0;
    double m_ratio = 1.0;
    GroundOf m_groundOf;
    double m_gain = 1.0;
    std::map<std::int64_t, Tile> m_tiles;
};

} // namespace lyrabox
