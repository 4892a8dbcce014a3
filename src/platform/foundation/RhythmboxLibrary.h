#pragma once

#include "platform/foundation/MusicLibrary.h"

namespace lyrabox {

/// Reads the library that Rhythmbox keeps in `folder` ("rhythmdb.xml" and "playlists.xml").
///
/// The result holds all songs except hidden ones. Its first playlist lists all of them
/// (MusicPlaylist::distinguishedKind 4); the static playlists follow in their order. A track is
/// identified by its location, a playlist by a hash of its kind and name, so both keep their
/// identifiers across restarts.
///
/// Null if there are no songs or "rhythmdb.xml" cannot be read. If only "playlists.xml" cannot be
/// read, the result holds the songs alone. Blocks; any thread.
MusicLibraryRef readRhythmboxLibrary(const QString &folder);

} // namespace lyrabox
