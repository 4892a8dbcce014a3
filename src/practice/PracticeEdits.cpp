#include "practice/PracticeEdits.h"

#include "practice/PracticeText.h"
#include "practice/SongTime.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace lyrabox {

namespace {

bool isValid(const PracticeLoop &loop)
{
    return loop.from < loop.to && loop.to <= lastSongPlace;
}

bool isValid(const PracticeMarker &marker)
{
    return marker.at <= lastSongPlace;
}

template <typename Entry>
auto positionOf(std::vector<Entry> &entries, PracticeId id)
{
    return std::find_if(entries.begin(), entries.end(),
                        [id](const Entry &entry) { return entry.id == id; });
}

/// Makes one edit, and adds the edit that undoes it to `undo`. False if it is refused.
class Editor {
public:
    Editor(PracticeRecord &record, PracticeEdits &undo) : m_record(record), m_undo(undo) {}

    bool operator()(const PutLoop &edit) const
    {
        return put<PutLoop, RemoveLoop>(m_record.loops, edit.loop, PracticeLimits::loops);
    }
    bool operator()(const PutMarker &edit) const
    {
        return put<PutMarker, RemoveMarker>(m_record.markers, edit.marker, PracticeLimits::markers);
    }
    bool operator()(const RemoveLoop &edit) const
    {
        return remove<PutLoop>(m_record.loops, edit.id);
    }
    bool operator()(const RemoveMarker &edit) const
    {
        return remove<PutMarker>(m_record.markers, edit.id);
    }
    bool operator()(const PutBeats &edit) const
    {
        if (!(m_record.beats.grid == edit.grid)) {
            m_undo.emplace_back(PutBeats{std::move(m_record.beats.grid)});
            m_record.beats.grid = edit.grid;
        }
        return true;
    }
    bool operator()(const PutChannels &edit) const
    {
        const ChannelTools channels = cleanChannelTools(edit.channels);
        if (!(m_record.sound.channels == channels))
            m_undo.emplace_back(PutChannels{std::exchange(m_record.sound.channels, channels)});
        return true;
    }

private:
    template <typename Put, typename Remove, typename Entry>
    bool put(std::vector<Entry> &entries, Entry entry, std::size_t limit) const
    {
        clean(entry);
        if (!isValid(entry))
            return false;
        const auto old = positionOf(entries, entry.id);
        if (old == entries.end()) {
            m_undo.emplace_back(Remove{entry.id});
            entries.push_back(std::move(entry));
            return entries.size() <= limit;
        }
        if (!(*old == entry)) {
            m_undo.emplace_back(Put{*old});
            *old = std::move(entry);
        }
        return true;
    }

    template <typename Put, typename Entry>
    bool remove(std::vector<Entry> &entries, PracticeId id) const
    {
        const auto old = positionOf(entries, id);
        if (old == entries.end())
            return false;
        m_undo.emplace_back(Put{std::move(*old)});
        entries.erase(old);
        return true;
    }

