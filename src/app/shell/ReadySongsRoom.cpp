// The songs that are decoded in advance.

#include "app/shell/ProgramParts.h"
#include "app/shell/Room.h"

namespace lyrabox {

namespace {

void build(ProgramParts &) {}

void connectRoom(ProgramParts &parts)
{
    if (qgetenv(readySongsVariable) == "0")
        return;
    parts.readySongs = std::make_unique<engine::ReadySongs>();
    parts.songsAhead =
        std::make_unique<SongsAhead>(&parts.queue, &parts.tracks, parts.readySongs.get());
}

} // namespace

const Room readySongsRoom{.build = build, .connect = connectRoom};

} // namespace lyrabox
