#pragma once

#include "practice/PracticeLog.h"

#include <compare>
#include <map>
#include <optional>
#include <vector>

namespace lyrabox {

/// The best speed of every loop in the history: the highest one with a pass that was not missed.
/// Loops are told apart as by PracticeLogLine::isSameLoop(). A plain value.
class BestSpeeds {
public:
    BestSpeeds() = default;
    explicit BestSpeeds(const std::vector<PracticeLogLine> &lines);

    void add(const PracticeLogLine &line);
    void add(const BestSpeeds &other);

    bool isEmpty() const { return m_speeds.empty(); }
    /// The best speed of the loop that `loop` is about, in percent. None if there is none.
    std::optional<double> of(const PracticeLogLine &loop) const;

private:
    struct Key {
        explicit Key(const PracticeLogLine &line);

        QString song;
        QString artist;
        QString loop;
        std::uint64_t from = 0; ///< 0 if the loop has a name, as `to`
        std::uint64_t to = 0;
        std::strong_ordering operator<=>(const Key &) const = default;
    };

    void add(const Key &loop, double speed);

    std::map<Key, double> m_speeds;
};

} // namespace lyrabox
