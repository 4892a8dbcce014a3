#pragma once

#include "engine/LoopRange.h"
#include "platform/audio/Clicks.h"

#include <cstdint>
#include <memory>
#include <optional>

/// What practising asks of the engine: the metronome, the silence before a loop or a start, and the
/// count of passes. Main thread. Loading a song switches the metronome, the lead-ins and the run-up
/// off, because they belong to the song. A change of the device keeps them.
namespace lyrabox::engine {

/// The metronome plays these clicks from the next slice of 128 frames on. Null switches it off.
/// Clicks that time/pitch already holds still sound if the metronome stays on.
void setClicks(std::shared_ptr<const ClickTable> clicks);
/// The clicks that were set last. Null if the metronome is off.
std::shared_ptr<const ClickTable> clicks();

/// How all clicks sound from the next one on. The loudness is clamped to 0.0 to 1.0; one that is
/// not a number counts as 0. The sound stays when a song is loaded.
void setClickSound(const ClickSound &sound);

/// The silence between the jump of a loop and its first frame, from the next jump on. The position
/// stands at the loop's start meanwhile. A seek ends it. A loop whose end is not after its start
/// has none. More than LeadIn::maximumClicks clicks are not played.
void setLeadInAtWrap(const LeadIn &leadIn);

/// Music before a loop: from the next jump on, a loop goes on so many frames before its start, or
/// at the song's start if that comes later. Nothing else about the loop changes. 0 switches it off.
void setRunUp(std::uint64_t frames);

/// The silence between a start of the output and the frame that is heard first. With a lead-in, a
/// start drops the frames that the stages hold and reads them again behind the silence. A change of
/// the device is no start.
void setLeadInAtStart(const LeadIn &leadIn);

/// Where a lead-in is that is heard now, in frames of the song.
struct HeardLeadIn {
    std::uint64_t frames = 0; ///< its length
    std::uint64_t done = 0;   ///< how much of it was heard; less than `frames`
};

/// None while the song itself is heard. As exact as heardFrame(). While the output stands, the
/// answer is that of its last moment.
std::optional<HeardLeadIn> heardLeadIn();

/// A pass is a round of a loop whose end was reached by playing. A jump because the position was
/// set behind the end, or because the loop was moved or switched on, is none.
struct PassCount {
    std::uint64_t ended = 0; ///< passes that the engine has read to their end. It never goes back.
    /// Of these, the passes whose end was heard. It is behind `ended` by up to a quarter of a
    /// second.
    std::uint64_t heard = 0;
    LoopRange loop{.start = 0, .end = 0}; ///< of the last one that ended
};

/// The number of passes since the engine was made. Compare two calls.
PassCount passes();

} // namespace lyrabox::engine
