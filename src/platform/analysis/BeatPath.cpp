#include "platform/analysis/BeatPath.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace lyrabox {

namespace {

constexpr float shortest = 5.0F / 6.0F; // periods from beat to beat
constexpr float longest = 6.0F / 5.0F;
constexpr float strictness = 1200.0F; // the cost of a distance, by the square of its logarithm

// A beat that is missing from a path: at least so far from its beats, in periods.
constexpr float farFrom = 0.22F;

constexpr float impossible = -1.0e9F;
constexpr float surest = 1000.0F;

constexpr std::size_t stepsBetweenStops = 2048;

/// The distances between beats that a period allows, and their costs.
class Distances {
public:
    explicit Distances(std::span<const float> periods)
    {
        const float widest =
            periods.empty() ? 0.0F : *std::max_element(periods.begin(), periods.end());
        m_logarithms.resize(static_cast<std::size_t>(widest * longest) + 3);
        for (std::size_t i = 1; i < m_logarithms.size(); ++i)
            m_logarithms[i] = std::log(static_cast<float>(i));
    }

    static std::size_t least(float period)
    {
        return std::max<std::size_t>(1, static_cast<std::size_t>(std::ceil(period * shortest)));
    }
    static std::size_t most(float period) { return static_cast<std::size_t>(period * longest) + 1; }

    float cost(std::size_t distance, float logarithm) const
    {
        const float difference = m_logarithms[distance] - logarithm;
        return strictness * difference * difference;
    }

private:
    std::vector<float> m_logarithms;
};

/// The best paths through every step: those that lead there and those that lead on from there.
class Scores {
public:
    Scores(std::span<const float> curve, std::span<const float> periods)
        : m_curve(curve),
          m_periods(periods),
          m_distances(periods),
          m_to(curve.size(), impossible),
          m_from(curve.size(), impossible),
          m_before(curve.size())
    {}

    bool searchOnwards(BeatStart start, const std::stop_token &stop)
    {
        for (std::size_t step = start.from; step < m_curve.size(); ++step) {
            if (step % stepsBetweenStops == 0 && stop.stop_requested())
                return false;
            if (step < start.to) {
                m_to[step] = m_curve[step];
                continue;
            }
            const float period = m_periods[step];
            const float logarithm = std::log(period);
            float best = impossible;
            const std::size_t most = std::min(Distances::most(period), step - start.from);
            for (std::size_t distance = Distances::least(period); distance <= most; ++distance) {
                const float score = m_to[step - distance] - m_distances.cost(distance, logarithm);
                if (score > best) {
                    best = score;
                    m_before[step] = static_cast<std::uint32_t>(distance);
                }
            }
            if (best > impossible / 2.0F)
                m_to[step] = best + m_curve[step];
        }
        return true;
    }

    bool searchBackwards(BeatStart start, const std::stop_token &stop)
    {
        for (std::size_t step = m_curve.size(); step-- > start.from;) {
            if (step % stepsBetweenStops == 0 && stop.stop_requested())
                return false;
            float best = isLast(step) ? 0.0F : impossible;
            const std::size_t most =
                std::min(Distances::most(m_periods[step]) + 1, m_curve.size() - 1 - step);
            for (std::size_t distance = Distances::least(m_periods[step]); distance <= most;
                 ++distance) {
                const float period = m_periods[step + distance];
                if (distance < Distances::least(period) || distance > Distances::most(period))
                    continue;
                const float score =
                    m_from[step + distance] - m_distances.cost(distance, std::log(period));
                best = std::max(best, score);
            }
            m_from[step] = best + m_curve[step];
        }
        return true;
    }

    BeatPath path(BeatStart start) const
    {
        std::size_t last = start.from;
        for (std::size_t step = start.from; step < m_curve.size(); ++step) {
            if (isLast(step) && m_to[step] > (isLast(last) ? m_to[last] : impossible))
                last = step;
        }
        BeatPath result;
        for (std::size_t step = last;; step -= m_before[step]) {
            result.beats.push_back({step, surest, 0.0F});
            if (step < start.to)
                break;
            result.beats.back().strain =
                m_distances.cost(m_before[step], std::log(m_periods[step]));
        }
        std::reverse(result.beats.begin(), result.beats.end());
        for (BeatPath::Beat &beat : result.beats)
            beat.margin = margin(beat.step);
        return result;
    }

private:
    /// Whether the next beat may be behind the end.
    bool isLast(std::size_t step) const
    {
        return static_cast<float>(step) + m_periods[step] >= static_cast<float>(m_curve.size());
    }

    float through(std::size_t step) const { return m_to[step] + m_from[step] - m_curve[step]; }

    float margin(std::size_t step) const
    {
        const float period = m_periods[step];
        const auto begin = step + static_cast<std::size_t>(farFrom * period);
        const auto end =
            std::min(m_curve.size(), step + static_cast<std::size_t>((1.0F - farFrom) * period));
        float best = impossible;
        for (std::size_t other = begin; other < end; ++other)
            best = std::max(best, through(other));
        return std::clamp(through(step) - best, 0.0F, surest);
    }

    std::span<const float> m_curve;
    std::span<const float> m_periods;
    Distances m_distances;
    std::vector<float> m_to;
    std::vector<float> m_from;
    std::vector<std::uint32_t> m_before; ///< of each step, the distance to the beat before
};

} // namespace

BeatPath findBeatPath(std::span<const float> curve, std::span<const float> periods, BeatStart start,
                      const std::stop_token &stop)
{
    start.to = std::min(start.to, curve.size());
    if (start.from >= start.to)
        return {};
    Scores scores(curve, periods);
    if (!scores.searchOnwards(start, stop) || !scores.searchBackwards(start, stop))
        return {};
    return scores.path(start);
}

} // namespace lyrabox
