// The beats in a wave.

#include "app/practice/BeatMarks.h"
#include "app/practice/SongBeats.h"
#include "app/practice/WaveView.h"
#include "platform/ui/Theme.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace lyrabox {

namespace {

constexpr double labelSize = 10.0; // points
constexpr double labelGap = 4.0;   // from a line, and from the lower edge
constexpr double handleHeight = 16.0;
constexpr double handleReach = 4.0;

constexpr double noteGap = 6.0;     // around a text on the hatching
constexpr double noteMiddle = 0.25; // its place, as a part of the height

QFont labelFont(double ratio)
{
    QFont font = uiFont(labelSize);
    font.setPixelSize(static_cast<int>(std::lround(labelSize * ratio)));
    return font;
}

} // namespace

void WaveView::setBeats(SongBeats *beats)
{
    m_beats = beats;
    m_tiles.setGround([this](double columnFrames, std::int64_t first, std::int64_t end) {
        return groundOf(columnFrames, first, end);
    });
    connect(beats, &SongBeats::changed, this, [this] {
        if (m_press && m_press->beat)
            m_press.reset(); // The beat may be gone.
        showBeats();
    });
    showBeats();
}

const BeatGrid &WaveView::shownGrid() const
{
    static const BeatGrid none;
    if (m_press && m_press->grid)
        return *m_press->grid;
    return m_beats != nullptr ? m_beats->grid() : none;
}

loopHands::Snap WaveView::snap(Qt::KeyboardModifiers modifiers) const
{
    if (m_snapTo == SnapTo::Off || modifiers.testFlag(Qt::ShiftModifier))
        return {};
    const double reach = std::ceil(loopHands::snapReach * m_scale.framesPerPoint);
    return {static_cast<std::uint64_t>(reach), m_snapTo == SnapTo::Beat ? &shownGrid() : nullptr};
}

/// The beats are others.
void WaveView::showBeats()
{
    m_lost = m_beats->lostParts();
    m_labels = Labels();
    m_tiles.forgetGround();
    update();
}

/// The beat whose handle is at a point.
std::optional<std::uint64_t> WaveView::beatAt(QPointF point) const
{
    const BeatGrid &grid = shownGrid();
    if (grid.isEmpty() || point.y() < height() - handleHeight || !m_beats->canChange() ||
        !beatMarks::density(grid, m_scale.framesPerPoint).hasBeats)
        return std::nullopt;
    return beatMarks::nearestBeat(grid, m_scale.frameAt(point.x()),
                                  handleReach * m_scale.framesPerPoint);
}

/// Shows the beats with the dragged one at `frame`, or at what it snaps to.
void WaveView::dragBeat(double frame, Qt::KeyboardModifiers modifiers)
{
    loopHands::Snap toSound = snap(modifiers);
    toSound.beats = nullptr; // A beat does not snap to itself.
    const double by = frame - m_press->drag.from;
    m_press->target =
        loopHands::placed(static_cast<double>(*m_press->beat) + by, toSound, m_peaks->samples());
    m_press->grid = gridWithBeatAt(m_beats->grid(), *m_press->beat, m_press->target);
    m_labels = Labels();
    m_tiles.forgetGround();
}

WaveGround WaveView::groundOf(double columnFrames, std::int64_t first, std::int64_t end) const
{
    WaveGround ground;
    const bool isSuggested = shownGrid().isEmpty();
    const BeatGrid &grid = isSuggested ? m_beats->suggestion() : shownGrid();
    if (grid.isEmpty())
        return ground;
    const beatMarks::Density density = beatMarks::density(grid, m_scale.framesPerPoint);
    // The foot of a line may reach into the columns beside it.
    constexpr std::int64_t footReach = 8;
    const auto lines = beatMarks::lines(grid, density, columnFrames, first - footReach,
                                        end + footReach, !isSuggested);
    for (const beatMarks::Line &line : lines)
        ground.lines.push_back({.column = line.column,
                                .color = line.isBar ? waveColors::bar : waveColors::beat,
                                .isDashed = isSuggested,
                                .hasFoot = !isSuggested && density.hasBeats});
    const auto columnOf = [columnFrames](std::uint64_t frame) {
        return std::llround(static_cast<double>(frame) / columnFrames);
    };
    for (const LoopRange &lost : m_lost)
        ground.hatched.push_back({columnOf(lost.start), columnOf(lost.end)});
    return ground;
}

/// Lays out the numbers of the bars for three times what is shown.
void WaveView::layLabels()
{
    const double shown = m_scale.framesPerPoint * width();
    const double from = m_scale.first;
    const double to = from + shown;
    if (m_labels.scale.framesPerPoint == m_scale.framesPerPoint && from >= m_labels.from &&
        to <= m_labels.to)
        return;
    m_labels = {.scale = m_scale, .from = from - shown, .to = to + shown, .numbers = {}};
    const BeatGrid &grid = shownGrid();
    const beatMarks::Density density = beatMarks::density(grid, m_scale.framesPerPoint);
    for (const beatMarks::Label &label :
         beatMarks::labels(grid, density, m_labels.from, m_labels.to)) {
        QStaticText text(QString::number(label.bar));
        text.setTextFormat(Qt::PlainText);
        m_labels.numbers.push_back({label.frame, text});
    }
}

void WaveView::drawBars(QPainter &painter, double ratio)
{
    layLabels();
    painter.setFont(labelFont(ratio));
    painter.setPen(Theme::text);
    const double height = painter.fontMetrics().height();
    const double top = std::ceil(this->height() * ratio) - labelGap / 2.0 * ratio - height;
    const double edge = width() * ratio;
    for (const Labels::Number &number : m_labels.numbers) {
        const double x = deviceX(number.frame, ratio) + labelGap * ratio;
        if (x > -edge && x < edge)
            painter.drawStaticText(QPointF(x, top), number.text);
    }
}

/// Says in the hatched parts what to do there.
void WaveView::drawLostTexts(QPainter &painter, double ratio) const
{
    if (m_lost.empty())
        return;
    painter.setFont(labelFont(ratio));
    const QString text = tr("tap here, too");
    const QFontMetricsF metrics(painter.font());
    const double gap = noteGap * ratio;
    const double room = metrics.horizontalAdvance(text) + 2.0 * gap;
    const double lane = laneHeight * ratio;
    const double y = lane + (height() * ratio - lane) * noteMiddle;
    for (const LoopRange &lost : m_lost) {
        const double left = std::max(0.0, deviceX(static_cast<double>(lost.start), ratio));
        const double right =
            std::min(width() * ratio, deviceX(static_cast<double>(lost.end), ratio));
        if (right - left < room + 2.0 * gap)
            continue;
        const QRectF box(std::round((left + right - room) / 2.0), y - metrics.height(), room,
                         metrics.height() + gap / 2.0);
        painter.setPen(Qt::NoPen);
        painter.setBrush(waveColors::background);
        painter.drawRoundedRect(box, gap / 2.0, gap / 2.0);
        painter.setPen(Theme::text);
        painter.drawText(box, Qt::AlignCenter, text);
    }
}

} // namespace lyrabox
