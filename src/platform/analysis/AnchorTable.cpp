#include "platform/analysis/AnchorTable.h"

#include <algorithm>
#include <bit>
#include <map>
#include <utility>

namespace lyrabox {

namespace {

constexpr std::uint32_t halves = 1U << 16U; ///< values of half a word
constexpr double bitsOfWord = 32.0;

/// Hits that are less apart are one.
constexpr std::int64_t nearness = 22; // 0.25 s

/// A place is compared whole only if these words of it are not too different.
constexpr std::size_t probeStride = 16;
constexpr double probeMargin = 0.08;

unsigned differingBits(AnchorTable::Words a, AnchorTable::Words b, std::size_t stride)
{
    unsigned bits = 0;
    for (std::size_t i = 0; i < a.size(); i += stride)
        bits += static_cast<unsigned>(std::popcount(a[i] ^ b[i]));
    return bits;
}

} // namespace

double wordDistance(AnchorTable::Words a, AnchorTable::Words b)
{
    return differingBits(a, b, 1) / (bitsOfWord * static_cast<double>(a.size()));
}

AnchorTable::AnchorTable(std::vector<Words> excerpts) : m_excerpts(std::move(excerpts))
{
    m_halves[1].shift = 16;
    for (Half &half : m_halves) {
        const auto forAll = [&](auto use) {
            for (std::size_t excerpt = 0; excerpt < m_excerpts.size(); ++excerpt) {
                const Words words = m_excerpts[excerpt];
                for (std::size_t i = 0; i < words.size(); ++i) {
                    // A run of the same bits says nothing about the place.
                    if (i == 0 || words[i] != words[i - 1])
                        use((words[i] >> half.shift) % halves,
                            Place{static_cast<std::uint32_t>(excerpt),
                                  static_cast<std::uint32_t>(i)});
                }
            }
        };
        half.begins.assign(halves + 1, 0);
        forAll([&](std::uint32_t value, Place) { ++half.begins[value + 1]; });
        for (std::uint32_t value = 0; value < halves; ++value)
            half.begins[value + 1] += half.begins[value];
        half.places.resize(half.begins.back());
        std::vector<std::uint32_t> next = half.begins;
        forAll([&](std::uint32_t value, Place place) { half.places[next[value]++] = place; });
    }
}

std::vector<AnchorTable::Hit> AnchorTable::find(Words song, double distance,
                                                const std::stop_token &stop) const
{
    constexpr std::size_t length = SongAnchor::steps;
    constexpr std::size_t probes = (length + probeStride - 1) / probeStride;
    const auto mostProbed =
        static_cast<unsigned>((distance + probeMargin) * bitsOfWord * static_cast<double>(probes));
    std::map<std::pair<std::size_t, std::int64_t>, double> found;
    for (std::size_t at = 0; at < song.size(); ++at) {
        if (at % 64 == 0 && stop.stop_requested())
            break;
        if (at > 0 && song[at] == song[at - 1])
            continue;
        for (const Half &half : m_halves) {
            const std::uint32_t value = (song[at] >> half.shift) % halves;
            for (std::uint32_t i = half.begins[value]; i < half.begins[value + 1]; ++i) {
                const Place place = half.places[i];
                if (place.word > at || at - place.word + length > song.size())
                    continue;
                const Words there = song.subspan(at - place.word, length);
                const Words excerpt = m_excerpts[place.excerpt];
                if (differingBits(excerpt, there, probeStride) > mostProbed)
                    continue;
                const std::pair key{std::size_t{place.excerpt},
                                    static_cast<std::int64_t>(at - place.word)};
                if (found.contains(key))
                    continue;
                const double share = wordDistance(excerpt, there);
                if (share <= distance)
                    found.emplace(key, share);
            }
        }
    }
    std::vector<Hit> hits;
    for (const auto &[key, share] : found) { // by excerpt, then by step
        Hit *last = hits.empty() ? nullptr : &hits.back();
        const bool isSame =
            last != nullptr && last->excerpt == key.first && key.second - last->step < nearness;
        if (!isSame)
            hits.push_back({key.first, key.second, share});
        else if (share < last->distance)
            *last = {key.first, key.second, share};
    }
    return hits;
}

} // namespace lyrabox
