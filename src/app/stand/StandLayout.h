#pragma once

#include <QFont>
#include <QRectF>
#include <QString>

#include <vector>

namespace lyrabox {

/// Where the stand view has its parts, in points. Parts that are not shown are empty.
struct StandLayout {
    QRectF title;
    QRectF loop;
    std::vector<QRectF> captions; ///< of the numbers
    std::vector<QRectF> numbers;
    QRectF dots; ///< the beats of the bar
    std::vector<QRectF> steps;
    QRectF passes;
    QRectF countIn;
    QRectF hint;
};

/// A text in the size that fits its place.
struct FittedText {
    QString text; ///< shortened at its end if it is too long for the least size
    int size = 1; ///< of the font, in points
};

/// Pure functions. Main thread, because fonts are measured.
namespace standLayout {

/// Divides the area of the window. `numbers` and `steps` say how many there are.
StandLayout place(QSizeF area, std::size_t numbers, std::size_t steps);

/// Shrinks a text to the width of its place, down to `least` times its usual size, then shortens
/// it.
FittedText fit(const QString &text, bool isBold, const QRectF &place, double least = 0.5);
/// The largest size in which each of the texts fits its place.
int commonSize(const std::vector<QString> &texts, const std::vector<QRectF> &places, bool isBold);
/// The font of a text.
QFont font(int size, bool isBold);

/// The places of `count` dots in `area`, from left to right, each as wide as high.
std::vector<QRectF> dots(const QRectF &area, int count);

} // namespace standLayout
} // namespace lyrabox
