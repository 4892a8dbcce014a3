#pragma once

#include "platform/foundation/Status.h"

#include <future>
#include <thread>

namespace lyrabox {

/// An engine that is being built in the background.
struct EngineStart {
    std::future<Status> status; ///< the result of engine::buildAudioSystem()
    std::jthread thread;        ///< builds the engine; not joinable if there is none
};

/// Starts to build the engine on a thread of its own. If the system cannot start a thread, the
/// engine is built by the first call of `status.get()`, on the caller's thread. Main thread.
EngineStart startEngine();

} // namespace lyrabox
