#pragma once

#include "platform/foundation/MusicLibrary.h"

namespace lyrabox {

/// The library that Rhythmbox keeps in `folder` ("rhythmdb.xml" and "playlists.xml") as a music
/// library: its songs save the hidden ones; first a playlist of all of them (distinguished kind 4),
/// then the static playlists in their order. Tracks are identified by their location, playlists by
/// a hash of kind and name, so that both stay the same from start to start. None when there are no
/// songs or the files cannot be read; the songs alone when only the playlists cannot be read.
MusicLibraryRef readRhythmboxLibrary(const QString &folder);

} // namespace lyrabox
