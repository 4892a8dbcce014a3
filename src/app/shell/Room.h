#pragma once

namespace lyrabox {

struct ProgramParts;

/// One room of the program: everything in the windows and the menu that belongs to one topic. Each
/// room is wired in a file of its own, so a new room changes no other one. To add a room, write its
/// file, declare its constant below and add it to `rooms` in Composition.cpp. Main thread.
struct Room {
    /// Adds to the windows what the interface definitions cannot express: cells, images, fonts.
    /// Runs once, before the engine exists.
    void (*build)(ProgramParts &parts);

    /// Sets the outlets of the room's controllers and connects its controls and menu commands. Runs
    /// once, after the engine was built and before the controllers awake.
    void (*connect)(ProgramParts &parts);
};

extern const Room transportRoom;  ///< playback, speed, pitch, volume, song settings
extern const Room songListRoom;   ///< the table of songs, its search and its order
extern const Room sourceRoom;     ///< folders and playlists
extern const Room readySongsRoom; ///< songs that are decoded in advance
extern const Room equalizerRoom;  ///< bands and presets
extern const Room practiceRoom;   ///< the practice pane and its menu
extern const Room pedalRoom;      ///< pedals and the user's keys
extern const Room windowRoom;     ///< the windows themselves, help and updates

/// An environment variable of this name with the value 0 turns off the decoding in advance.
constexpr const char *readySongsVariable = "LYRABOX_READY_SONGS";

/// Shows the transport as it is without a song. Its controller awakes only after the first list is
/// built, and the window may be shown earlier.
void showIdleTransport(ProgramParts &parts);

} // namespace lyrabox
