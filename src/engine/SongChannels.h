#pragma once

#include "platform/audio/ChannelTools.h"

/// What the engine does with the song's two channels before the equalizer. Main thread.
namespace lyrabox::engine {

/// From the next slice of 128 frames on. A change glides over 256 frames, and one of the centre's
/// settings over 2,048. Numbers are brought within their ranges. Loading a song makes the tools
/// neutral, because they belong to the song; a change of the device keeps them. Neutral tools leave
/// every sample as it is and cost nothing. The first use of the centre allocates 150 KB.
void setChannelTools(const ChannelTools &tools);

/// What was set last, with numbers within their ranges.
ChannelTools channelTools();

} // namespace lyrabox::engine
