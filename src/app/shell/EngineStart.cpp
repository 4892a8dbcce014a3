#include "app/shell/EngineStart.h"

#include "engine/AudioEngine.h"
#include "platform/foundation/Machine.h"

#include <memory>

namespace lyrabox {

EngineStart startEngine()
{
    EngineStart start;
    const auto task = std::make_shared<std::packaged_task<Status()>>(&engine::buildAudioSystem);
    start.thread = startThread([task] { (*task)(); });
    start.status = start.thread.joinable()
                       ? task->get_future()
                       : std::async(std::launch::deferred, &engine::buildAudioSystem);
    return start;
}

} // namespace lyrabox
