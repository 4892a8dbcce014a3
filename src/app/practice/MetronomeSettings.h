#pragma once

#include "platform/audio/ClickTable.h"
#include "platform/audio/Clicks.h"
#include "practice/CountIn.h"

/// How the metronome clicks and counts in. Plain values.
namespace lyrabox {

/// What clicks, and how it sounds.
struct ClickSettings {
    int loudness = 50; ///< percent, 0 to 100
    ClickTimbre timbre = ClickTimbre::Tick;
    ClickSide side = ClickSide::Both;
    bool hasAccents = true; ///< the first beat of a bar sounds different
    ClickPattern pattern = {};

    ClickSound sound() const;

    bool operator==(const ClickSettings &) const = default;
};

/// What is counted, and when.
struct CountInSettings {
    enum class When {
        AtPlay,    ///< when the player starts, or a loop is called up
        EveryPass, ///< also before each further pass of a loop
    };

    CountInLength length = {};
    When when = When::AtPlay;

    bool operator==(const CountInSettings &) const = default;
};

/// Brings the numbers within their ranges.
void clean(ClickSettings &settings);
void clean(CountInSettings &settings);

// The user defaults. What is missing or unknown has its usual value, and numbers beyond their
// ranges the nearest one. Main thread.
ClickSettings storedClickSettings();
CountInSettings storedCountInSettings();
void store(const ClickSettings &settings);
void store(const CountInSettings &settings);

} // namespace lyrabox
