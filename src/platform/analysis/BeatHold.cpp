#include "platform/analysis/BeatHold.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace lyrabox {

namespace {

constexpr std::size_t around = 3;    // beats to either side that tell how sure one is
constexpr float fullEvidence = 2.0F; // of a beat with full hold
constexpr float leastHold = 0.3F;    // below, the path goes on by itself
constexpr float leastOnset = 0.5F;   // of a beat that sounds

// It does so as well where its margin is lower than both before and behind: the way from one to the
// other is not clear then.
constexpr float highMargin = 40.0F; // higher ones count as this
constexpr float valley = 0.5F;      // of the lower side

constexpr std::size_t heldAgain = 6;     // beats in a row, after which it no longer does
constexpr std::size_t longestGap = 32;   // beats that may be counted through
constexpr std::size_t comparedBeats = 8; // before and behind it
constexpr double sameTempo = 0.03;
constexpr double samePhase = 0.1; // of a beat

// With so many onsets, as a share of what is usual, a gap is no break but music without this beat.
// What follows may be in time by chance, so it must be in time exactly.
constexpr double busy = 0.25;
constexpr double sameTempoBusy = 0.012;
constexpr double samePhaseBusy = 0.04;

using Beats = std::span<const BeatPath::Beat>;

std::vector<float> holdsOf(Beats beats, std::span<const float> curve)
{
    std::vector<float> holds;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        const std::size_t from = i - std::min(i, around);
        const std::size_t to = std::min(beats.size(), i + around + 1);
        float sum = 0.0F;
        for (std::size_t j = from; j < to; ++j)
            sum += curve[beats[j].step] - beats[j].strain;
        holds.push_back(std::clamp(sum / static_cast<float>(to - from) / fullEvidence, 0.0F, 1.0F));
    }
    return holds;
}

/// Of each beat, whether the margin is in a valley there.
std::vector<bool> valleysOf(Beats beats)
{
    const auto cut = [](const BeatPath::Beat &beat) { return std::min(beat.margin, highMargin); };
    std::vector<float> behind(beats.size());
    float highest = 0.0F;
    for (std::size_t i = beats.size(); i-- > 0;)
        behind[i] = highest = std::max(highest, i + 1 < beats.size() ? cut(beats[i]) : 0.0F);
    std::vector<bool> valleys(beats.size());
    highest = 0.0F;
    for (std::size_t i = 0; i < beats.size(); ++i) {
        highest = std::max(highest, cut(beats[i]));
        valleys[i] = cut(beats[i]) < valley * std::min(highest, behind[i]);
    }
    return valleys;
}

/// Beats between which the path goes on by itself, by their indices. Both are held.
struct Gap {
    std::size_t before = 0;
    std::size_t behind = 0;
};

/// Judges whether a path is still the same one behind a gap.
class Bridges {
public:
    Bridges(Beats beats, std::span<const float> curve) : m_beats(beats), m_curve(curve) {}

    bool areInTime(Gap gap) const
    {
        const std::size_t beats = gap.behind - gap.before;
        if (gap.before == 0 || gap.behind + 1 >= m_beats.size() || beats > longestGap)
            return false;
        const std::size_t before = std::min(gap.before, comparedBeats);
        const std::size_t behind = std::min(m_beats.size() - 1 - gap.behind, comparedBeats);
        const double earlier = period({gap.before - before, gap.before});
        const double later = period({gap.behind, gap.behind + behind});
        const double expected = (earlier + later) / 2.0 * static_cast<double>(beats);
        const double late = period(gap) * static_cast<double>(beats) - expected;
        const bool isBusy = onsets(gap) > busy * onsets({0, m_beats.size() - 1});
        return std::abs(later / earlier - 1.0) <= (isBusy ? sameTempoBusy : sameTempo) &&
               std::abs(late) <= (isBusy ? samePhaseBusy : samePhase) * earlier;
    }

private:
    /// The mean distance of the beats, in steps.
    double period(Gap beats) const
    {
        return static_cast<double>(m_beats[beats.behind].step - m_beats[beats.before].step) /
               static_cast<double>(beats.behind - beats.before);
    }

    /// How much begins between the beats, per step.
    double onsets(Gap beats) const
    {
        double sum = 0.0;
        const std::size_t from = m_beats[beats.before].step;
        const std::size_t to = m_beats[beats.behind].step;
        for (std::size_t step = from; step < to; ++step)
            sum += double{std::max(0.0F, m_curve[step])};
        return sum / static_cast<double>(to - from);
    }

    Beats m_beats;
    std::span<const float> m_curve;
};

/// The number of beats up to the last one that sounds, at least `sure`.
std::size_t lastSounding(Beats beats, std::span<const float> curve, std::size_t sure)
{
    std::size_t count = beats.size();
    while (count > std::max<std::size_t>(sure, 1) && curve[beats[count - 1].step] < leastOnset)
        --count;
    return count;
}

/// How many beats stay of a path that is lost at the index `at`. The beats around it that did not
/// fit may be wrong already.
std::size_t keptOf(Beats beats, std::span<const float> curve, std::size_t at, std::size_t sure)
{
    const std::size_t before = at - std::min(at, around);
    return std::max(std::min(sure, at), lastSounding(beats.first(before), curve, sure));
}

/// The first of enough beats in a row that are held, from the index `from` on.
std::optional<std::size_t> heldFrom(const std::vector<bool> &isHeld, std::size_t from)
{
    std::size_t run = 0;
    for (std::size_t i = from; i < isHeld.size(); ++i) {
        run = isHeld[i] ? run + 1 : 0;
        if (run == heldAgain)
            return i + 1 - run;
    }
    return std::nullopt;
}

} // namespace

BeatHold holdOf(const BeatPath &path, std::span<const float> curve, std::size_t sure)
{
    const Beats beats(path.beats);
    BeatHold result{.holds = holdsOf(beats, curve)};
    std::vector<bool> isHeld = valleysOf(beats);
    for (std::size_t i = 0; i < beats.size(); ++i)
        isHeld[i] = i < sure || (!isHeld[i] && result.holds[i] >= leastHold);
    const Bridges bridges(beats, curve);
    const std::size_t sounding = lastSounding(beats, curve, sure);
    while (result.count < sounding) {
        if (isHeld[result.count]) {
            ++result.count;
            continue;
        }
        const auto end = heldFrom(isHeld, result.count);
        const std::size_t last = result.count - std::min<std::size_t>(result.count, 1);
        if (!end || !bridges.areInTime({last, *end})) {
            result.count = keptOf(beats, curve, result.count, sure);
            result.isLost = true;
            break;
        }
        result.count = *end;
    }
    return result;
}

} // namespace lyrabox
