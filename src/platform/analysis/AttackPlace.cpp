#include "platform/analysis/AttackPlace.h"

#include "platform/analysis/LinearPrediction.h"
#include "platform/analysis/SampleShape.h"

#include <algorithm>
#include <span>
#include <vector>

namespace lyrabox {

namespace {

constexpr std::int64_t searchReach = 512;
constexpr std::int64_t backgroundFrames = 1764; // 40 ms
constexpr std::int64_t framesBefore = 441;      // whose errors are compared with those
constexpr std::int64_t framesFrom = 96;         // from the attack on
constexpr std::int64_t order = LinearPrediction::order;

/// The least factor of an attack. In noise the largest factors found are about 1.6.
constexpr double leastFactor = 1.75;

/// A note begins with the first of several pulses. Those after it may have larger factors by
/// chance.
constexpr double firstShare = 0.5;

/// Errors this far below the largest count as none.
constexpr double floorShare = 1.0e-3;

// An end: the energy from 5 to 25 ms afterwards is below a tenth of that in the 20 ms before.
constexpr std::int64_t endGap = 220;
constexpr std::int64_t endFrames = 882;
constexpr double endShare = 0.1;

/// The samples of a channel from `begin` up to `end`. Outside the song is silence.
std::vector<double> read(std::span<const float> channel, std::int64_t begin, std::int64_t end)
{
    std::vector<double> samples(static_cast<std::size_t>(end - begin));
    const std::int64_t first = std::max<std::int64_t>(begin, 0);
    const std::int64_t last = std::min(end, static_cast<std::int64_t>(channel.size()));
    for (std::int64_t frame = first; frame < last; ++frame)
        samples[static_cast<std::size_t>(frame - begin)] =
            double{undamaged(channel[static_cast<std::size_t>(frame)])};
    return samples;
}

/// The squared errors of the prediction of both channels, summed up from `begin` on.
class ErrorSums {
public:
    /// Predicts the frames from `begin` up to `end` from the background before them.
    ErrorSums(const SongSamples &song, std::int64_t begin, std::int64_t end)
        : m_begin(begin),
          m_sums(static_cast<std::size_t>(end - begin + 1)),
          m_weightedSums(m_sums.size())
    {
        std::vector<double> errors(static_cast<std::size_t>(end - begin));
        std::vector<double> squares(errors.size());
        for (const auto channel : {song.left, song.right}) {
            const std::vector<double> samples = read(channel, begin - backgroundFrames, end);
            const std::span all(samples);
            LinearPrediction(all.first(backgroundFrames))
                .errors(all.subspan(backgroundFrames - order), errors);
            for (std::size_t i = 0; i < errors.size(); ++i)
                squares[i] += errors[i] * errors[i];
        }
        for (std::size_t i = 0; i < squares.size(); ++i) {
            m_sums[i + 1] = m_sums[i] + squares[i];
            m_weightedSums[i + 1] = m_weightedSums[i] + squares[i] * static_cast<double>(i);
        }
    }

    /// The mean of the frames before `frame`.
    double before(std::int64_t frame) const
    {
        const std::size_t at = index(frame);
        return (m_sums[at] - m_sums[at - framesBefore]) / double{framesBefore};
    }

    /// The mean of the frames from `frame` on. The weight falls from 1 to 0, so that the mean is
    /// largest where the sound begins.
    double from(std::int64_t frame) const
    {
        const std::size_t at = index(frame);
        const double sum = m_sums[at + framesFrom] - m_sums[at];
        const double weighted = m_weightedSums[at + framesFrom] - m_weightedSums[at];
        const double fallen = (weighted - static_cast<double>(at) * sum) / double{framesFrom};
        return std::max(0.0, sum - fallen) / (double{framesFrom} / 2.0);
    }

private:
    std::size_t index(std::int64_t frame) const
    {
        return static_cast<std::size_t>(frame - m_begin);
    }

    std::int64_t m_begin;
    std::vector<double> m_sums;         ///< of all frames before
    std::vector<double> m_weightedSums; ///< the same, each times its index
};

double energy(const SongSamples &song, std::int64_t begin, std::int64_t end)
{
    double sum = 0.0;
    for (const auto channel : {song.left, song.right}) {
        for (const double sample : read(channel, begin, end))
            sum += sample * sample;
    }
    return sum;
}

bool isEnd(const SongSamples &song, std::int64_t frame)
{
    return energy(song, frame + endGap, frame + endGap + endFrames) <
           endShare * energy(song, frame - endFrames, frame);
}

} // namespace

std::optional<std::uint64_t> attackFrame(const SongSamples &song, std::uint64_t middle)
{
    const auto at = static_cast<std::int64_t>(middle);
    const std::int64_t begin = std::max<std::int64_t>(at - searchReach, 0);
    const std::int64_t end = std::min(at + searchReach, static_cast<std::int64_t>(song.frames()));
    if (begin >= end)
        return std::nullopt;
    const ErrorSums errors(song, begin - framesBefore, end + framesFrom);
    double loudest = 0.0;
    for (std::int64_t frame = begin; frame < end; ++frame)
        loudest = std::max(loudest, errors.from(frame));
    std::vector<double> factors;
    for (std::int64_t frame = begin; frame < end; ++frame)
        factors.push_back(errors.from(frame) / (errors.before(frame) + floorShare * loudest));
    const double largest = *std::max_element(factors.begin(), factors.end());
    if (largest < leastFactor)
        return std::nullopt;
    const double enough = std::max(leastFactor, firstShare * largest);
    const auto first = std::find_if(factors.begin(), factors.end(),
                                    [enough](double factor) { return factor >= enough; });
    const auto best =
        std::max_element(first, first + std::min<std::int64_t>(framesFrom, factors.end() - first));
    const std::int64_t frame = begin + (best - factors.begin());
    if (isEnd(song, frame))
        return std::nullopt;
    return static_cast<std::uint64_t>(frame);
}

} // namespace lyrabox
