#pragma once

#include "platform/analysis/SongAnchor.h"
#include "platform/analysis/SongKey.h"
#include "platform/analysis/SongTuning.h"
#include "platform/audio/ChannelTools.h"
#include "practice/BeatGrid.h"
#include "practice/TrainerSettings.h"

#include <QJsonObject>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/// What a musician keeps for one song. Plain values: one thread at a time may use an object.
namespace lyrabox {

/// Names a loop or a marker for as long as the program runs. Never 0. Files do not contain it.
using PracticeId = std::uint64_t;

/// An identifier that no other loop or marker has. Any thread.
PracticeId newPracticeId();

/// What follows when a loop was played as often as it asks for.
enum class AfterLoop {
    Repeat,   ///< it never ends by itself
    GoOn,     ///< the song goes on
    NextLoop, ///< the next loop of the list is played
    Stop,     ///< the song stops
};

/// How large a record may be. Names and notes are cut to their limits; what would break another
/// limit is refused.
struct PracticeLimits {
    static constexpr std::size_t loops = 500;
    static constexpr std::size_t markers = 2000;
    static constexpr qsizetype nameLength = 200;  ///< in UTF-16 code units
    static constexpr qsizetype noteLength = 1000; ///< in UTF-16 code units
    static constexpr qsizetype fileBytes = 1'000'000;
    static constexpr int passes = 999;
    static constexpr int colours = 8;
};

/// Places are frames of the sound chain (44,100 a second). A loop may lie beyond the song's end,
/// because its file may have been made for a longer copy.
struct PracticeLoop {
    PracticeId id = newPracticeId();
    QString name = {}; ///< one line of plain text; need not be unique, may be empty
    std::uint64_t from = 0;
    std::uint64_t to = 0;          ///< the first frame behind the loop; larger than `from`
    int colour = 1;                ///< 1 to PracticeLimits::colours
    QString note = {};             ///< plain text, may have several lines
    std::optional<int> speed = {}; ///< percent, within speedRange; none: the speed is left as it is
    std::optional<int> pitch = {}; ///< cents, within pitchRange; none: the pitch is left as it is
    AfterLoop after = AfterLoop::Repeat;
    int passes = 1; ///< how often it is played before `after`; 1 to PracticeLimits::passes
    std::optional<TrainerSettings> trainer = {}; ///< none: it was never trained
    QJsonObject unknown = {}; ///< keys that another version or program has written

    /// Whether all of it lies within a song of so many frames.
    bool isWithin(std::uint64_t songFrames) const { return to <= songFrames; }

    bool operator==(const PracticeLoop &) const = default;
};

/// A place with a name.
struct PracticeMarker {
    PracticeId id = newPracticeId();
    std::uint64_t at = 0;
    QString name = {};        ///< as a loop's name
    QJsonObject unknown = {}; ///< as a loop's

    bool operator==(const PracticeMarker &) const = default;
};

/// The beats of the song.
struct PracticeBeats {
    BeatGrid grid = {};       ///< without beats if they are not known
    QJsonObject unknown = {}; ///< as a loop's
};

/// What an analysis has said about the song's tuning.
struct PracticeTuning {
    bool isClear = false;
    SongTuning tuning = {}; ///< if it is clear; tenths of a cent

    bool operator==(const PracticeTuning &) const = default;
};

/// How the song sounds: what is done with its channels, and its tuning and key.
struct PracticeSound {
    ChannelTools channels = {};
    std::optional<PracticeTuning> tuning = {}; ///< none: it was not analysed
    std::optional<KeyGuess> keys = {};         ///< none: it was not analysed, or there are none
    QJsonObject unknown = {};                  ///< as a loop's

    bool operator==(const PracticeSound &) const = default;
};

/// The song that a record belongs to, for people and for finding it again.
struct PracticeSong {
    QString title = {};
    QString artist = {};
    std::optional<std::uint64_t> length = {}; ///< in frames
    QString audio;            ///< the hash of SongReader::payloadHash(); empty if unknown
    SongAnchors anchors = {}; ///< to know other copies of the song; empty if not made
    QJsonObject unknown = {}; ///< as a loop's
};

/// The content of a practice file.
struct PracticeRecord {
    PracticeSong song;
    PracticeBeats beats = {};
    PracticeSound sound = {};
    std::vector<PracticeLoop> loops;     ///< in the order of their starts, then of their ends
    std::vector<PracticeMarker> markers; ///< in the order of their places
    QJsonObject unknown = {};            ///< as a loop's

    /// Null if there is none of this identifier.
    const PracticeLoop *loop(PracticeId id) const;
    const PracticeMarker *marker(PracticeId id) const;
};

/// Brings texts and numbers within their limits: a name becomes one line without control
/// characters, colour, speed, pitch, passes and the trainer's settings the nearest valid value.
void clean(PracticeLoop &loop);
void clean(PracticeMarker &marker);
void clean(PracticeSong &song);

/// Rounds the tuning to tenths of a cent, and brings all numbers within their ranges.
void clean(PracticeSound &sound);

/// Sorts loops and markers by their places. Equal ones keep their order.
void sortByPlace(PracticeRecord &record);

} // namespace lyrabox
