#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace lyrabox {

namespace {

/// Frames that are measured at once. It bounds the rounding error of their sum in single precision.
constexpr std::size_t runLength = 1024;

/// A sum of squares up to this contains no damage.
constexpr float harmlessSquares = 1.0e12F;

FourLanes load(const float *samples)
{
    FourLanes loaded;
    std::memcpy(&loaded, samples, sizeof loaded);
    return loaded;
}

/// Measures up to runLength frames, at least one. If there is damage, the sum of the squares is
/// above harmlessSquares or not a number, and the rest is unspecified.
SampleShape measureRun(const float *left, const float *right, std::size_t frames)
{
    constexpr std::size_t lanes = 4;
    const float first = left[0];
    FourLanes minimum{first, first, first, first};
    FourLanes maximum = minimum;
    FourLanes squares{};
    const auto add = [&](FourLanes x) {
        minimum = x < minimum ? x : minimum;
        maximum = x > maximum ? x : maximum;
        squares += x * x;
    };
    std::size_t i = 0;
    for (; i + lanes <= frames; i += lanes) {
        add(load(left + i));
        add(load(right + i));
    }
    SampleShape shape{.minimum = first, .maximum = first};
    float sum = 0.0F;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        shape.minimum = std::min(shape.minimum, minimum[lane]);
        shape.maximum = std::max(shape.maximum, maximum[lane]);
        sum += squares[lane];
    }
    for (; i < frames; ++i) {
        shape.minimum = std::min({shape.minimum, left[i], right[i]});
        shape.maximum = std::max({shape.maximum, left[i], right[i]});
        sum += left[i] * left[i] + right[i] * right[i];
    }
    shape.squares = sum;
    return shape;
}

/// The same for frames that may be damaged.
SampleShape measureRepairedRun(const SongSamples &run)
{
    std::array<float, runLength> left{};
    std::array<float, runLength> right{};
    std::transform(run.left.begin(), run.left.end(), left.begin(), undamaged);
    std::transform(run.right.begin(), run.right.end(), right.begin(), undamaged);
    SampleShape shape = measureRun(left.data(), right.data(), run.frames());
    shape.isDamaged = !std::equal(run.left.begin(), run.left.end(), left.begin()) ||
                      !std::equal(run.right.begin(), run.right.end(), right.begin());
    return shape;
}

} // namespace

SampleShape measureShape(const SongSamples &samples)
{
    SampleShape whole;
    for (std::uint64_t begin = 0; begin < samples.frames(); begin += runLength) {
        const std::uint64_t frames = std::min<std::uint64_t>(runLength, samples.frames() - begin);
        SampleShape run =
            measureRun(samples.left.data() + begin, samples.right.data() + begin, frames);
        if (!(run.squares <= harmlessSquares))
            run = measureRepairedRun(samples.part(begin, frames));
        whole.minimum = begin == 0 ? run.minimum : std::min(whole.minimum, run.minimum);
        whole.maximum = begin == 0 ? run.maximum : std::max(whole.maximum, run.maximum);
        whole.squares += run.squares;
        whole.isDamaged = whole.isDamaged || run.isDamaged;
    }
    return whole;
}

} // namespace lyrabox
