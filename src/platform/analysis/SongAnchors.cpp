#include "platform/analysis/SongAnchors.h"

#include "platform/analysis/AnchorTable.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <span>

namespace lyrabox {

namespace {

using Words = AnchorTable::Words;

constexpr auto step = static_cast<std::int64_t>(SongPrint::step);
constexpr std::size_t length = SongAnchor::steps;

/// Excerpts are tried at such distances, in steps.
constexpr std::size_t tryEvery = 64; // 0.74 s

/// Fainter steps count as silence: -60 dB.
constexpr float faint = 1.0e-6F;

/// In an excerpt that changes, what is so many steps later is at least so different.
constexpr std::size_t changeSteps = 10;
constexpr double leastChange = 0.3;

/// The least mean clarity. Bits of a steady sound are those of rounding.
constexpr double leastClarity = 0.02;

/// The share of differing bits up to which an excerpt counts as found.
constexpr double foundDistance = 0.3;

/// Anchors that also fit to other places of a song must fit so much better to one: when they are
/// made, and when they are looked for.
constexpr double ownMargin = 0.2;
constexpr double foundMargin = 0.08;

/// How far the offsets of the anchors may differ: 10 ms. Copies differ by 2 ms at most. The players
/// of another take, who wander about one tempo, seldom meet three times within 15 ms.
constexpr std::int64_t agreement = 44100 / 100;

/// Excerpts are not chosen nearer to the ends of the song than this, if others will do: copies are
/// faded or cut there.
constexpr std::size_t endSteps = 430; // 5 s

bool isLoud(std::span<const float> powers)
{
    const auto quiet = std::ranges::count_if(powers, [](float power) { return power < faint; });
    return static_cast<std::size_t>(quiet) * 10 < powers.size();
}

/// An excerpt that may become an anchor.
struct Candidate {
    std::size_t first = 0; ///< step
    double clarity = 0.0;
};

std::vector<Candidate> candidatesIn(const SongPrint &print)
{
    const Words words = print.words();
    std::vector<Candidate> candidates;
    for (std::size_t first = 0; first + length + changeSteps <= words.size(); first += tryEvery) {
        const double change =
            wordDistance(words.subspan(first, length), words.subspan(first + changeSteps, length));
        const auto clarities = std::span(print.clarities()).subspan(first, length);
        const double clarity = std::accumulate(clarities.begin(), clarities.end(), 0.0) / length;
        if (change >= leastChange && clarity >= leastClarity &&
            isLoud(std::span(print.powers()).subspan(first, length)))
            candidates.push_back({first, clarity});
    }
    return candidates;
}

/// The clearest candidate from `begin` up to, but not including, `end`.
const Candidate *clearest(const std::vector<Candidate> &candidates, std::size_t begin,
                          std::size_t end)
{
    const Candidate *result = nullptr;
    for (const Candidate &candidate : candidates) {
        if (candidate.first >= begin && candidate.first < end &&
            (result == nullptr || candidate.clarity > result->clarity))
            result = &candidate;
    }
    return result;
}

SongAnchor anchorAt(const SongPrint &print, std::size_t first)
{
    const Words excerpt = Words(print.words()).subspan(first, length);
    return {first * SongPrint::step, {excerpt.begin(), excerpt.end()}};
}

/// The clearest candidates of the three parts of the song from `begin` to `end`, that do not
/// overlap; none if a part has none.
SongAnchors anchorsBetween(const SongPrint &print, const std::vector<Candidate> &candidates,
                           std::size_t begin, std::size_t end)
{
    SongAnchors anchors;
    std::size_t from = begin;
    for (std::size_t part = 1; part <= anchorsOfSong; ++part) {
        const std::size_t to = begin + (end - begin) * part / anchorsOfSong;
        const Candidate *found = clearest(candidates, from, to);
        if (found == nullptr)
            return {};
        anchors.push_back(anchorAt(print, found->first));
        from = std::max(to, found->first + length);
    }
    return anchors;
}

/// The first and the last candidate, and the clearest between them; none if they lie within a part
/// of the song, in which the players of another take may be together by chance.
SongAnchors farthestAnchors(const SongPrint &print, const std::vector<Candidate> &candidates)
{
    const std::size_t first = candidates.front().first;
    const std::size_t last = candidates.back().first;
    const std::size_t size = print.words().size();
    if (last < first + size / 3)
        return {};
    const std::size_t from = first + length;
    const std::size_t to = last - std::min(last, length - 1);
    const Candidate *middle =
        clearest(candidates, std::max(from, size / 3), std::min(to, size * 2 / 3));
    if (middle == nullptr)
        middle = clearest(candidates, from, to);
    if (middle == nullptr)
        return {};
    return {anchorAt(print, first), anchorAt(print, middle->first), anchorAt(print, last)};
}

/// The places where an anchor was found, in the order of the song.
using Hits = std::vector<AnchorTable::Hit>;
using HitsOfSet = std::array<Hits, anchorsOfSong>;

/// Hits that agree with each other, one for each anchor.
struct Agreement {
    std::array<AnchorTable::Hit, anchorsOfSong> hits{};
    std::int64_t offset = 0;
    double distance = 1.0; ///< of the worst
};

/// The agreement of the hits with the first of them. None if there is none.
std::optional<Agreement> agreementWith(const AnchorTable::Hit &first, const HitsOfSet &hits,
                                       const std::array<std::uint64_t, anchorsOfSong> &places)
{
    const auto offsetOf = [&](std::size_t anchor, const AnchorTable::Hit &hit) {
        return hit.step * step - static_cast<std::int64_t>(places[anchor]);
    };
    Agreement result{.hits = {first}, .offset = offsetOf(0, first), .distance = first.distance};
    for (std::size_t anchor = 1; anchor < anchorsOfSong; ++anchor) {
        const AnchorTable::Hit *best = nullptr;
        for (const AnchorTable::Hit &hit : hits[anchor]) {
            if (std::abs(offsetOf(anchor, hit) - result.offset) <= agreement + step &&
                (best == nullptr || hit.distance < best->distance))
                best = &hit;
        }
        if (best == nullptr)
            return std::nullopt;
        result.hits[anchor] = *best;
        result.distance = std::max(result.distance, best->distance);
    }
    return result;
}

/// The best agreement; none if there is none, or if another one is worse by less than `margin`.
std::optional<Agreement> agreeing(const HitsOfSet &hits,
                                  const std::array<std::uint64_t, anchorsOfSong> &places,
                                  double margin)
{
    std::optional<Agreement> best;
    double second = 1.0;
    for (const AnchorTable::Hit &first : hits[0]) {
        const std::optional<Agreement> each = agreementWith(first, hits, places);
        if (!each)
            continue;
        if (!best || each->distance < best->distance) {
            second = best ? best->distance : second;
            best = each;
        } else {
            second = std::min(second, each->distance);
        }
    }
    return best && second >= best->distance + margin ? best : std::nullopt;
}

HitsOfSet hitsOfSet(const std::vector<AnchorTable::Hit> &hits, std::size_t first)
{
    HitsOfSet result;
    for (const AnchorTable::Hit &hit : hits) {
        if (hit.excerpt >= first && hit.excerpt < first + anchorsOfSong)
            result[hit.excerpt - first].push_back(hit);
    }
    return result;
}

/// Whether the anchors are found in their own song at one place only.
bool areUnique(const SongAnchors &anchors, Words words, const std::stop_token &stop)
{
    std::vector<Words> excerpts;
    std::array<std::uint64_t, anchorsOfSong> places{};
    for (const SongAnchor &anchor : anchors) {
        places[excerpts.size()] = anchor.at;
        excerpts.emplace_back(anchor.words);
    }
    const auto hits = AnchorTable(excerpts).find(words, foundDistance, stop);
    return !stop.stop_requested() && agreeing(hitsOfSet(hits, 0), places, ownMargin);
}

/// A place where an anchor was found, in frames.
struct Placed {
    std::int64_t offset = 0;
    double distance = 0.0;
};

/// Finds the place of an anchor between the steps, near a place in whole steps.
Placed refined(SongPrint &song, const SongAnchor &anchor, std::int64_t near,
               const std::stop_token &stop)
{
    constexpr std::int64_t way = step;        // to either side
    constexpr std::int64_t stride = step / 8; // 1.5 ms
    double least = 2.0;
    std::vector<double> distances;
    for (std::int64_t shift = -way; shift <= way && !stop.stop_requested(); shift += stride) {
        const auto words = song.wordsFrom(near + shift, length);
        distances.push_back(wordDistance(anchor.words, words));
        least = std::min(least, distances.back());
    }
    if (stop.stop_requested())
        return {};
    // The middle of the dip, which is steadier than its lowest point.
    const double limit = least + 0.04;
    double sum = 0.0;
    double weights = 0.0;
    for (std::size_t i = 0; i < distances.size(); ++i) {
        const double weight = std::max(0.0, limit - distances[i]);
        weights += weight;
        sum += weight * static_cast<double>(static_cast<std::int64_t>(i) * stride - way);
    }
    const std::int64_t place = near + std::llround(sum / weights);
    return {place - static_cast<std::int64_t>(anchor.at), least};
}

} // namespace

SongAnchors songAnchors(const SongPrint &print, const std::stop_token &stop)
{
    const Words words = print.words();
    const std::vector<Candidate> candidates = candidatesIn(print);
    if (candidates.empty())
        return {};
    // Copies are often faded or cut at the ends. But songs that repeat one pattern throughout are
    // known only by their ends.
    const std::size_t margin = std::min(endSteps, words.size() / 10);
    const std::size_t end = words.size() - std::min(words.size(), margin + length);
    for (const auto &[from, to] : {std::pair{margin, end}, {std::size_t{0}, words.size()}}) {
        SongAnchors anchors = anchorsBetween(print, candidates, from, to);
        if (!anchors.empty() && areUnique(anchors, words, stop))
            return anchors;
    }
    SongAnchors anchors = farthestAnchors(print, candidates);
    return !anchors.empty() && areUnique(anchors, words, stop) ? anchors : SongAnchors();
}

void AnchorSearch::add(const SongAnchors &anchors)
{
    const std::size_t set = m_sets++;
    const bool isComplete =
        anchors.size() == anchorsOfSong &&
        std::ranges::all_of(anchors, [](const auto &each) { return each.words.size() == length; });
    for (const SongAnchor &anchor : anchors) {
        if (isComplete)
            m_anchors.push_back({set, anchor});
    }
}

std::vector<AnchorSearch::Found> AnchorSearch::find(SongPrint &song,
                                                    const std::stop_token &stop) const
{
    std::vector<Words> excerpts;
    for (const Anchor &each : m_anchors)
        excerpts.push_back(each.anchor.words);
    const std::vector<AnchorTable::Hit> hits =
        AnchorTable(excerpts).find(song.words(), foundDistance, stop);
    std::vector<Found> found;
    // The anchors of a set follow each other, and so do their hits.
    for (std::size_t first = 0; first < m_anchors.size(); first += anchorsOfSong) {
        if (stop.stop_requested())
            return {};
        std::array<std::uint64_t, anchorsOfSong> places{};
        for (std::size_t i = 0; i < anchorsOfSong; ++i)
            places[i] = m_anchors[first + i].anchor.at;
        const auto agreed = agreeing(hitsOfSet(hits, first), places, foundMargin);
        if (!agreed)
            continue;
        std::array<std::int64_t, anchorsOfSong> offsets{};
        double worst = 0.0;
        for (std::size_t i = 0; i < anchorsOfSong; ++i) {
            const Placed placed =
                refined(song, m_anchors[first + i].anchor, agreed->hits[i].step * step, stop);
            offsets[i] = placed.offset;
            worst = std::max(worst, placed.distance);
        }
        if (stop.stop_requested())
            return {};
        std::ranges::sort(offsets);
        if (offsets.back() - offsets.front() <= agreement)
            found.push_back({m_anchors[first].set, offsets[1], worst});
    }
    std::ranges::stable_sort(found, {}, &Found::distance);
    return found;
}

} // namespace lyrabox
