#include "app/stand/StandLayout.h"

#include "platform/ui/Theme.h"

#include <QFontMetricsF>
#include <QtMath>

#include <algorithm>
#include <limits>

namespace lyrabox::standLayout {

namespace {

// Parts of the height of the window. From three metres a text should have a twentieth of the height
// of a usual screen; the captions and the hint may have less.
constexpr double margin = 0.045;
constexpr double titleHeight = 0.115;
constexpr double loopHeight = 0.125;
constexpr double captionHeight = 0.055;
constexpr double highestNumber = 0.4;
constexpr double dotsHeight = 0.055;
constexpr double stepHeight = 0.11;
constexpr double wordsHeight = 0.075;
constexpr double hintHeight = 0.026;
constexpr double gap = 0.02;
/// The part of its place that a text's font takes.
constexpr double textPart = 0.8;

/// So many equal places beside each other.
std::vector<QRectF> columns(const QRectF &row, std::size_t count, double between)
{
    std::vector<QRectF> places;
    const double width = (row.width() - between * static_cast<double>(count - 1)) /
                         static_cast<double>(std::max<std::size_t>(count, 1));
    for (std::size_t index = 0; index < count; ++index)
        places.emplace_back(row.left() + static_cast<double>(index) * (width + between), row.top(),
                            width, row.height());
    return places;
}

/// The captions, the numbers and the dots, together in the middle of `room`. The numbers are no
/// higher than the widest one of them would fill, so that each stays close to its caption.
void placeNumbers(StandLayout &layout, const QRectF &room, double height, std::size_t count)
{
    constexpr double numberAspect = 0.5; // of the height of a column to its width
    const double between = gap * height * 2.0;
    const double width = room.width() / static_cast<double>(count);
    const double others = (captionHeight + dotsHeight) * height;
    const double numberHeight =
        std::min({room.height() - others, numberAspect * width, highestNumber * height});
    double top = room.center().y() - (numberHeight + others) / 2.0;
    const auto row = [&](double rowHeight) {
        const QRectF made(room.left(), top, room.width(), rowHeight);
        top += rowHeight;
        return made;
    };
    layout.captions = columns(row(captionHeight * height), count, between);
    layout.numbers = columns(row(numberHeight), count, between);
    layout.dots = columns(row(dotsHeight * height), count, between).back();
}

} // namespace

StandLayout place(QSizeF area, std::size_t numbers, std::size_t steps)
{
    const double height = area.height();
    const double side = margin * height;
    const auto row = [&](double top, double part) {
        return QRectF(side, top, area.width() - 2.0 * side, part * height);
    };
    StandLayout layout;
    double top = side;
    layout.title = row(top, titleHeight);
    top = layout.title.bottom();
    layout.loop = row(top, loopHeight);
    top = layout.loop.bottom() + gap * height;

    double bottom = height - side / 2.0;
    layout.hint = row(bottom - hintHeight * height, hintHeight);
    bottom = layout.hint.top() - gap * height;
    const QRectF words = row(bottom - wordsHeight * height, wordsHeight);
    // What the trainer says is longer than the count-in.
    const std::vector<QRectF> halves = columns(words, 5, gap * height);
    layout.passes = halves.front().united(halves[2]);
    layout.countIn = halves[3].united(halves[4]);
    bottom = words.top() - gap * height;
    if (steps > 0) {
        layout.steps = columns(row(bottom - stepHeight * height, stepHeight), steps, gap * height);
        bottom = layout.steps.front().top() - 2.0 * gap * height;
    }

    if (numbers == 0)
        return layout;
    placeNumbers(layout, row(top, (bottom - top) / height), height, numbers);
    return layout;
}

QFont font(int size, bool isBold)
{
    QFont font = uiFont(std::max(1, size));
    font.setBold(isBold);
    return font;
}

FittedText fit(const QString &text, bool isBold, const QRectF &place, double least)
{
    const double usual = textPart * place.height();
    const double width = QFontMetricsF(font(qFloor(usual), isBold)).horizontalAdvance(text);
    const double part = width > place.width() ? std::max(least, place.width() / width) : 1.0;
    int size = std::max(1, qFloor(usual * part));
    // The widths of fonts don't grow quite evenly with their sizes.
    while (size > 1 && size - 1 >= usual * least &&
           QFontMetricsF(font(size, isBold)).horizontalAdvance(text) > place.width())
        --size;
    const QFontMetricsF metrics(font(size, isBold));
    return {.text = metrics.horizontalAdvance(text) <= place.width()
                        ? text
                        : metrics.elidedText(text, Qt::ElideRight, place.width()),
            .size = size};
}

int commonSize(const std::vector<QString> &texts, const std::vector<QRectF> &places, bool isBold)
{
    constexpr double smallest = 0.1;
    int size = std::numeric_limits<int>::max();
    for (std::size_t index = 0; index < texts.size(); ++index)
        size = std::min(size, fit(texts[index], isBold, places[index], smallest).size);
    return size;
}

std::vector<QRectF> dots(const QRectF &area, int count)
{
    std::vector<QRectF> places;
    constexpr double spacing = 1.5; // from dot to dot, in their diameters
    const double diameter =
        std::min(area.height(), area.width() / (spacing * std::max(1, count - 1) + 1.0));
    const double all = diameter * (spacing * (count - 1) + 1.0);
    for (int index = 0; index < count; ++index)
        places.emplace_back(area.center().x() - all / 2.0 + index * spacing * diameter,
                            area.center().y() - diameter / 2.0, diameter, diameter);
    return places;
}

} // namespace lyrabox::standLayout
