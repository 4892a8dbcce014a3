#include "platform/analysis/Attacks.h"

#include "platform/analysis/AttackPlace.h"
#include "platform/analysis/OnsetStrength.h"

#include <algorithm>
#include <numeric>

namespace lyrabox {

namespace {

constexpr std::int64_t hop = OnsetStrength::hop;

// An attack is looked for at a step that is stronger than its neighbours and than the mean of its
// surroundings.
constexpr std::int64_t peakReach = 5;  // steps, 29 ms
constexpr std::int64_t meanReach = 17; // steps, 0.1 s
constexpr float leastRise = 0.02F;     // above the mean

constexpr std::int64_t pieceSteps = 1024;     // that are worked on at once
constexpr std::uint64_t leastDistance = 1323; // frames, 30 ms

/// The strengths of the steps of a piece, and of the steps around it that its attacks depend on.
class PieceStrengths {
public:
    /// Reads the steps from `begin` up to `end`. Returns false if a stop was requested.
    bool read(OnsetStrength &onsets, std::int64_t begin, std::int64_t end,
              const std::stop_token &stop)
    {
        m_first = begin - meanReach;
        m_strengths.assign(static_cast<std::size_t>(end + meanReach - m_first), 0.0F);
        const std::int64_t start = std::max<std::int64_t>(m_first, 0);
        onsets.seek(static_cast<std::uint64_t>(start));
        for (std::int64_t step = start; step < end + meanReach; ++step) {
            if (stop.stop_requested())
                return false;
            m_strengths[static_cast<std::size_t>(step - m_first)] = onsets.next();
        }
        return true;
    }

    float strength(std::int64_t step) const { return *at(step); }

    bool isPeak(std::int64_t step) const
    {
        const float strength = *at(step);
        if (strength < leastRise || *std::max_element(at(step - peakReach), at(step)) >= strength ||
            *std::max_element(at(step + 1), at(step + peakReach + 1)) > strength)
            return false;
        const float sum = std::accumulate(at(step - meanReach), at(step + meanReach + 1), 0.0F);
        return strength >= sum / static_cast<float>(2 * meanReach + 1) + leastRise;
    }

private:
    std::vector<float>::const_iterator at(std::int64_t step) const
    {
        return m_strengths.begin() + (step - m_first);
    }

    std::int64_t m_first = 0;
    std::vector<float> m_strengths;
};

/// Adds an attack. If it is too near to the last one, the stronger stays.
void append(std::vector<Attack> &attacks, const Attack &attack)
{
    if (attacks.empty() || attack.frame >= attacks.back().frame + leastDistance)
        attacks.push_back(attack);
    else if (attack.strength > attacks.back().strength)
        attacks.back() = attack;
}

} // namespace

std::vector<Attack> findAttacks(const SongSamples &song, std::uint64_t from, std::uint64_t to,
                                const std::stop_token &stop)
{
    to = std::min(to, song.frames());
    if (from >= to)
        return {};
    // An attack outside may win against one inside.
    constexpr auto margin = static_cast<std::int64_t>(leastDistance) + 4 * hop;
    const std::int64_t firstStep =
        std::max<std::int64_t>(0, (static_cast<std::int64_t>(from) - margin) / hop);
    const std::int64_t endStep = (static_cast<std::int64_t>(to) + margin) / hop + 1;
    std::vector<Attack> attacks;
    const auto inside = [&] {
        std::erase_if(attacks, [&](const Attack &a) { return a.frame < from || a.frame >= to; });
        return attacks;
    };
    OnsetStrength onsets(song);
    PieceStrengths strengths;
    for (std::int64_t begin = firstStep; begin < endStep; begin += pieceSteps) {
        const std::int64_t end = std::min(begin + pieceSteps, endStep);
        if (!strengths.read(onsets, begin, end, stop))
            return inside();
        for (std::int64_t step = begin; step < end; ++step) {
            if (!strengths.isPeak(step))
                continue;
            if (stop.stop_requested())
                return inside();
            if (const auto frame = attackFrame(song, static_cast<std::uint64_t>(step * hop)))
                append(attacks, {*frame, std::min(1.0F, strengths.strength(step))});
        }
    }
    return inside();
}

std::optional<Attack> nearestAttack(const SongSamples &song, std::uint64_t frame,
                                    std::uint64_t before, std::uint64_t after)
{
    frame = std::min(frame, song.frames());
    const std::uint64_t from = frame - std::min(before, frame);
    const std::uint64_t to = frame + std::min(after, song.frames() - frame) + 1;
    const std::vector<Attack> attacks = findAttacks(song, from, to);
    const auto distance = [frame](const Attack &attack) {
        return std::max(attack.frame, frame) - std::min(attack.frame, frame);
    };
    const auto nearest =
        std::min_element(attacks.begin(), attacks.end(), [&](const Attack &a, const Attack &b) {
            return distance(a) < distance(b);
        });
    return nearest == attacks.end() ? std::nullopt : std::optional(*nearest);
}

} // namespace lyrabox
