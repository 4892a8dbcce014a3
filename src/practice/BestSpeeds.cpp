#include "practice/BestSpeeds.h"

#include <algorithm>

namespace lyrabox {

BestSpeeds::Key::Key(const PracticeLogLine &line)
    : song(line.song), artist(line.artist), loop(line.loop)
{
    if (loop.isEmpty()) {
        from = line.from;
        to = line.to;
    }
}

BestSpeeds::BestSpeeds(const std::vector<PracticeLogLine> &lines)
{
    for (const PracticeLogLine &line : lines)
        add(line);
}

void BestSpeeds::add(const PracticeLogLine &line)
{
    if (line.passes > line.missed)
        add(Key(line), line.speed);
}

void BestSpeeds::add(const BestSpeeds &other)
{
    for (const auto &[loop, speed] : other.m_speeds)
        add(loop, speed);
}

void BestSpeeds::add(const Key &loop, double speed)
{
    double &best = m_speeds[loop];
    best = std::max(best, speed);
}

std::optional<double> BestSpeeds::of(const PracticeLogLine &loop) const
{
    const auto found = m_speeds.find(Key(loop));
    return found == m_speeds.end() ? std::nullopt : std::optional(found->second);
}

} // namespace lyrabox
