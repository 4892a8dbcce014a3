#include "engine/SongChannels.h"

#include "engine/AudioEngineControl.h"

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

} // namespace

void setChannelTools(const ChannelTools &tools)
{
    const Lock lock(control().mutex);
    reading().channels.set(tools);
}

ChannelTools channelTools()
{
    const Lock lock(control().mutex);
    return reading().channels.tools();
}

} // namespace lyrabox::engine
