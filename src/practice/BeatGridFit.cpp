#include "practice/BeatGrid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace lyrabox {

namespace {

constexpr double tolerance = 0.008 * 44'100.0;

/// An anchor need not lie on its beat. These are the places beside it that are tried, as shares of
/// the tolerance.
constexpr std::array<double, 5> sides{-0.8, -0.4, 0.0, 0.4, 0.8};

/// Finds the fewest lines. All lines that begin at the places reached so far are drawn at once, so
/// the first that reach the end are the fewest. Of those the ones that lie best are taken.
class LineFit {
public:
    explicit LineFit(std::span<const std::uint64_t> beats)
        : m_places(beats.begin(), beats.end()),
          m_nodes(beats.size() * sides.size()),
          m_sums(beats.size() + 1)
    {
        // Without the mean tempo the numbers are small, and so are the errors of their sums.
        m_origin = m_places.front();
        m_period = (m_places.back() - m_origin) / static_cast<double>(m_places.size() - 1);
        for (std::size_t i = 0; i < m_places.size(); ++i) {
            const auto x = static_cast<double>(i);
            m_places[i] -= m_origin + m_period * x;
            const double y = m_places[i];
            m_sums[i + 1] = {m_sums[i].y + y, m_sums[i].xy + x * y, m_sums[i].yy + y * y};
        }
    }

    struct Anchor {
        std::size_t beat;
        double frame;
    };

    std::vector<Anchor> fit()
    {
        std::vector<std::size_t> reached;
        for (std::size_t side = 0; side < sides.size(); ++side) {
            const double offset = place(side) - m_places[0];
            m_nodes[side] = {.lines = 0, .squares = offset * offset, .before = side};
            reached.push_back(side);
        }
        const std::size_t end = m_nodes.size() - sides.size();
        for (std::size_t lines = 1; m_nodes[bestAt(end)].lines == Node::never; ++lines) {
            std::vector<std::size_t> next;
            for (const std::size_t node : reached)
                drawFrom(node, lines, next);
            reached = std::move(next);
        }
        return anchors(bestAt(end));
    }

private:
    struct Node {
        static constexpr std::size_t never = std::numeric_limits<std::size_t>::max();
        std::size_t lines = never; ///< how many lead here
        double squares = 0.0;      ///< of their distances from the beats
        std::size_t before = 0;    ///< where the last of them begins
    };

    struct Sums {
        double y = 0.0;
        double xy = 0.0;
        double yy = 0.0;
    };

    double place(std::size_t node) const
    {
        return m_places[node / sides.size()] + tolerance * sides[node % sides.size()];
    }

    std::size_t bestAt(std::size_t first) const
    {
        std::size_t best = first;
        for (std::size_t node = first; node < first + sides.size(); ++node) {
            if (m_nodes[node].lines < m_nodes[best].lines ||
                (m_nodes[node].lines == m_nodes[best].lines &&
                 m_nodes[node].squares < m_nodes[best].squares))
                best = node;
        }
        return best;
    }

    void drawFrom(std::size_t node, std::size_t lines, std::vector<std::size_t> &reached)
    {
        const std::size_t begin = node / sides.size();
        const double y = place(node);
        double least = -std::numeric_limits<double>::infinity(); // slopes that miss no beat
        double most = std::numeric_limits<double>::infinity();
        for (std::size_t beat = begin + 1; beat < m_places.size() && least <= most; ++beat) {
            const auto distance = static_cast<double>(beat - begin);
            for (std::size_t side = 0; side < sides.size(); ++side) {
                const std::size_t to = beat * sides.size() + side;
                const double slope = (place(to) - y) / distance;
                if (slope < least || slope > most || m_nodes[to].lines < lines)
                    continue;
                const double squares = m_nodes[node].squares + squaresOf(begin, beat, y, slope);
                if (m_nodes[to].lines == Node::never)
                    reached.push_back(to);
                else if (m_nodes[to].squares <= squares)
                    continue;
                m_nodes[to] = {.lines = lines, .squares = squares, .before = node};
            }
            least = std::max(least, (m_places[beat] - tolerance - y) / distance);
            most = std::min(most, (m_places[beat] + tolerance - y) / distance);
        }
    }

    /// The squared distances of the beats behind `begin` up to `end` from a line.
    double squaresOf(std::size_t begin, std::size_t end, double y, double slope) const
    {
        const auto count = static_cast<double>(end - begin);
        const double start = y - slope * static_cast<double>(begin); // the line at the first beat
        const auto last = static_cast<double>(end);
        const auto first = static_cast<double>(begin);
        const double x = (last * (last + 1.0) - first * (first + 1.0)) / 2.0;
        const double xx = (last * (last + 1.0) * (2.0 * last + 1.0) -
                           first * (first + 1.0) * (2.0 * first + 1.0)) /
                          6.0;
        const double sumY = m_sums[end + 1].y - m_sums[begin + 1].y;
        const double sumXy = m_sums[end + 1].xy - m_sums[begin + 1].xy;
        const double sumYy = m_sums[end + 1].yy - m_sums[begin + 1].yy;
        return std::max(0.0, sumYy - 2.0 * start * sumY - 2.0 * slope * sumXy +
                                 count * start * start + 2.0 * start * slope * x +
                                 slope * slope * xx);
    }

    std::vector<Anchor> anchors(std::size_t node) const
    {
        std::vector<Anchor> found;
        for (;; node = m_nodes[node].before) {
            const std::size_t beat = node / sides.size();
            found.push_back({beat, m_origin + m_period * static_cast<double>(beat) + place(node)});
            if (beat == 0)
                break;
        }
        std::reverse(found.begin(), found.end());
        return found;
    }

    double m_origin = 0.0;
    double m_period = 0.0;
    std::vector<double> m_places; ///< of the beats, less their mean tempo
    std::vector<Node> m_nodes;    ///< beat after beat, each with its sides
    std::vector<Sums> m_sums;     ///< of the beats before each
};

} // namespace

BeatGrid fittedGrid(std::span<const std::uint64_t> beats, std::size_t one, int beatsPerBar)
{
    const bool isAscending =
        std::adjacent_find(beats.begin(), beats.end(), std::greater_equal<>()) == beats.end();
    if (beats.size() < 2 || one >= beats.size() || !isAscending)
        return {};
    const int length = std::clamp(beatsPerBar, BeatGrid::shortestBar, BeatGrid::longestBar);
    const auto bar = static_cast<std::size_t>(length);
    const std::size_t pickUp = one % bar; // beats before the first bar that begins
    std::vector<BeatAnchor> anchors;
    for (const LineFit::Anchor &anchor : LineFit(beats).fit()) {
        const std::size_t beat = anchor.beat + bar - pickUp; // since the start of bar 0
        anchors.push_back({.frame = static_cast<std::uint64_t>(
                               std::max<long long>(0, std::llround(anchor.frame))),
                           .bar = static_cast<int>(beat / bar),
                           .beat = static_cast<int>(beat % bar) + 1,
                           .beatsPerBar = length});
    }
    return BeatGrid(std::move(anchors));
}

} // namespace lyrabox
