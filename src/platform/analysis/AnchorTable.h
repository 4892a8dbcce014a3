#pragma once

#include "platform/analysis/SongAnchors.h"

#include <array>
#include <cstdint>
#include <span>
#include <stop_token>
#include <vector>

namespace lyrabox {

/// Finds excerpts in a fingerprint without comparing them with every place: only places where half
/// a word is the same are compared. An object belongs to one thread at a time.
class AnchorTable {
public:
    using Words = std::span<const std::uint32_t>;

    /// The excerpts, of SongAnchor::steps words each, must outlive the table.
    explicit AnchorTable(std::vector<Words> excerpts);

    /// A place where an excerpt was found.
    struct Hit {
        std::size_t excerpt = 0;
        std::int64_t step = 0; ///< of the song, where the excerpt begins
        double distance = 0.0; ///< the share of bits that differ
    };

    /// Where in the song an excerpt differs in at most that share of its bits. Of hits that are
    /// less than 0.25 s apart only the best is told. Returns early, with any result, when a stop
    /// is requested.
    std::vector<Hit> find(Words song, double distance, const std::stop_token &stop) const;

private:
    struct Place {
        std::uint32_t excerpt;
        std::uint32_t word;
    };
    /// The places of the words with the same half.
    struct Half {
        unsigned shift = 0;
        std::vector<std::uint32_t> begins; ///< of each value in `places`, and the end
        std::vector<Place> places;
    };

    std::vector<Words> m_excerpts;
    std::array<Half, 2> m_halves;
};

/// The share of bits that differ. Both have the same length.
double wordDistance(AnchorTable::Words a, AnchorTable::Words b);

} // namespace lyrabox
