#include "app/practice/LaneLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox::laneLayout {

namespace {

using loopHands::Grip;

constexpr double farAway = 64.0; // points beyond the edges where brackets are cut

/// Parts of the lane that are taken.
class Taken {
public:
    void add(double left, double right)
    {
        const auto at = std::lower_bound(m_parts.begin(), m_parts.end(), Part{left, right});
        m_parts.insert(at, {left, right});
    }

    /// The widest free part of a range.
    NameRoom widestFree(double left, double right) const
    {
        NameRoom best;
        double from = left;
        const auto look = [&](double to) {
            if (to - from > best.width)
                best = {from, to - from};
        };
        for (const auto &[start, end] : m_parts) {
            if (start >= right)
                break;
            look(start);
            from = std::max(from, end);
        }
        look(right);
        return best;
    }

private:
    using Part = std::pair<double, double>;
    std::vector<Part> m_parts; // sorted by their starts
};

/// Whole device pixels, counted as the wave counts its columns.
class Pixels {
public:
    explicit Pixels(const View &view)
        : m_frames(view.scale.framesPerPoint / view.ratio),
          m_ratio(view.ratio),
          m_first(std::llround(view.scale.first / m_frames))
    {}

    double x(std::uint64_t frame) const
    {
        const auto column = std::llround(static_cast<double>(frame) / m_frames);
        return static_cast<double>(column - m_first) / m_ratio;
    }

private:
    double m_frames;
    double m_ratio;
    long long m_first;
};

/// Flags near each other become one. Which one is left depends on the place in the song only, so
/// that it does not change while the wave moves.
std::vector<Flag> layFlags(const PracticeRecord &record, const View &view, const NameWidth &width)
{
    const Pixels pixels(view);
    const double reach = flagWidth + mostName + 2.0 * nameGap;
    const double from = std::max(0.0, view.scale.frameAt(-reach));
    // Flags beyond the edge limit the names of those before it.
    const double to = view.scale.frameAt(view.width + reach);
    const double group = flagDistance * view.scale.framesPerPoint;
    std::vector<Flag> flags;
    auto marker = std::ranges::lower_bound(record.markers, static_cast<std::uint64_t>(from), {},
                                           &PracticeMarker::at);
    double lastGroup = -1.0;
    for (; marker != record.markers.end() && static_cast<double>(marker->at) <= to; ++marker) {
        const double number = std::floor(static_cast<double>(marker->at) / group);
        if (std::exchange(lastGroup, number) != number)
            flags.push_back({.id = marker->id, .x = pixels.x(marker->at)});
    }
    for (std::size_t i = 0; i < flags.size(); ++i) {
        const double left = flags[i].x + flagWidth + nameGap;
        const double end = i + 1 < flags.size() ? flags[i + 1].x - nameGap : left + mostName;
        const double room = std::min(mostName, end - left);
        if (room >= leastName)
            flags[i].name = {left, std::min(room, width(flags[i].id))};
    }
    return flags;
}

std::vector<Bracket> layBrackets(const PracticeRecord &record, const View &view,
                                 const std::optional<Sounding> &sounding)
{
    const Pixels pixels(view);
    std::vector<Bracket> brackets;
    const auto add = [&](PracticeId id, std::uint64_t from, std::uint64_t to) -> Bracket * {
        const double left = pixels.x(from);
        const double right = pixels.x(to);
        if (right < 0.0 || left > view.width)
            return nullptr;
        brackets.push_back({.id = id,
                            .left = std::max(left, -farAway),
                            .right = std::min(right, view.width + farAway)});
        return &brackets.back();
    };
    std::vector<const PracticeLoop *> loops;
    for (const PracticeLoop &loop : record.loops) {
        if (!sounding || sounding->id != loop.id)
            loops.push_back(&loop);
    }
    std::ranges::stable_sort(loops, [](const PracticeLoop *a, const PracticeLoop *b) {
        return a->to - a->from > b->to - b->from;
    });
    for (const PracticeLoop *loop : loops) {
        if (Bracket *bracket = add(loop->id, loop->from, loop->to)) {
            bracket->colour = loop->colour;
            bracket->isWithin = view.songFrames == 0 || loop->isWithin(view.songFrames);
        }
    }
    if (sounding) {
        if (Bracket *bracket = add(sounding->id, sounding->range.start, sounding->range.end))
            bracket->sounds = true;
        const PracticeLoop *kept = record.loop(sounding->id);
        if (kept != nullptr && !brackets.empty() && brackets.back().sounds)
            brackets.back().colour = kept->colour;
    }
    return brackets;
}

} // namespace

Lane lay(const PracticeRecord &record, const View &view, const std::optional<Sounding> &sounding,
         const NameWidth &nameWidth)
{
    Lane lane{layBrackets(record, view, sounding), layFlags(record, view, nameWidth)};
    Taken taken;
    for (const Flag &flag : lane.flags)
        taken.add(flag.x, std::max(flag.x + flagWidth, flag.name.left + flag.name.width));
    for (auto bracket = lane.brackets.rbegin(); bracket != lane.brackets.rend(); ++bracket) {
        const double left = std::max(0.0, bracket->left);
        const double right = std::min(view.width, bracket->right);
        const NameRoom free = taken.widestFree(left, right);
        const double room = free.width - 2.0 * nameGap;
        if (bracket->id != 0 && room >= leastName) {
            const double width = std::min(room, nameWidth(bracket->id));
            const double middle = free.left + free.width / 2.0;
            bracket->name = {std::round((middle - width / 2.0) * view.ratio) / view.ratio, width};
        }
        taken.add(bracket->left, bracket->right);
    }
    return lane;
}

Hit hitAt(const Lane &lane, double x)
{
    const auto gripOf = [x](const Bracket &bracket) {
        return loopHands::gripAt({x, 0.0}, bracket.left, bracket.right, 1.0);
    };
    const auto isEnd = [](Grip grip) { return grip == Grip::Start || grip == Grip::End; };
    const bool hasSounding = !lane.brackets.empty() && lane.brackets.back().sounds;
    const Grip soundingGrip = hasSounding ? gripOf(lane.brackets.back()) : Grip::Nothing;
    const Hit soundingHit{Hit::Kind::Sounding, hasSounding ? lane.brackets.back().id : 0,
                          soundingGrip};
    if (isEnd(soundingGrip))
        return soundingHit;
    for (auto flag = lane.flags.rbegin(); flag != lane.flags.rend(); ++flag) {
        const double right = std::max(flag->x + flagWidth, flag->name.left + flag->name.width);
        if (x >= flag->x - 2.0 && x <= right)
            return {Hit::Kind::Marker, flag->id};
    }
    if (soundingGrip == Grip::Whole)
        return soundingHit;
    for (auto bracket = lane.brackets.rbegin(); bracket != lane.brackets.rend(); ++bracket) {
        const Grip grip = bracket->sounds ? Grip::Nothing : gripOf(*bracket);
        if (grip != Grip::Nothing)
            return {Hit::Kind::Loop, bracket->id, grip};
    }
    return {};
}

} // namespace lyrabox::laneLayout