    PracticeRecord &m_record;
    PracticeEdits &m_undo;
};

/// What is changed by an edit; a number that no loop or marker has for the beats and the channels.
PracticeId changedBy(const PracticeEdit &edit)
{
    return std::visit(
        [](const auto &made) {
            if constexpr (requires { made.id; })
                return made.id;
            else if constexpr (requires { made.loop; })
                return made.loop.id;
            else if constexpr (requires { made.grid; })
                return PracticeId{0};
            else if constexpr (requires { made.channels; })
                return ~PracticeId{0};
            else
                return made.marker.id;
        },
        edit);
}

/// The edits `first`, followed by those of `second`. Whatever `second` replaces is left out, so
/// that a long run of small moves stays one edit.
PracticeEdits joined(PracticeEdits first, const PracticeEdits &second)
{
    std::erase_if(first, [&second](const PracticeEdit &edit) {
        const bool isPut =
            std::holds_alternative<PutLoop>(edit) || std::holds_alternative<PutMarker>(edit) ||
            std::holds_alternative<PutBeats>(edit) || std::holds_alternative<PutChannels>(edit);
        return isPut && std::ranges::any_of(second, [&edit](const PracticeEdit &later) {
                   return changedBy(later) == changedBy(edit);
               });
    });
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

PracticeEdits takeLast(std::deque<PracticeEdits> &steps)
{
    PracticeEdits last = std::move(steps.back());
    steps.pop_back();
    return last;
}

bool isNear(std::uint64_t a, std::uint64_t b)
{
    constexpr std::uint64_t nearness = practiceRate / 50; // 20 ms
    return (a > b ? a - b : b - a) < nearness;
}

bool areSame(const PracticeLoop &a, const PracticeLoop &b)
{
    return a.name == b.name && isNear(a.from, b.from) && isNear(a.to, b.to);
}

bool areSame(const PracticeMarker &a, const PracticeMarker &b)
{
    return a.name == b.name && isNear(a.at, b.at);
}

/// Returns how many are added.
template <typename Put, typename Entry>
std::size_t addMissing(const std::vector<Entry> &present, const std::vector<Entry> &other,
                       std::size_t limit, PracticeMerge &merge)
{
    std::size_t added = 0;
    std::size_t room = limit - std::min(limit, present.size());
    for (const Entry &entry : other) {
        const bool isThere =
            std::any_of(present.begin(), present.end(),
                        [&entry](const Entry &known) { return areSame(known, entry); });
        if (isThere) {
            ++merge.known;
        } else if (room == 0) {
            ++merge.left;
        } else {
            merge.edits.emplace_back(Put{entry});
            ++added;
            --room;
        }
    }
    return added;
}

} // namespace

std::optional<PracticeEdits> applyEdits(PracticeRecord &record, const PracticeEdits &edits)
{
    PracticeRecord changed = record;
    PracticeEdits undo;
    const Editor editor(changed, undo);
    for (const PracticeEdit &edit : edits) {
        if (!std::visit(editor, edit))
            return std::nullopt;
    }
    if (!undo.empty()) {
        if (!fitsIntoFile(changed))
            return std::nullopt;
        sortByPlace(changed);
        record = std::move(changed);
        std::reverse(undo.begin(), undo.end());
    }
    return undo;
}

PracticeEdits editsThatMerge(const PracticeRecord &record, const PracticeRecord &other)
{
    return mergeOf(record, other).edits;
}

PracticeMerge mergeOf(const PracticeRecord &record, const PracticeRecord &other)
{
    PracticeMerge merge;
    merge.loops = addMissing<PutLoop>(record.loops, other.loops, PracticeLimits::loops, merge);
    merge.markers =
        addMissing<PutMarker>(record.markers, other.markers, PracticeLimits::markers, merge);
    if (record.beats.grid.isEmpty() && !other.beats.grid.isEmpty())
        merge.edits.emplace_back(PutBeats{other.beats.grid});
    const ChannelTools neutral;
    if (record.sound.channels == neutral && !(other.sound.channels == neutral))
        merge.edits.emplace_back(PutChannels{other.sound.channels});
    return merge;
}

bool PracticeHistory::apply(const PracticeEdits &edits, PracticeStep step)
{
    std::optional<PracticeEdits> undo = applyEdits(m_record, edits);
    if (!undo)
        return false;
    if (undo->empty())
        return true;
    ++m_revision;
    m_redo.clear();
    if (step == PracticeStep::JoinsLast && !m_undo.empty())
        undo = joined(std::move(*undo), takeLast(m_undo));
    m_undo.emplace_back(std::move(*undo));
    if (m_undo.size() > steps)
        m_undo.pop_front();
    return true;
}

bool PracticeHistory::undo()
{
    return step(m_undo, m_redo);
}

bool PracticeHistory::redo()
{
    return step(m_redo, m_undo);
}

void PracticeHistory::setFindings(std::optional<PracticeTuning> tuning,
                                  std::optional<KeyGuess> keys)
{
    m_record.sound.tuning = tuning;
    m_record.sound.keys = keys;
    clean(m_record.sound);
}

bool PracticeHistory::step(std::deque<PracticeEdits> &from, std::deque<PracticeEdits> &to)
{
    if (from.empty())
        return false;
    const std::optional<PracticeEdits> back = applyEdits(m_record, from.back());
    if (!back)
        return false; // The song's data grew meanwhile, so that the old state does not fit.
    ++m_revision;
    from.pop_back();
    to.push_back(*back);
    return true;
}

} // namespace lyrabox
