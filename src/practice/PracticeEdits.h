#pragma once

#include "practice/PracticeRecord.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

/// Changes of a practice record as values, with undo and redo. One thread at a time.
namespace lyrabox {

/// Adds a loop, or replaces the one with its identifier: that is how it is renamed, moved,
/// coloured.
struct PutLoop {
    PracticeLoop loop;
};

/// Removes the loop of this identifier.
struct RemoveLoop {
    PracticeId id;
};

/// Adds a marker, or replaces the one with its identifier.
struct PutMarker {
    PracticeMarker marker;
};

/// Removes the marker of this identifier.
struct RemoveMarker {
    PracticeId id;
};

/// Replaces the beats. An empty grid removes them.
struct PutBeats {
    BeatGrid grid;
};

/// Replaces what is done with the song's channels.
struct PutChannels {
    ChannelTools channels;
};

using PracticeEdit =
    std::variant<PutLoop, RemoveLoop, PutMarker, RemoveMarker, PutBeats, PutChannels>;

/// Edits that are made and undone as one step.
using PracticeEdits = std::vector<PracticeEdit>;

/// How edits become a step.
enum class PracticeStep {
    New,
    JoinsLast, ///< they are undone together with the step before, as in a run of small moves
};

/// Makes all the edits in `record`, or none of them. Returns the edits that undo them, which are
/// empty if nothing changed. None, with the record as it was, if an edit removes what is not there,
/// if a loop would be empty or a place beyond lastSongPlace, or if the record would break a limit.
/// Names and numbers are brought within theirs.
std::optional<PracticeEdits> applyEdits(PracticeRecord &record, const PracticeEdits &edits);

/// The edits that add to `record` what `other` has and it has not; beats only if it has none, and
/// channel tools only if its own are neutral. Two
/// loops are the same if they have one name and both their ends are less than 20 ms apart; markers
/// likewise. What does not fit into the limits is left out.
PracticeEdits editsThatMerge(const PracticeRecord &record, const PracticeRecord &other);

/// What must be done to take over another record, and what there is to tell about it.
struct PracticeMerge {
    PracticeEdits edits;
    std::size_t loops = 0;   ///< that are added
    std::size_t markers = 0; ///< likewise
    std::size_t known = 0;   ///< loops and markers that are there already
    std::size_t left = 0;    ///< loops and markers that do not fit into the limits
};

/// editsThatMerge() with its numbers.
PracticeMerge mergeOf(const PracticeRecord &record, const PracticeRecord &other);

/// A record with the steps that led to it.
class PracticeHistory {
public:
    /// How many steps can be undone. Older ones are forgotten.
    static constexpr std::size_t steps = 100;

    PracticeHistory() = default;
    explicit PracticeHistory(PracticeRecord record) : m_record(std::move(record)) {}

    const PracticeRecord &record() const { return m_record; }

    /// Grows with every step, undone step and redone step.
    std::uint64_t revision() const { return m_revision; }

    /// Makes a step. What was undone before can then not be redone any more. False if the edits are
    /// refused, see applyEdits(). A step that changes nothing is none.
    bool apply(const PracticeEdits &edits, PracticeStep step = PracticeStep::New);

    bool canUndo() const { return !m_undo.empty(); }
    bool canRedo() const { return !m_redo.empty(); }

    /// False if there is nothing to undo or redo.
    bool undo();
    bool redo();

    /// Changes what the record says of its song. That is no step.
    void setSong(PracticeSong song) { m_record.song = std::move(song); }

    /// Notes what an analysis has said. That is no step, either.
    void setFindings(std::optional<PracticeTuning> tuning, std::optional<KeyGuess> keys);

    void setAnchors(const SongAnchors &anchors) { m_record.song.anchors = anchors; }

private:
    bool step(std::deque<PracticeEdits> &from, std::deque<PracticeEdits> &to);

    PracticeRecord m_record;
    std::uint64_t m_revision = 0;
    std::deque<PracticeEdits> m_undo; ///< the last one is undone next
    std::deque<PracticeEdits> m_redo; ///< the last one is redone next
};

} // namespace lyrabox
