#pragma once

#include "platform/audio/AudioUnit.h"

#include <functional>
#include <memory>
#include <thread>

namespace lyrabox {

/// Watches the default output device of a PulseAudio server (PipeWire serves the same protocol) on
/// a thread of its own, the device-notification thread, on which the listener is called too.
///
/// The listener is called when another device has become the default, when the default device was
/// removed and came back, and when a server is there again after it had gone or had not been there
/// at first, and once for every request; never for volumes or for devices that are not the default.
/// While no server answers it is looked for every 0.1 s, then less often, at least once a second.
/// Watching never starts a server.
///
/// The listener may call listen() and may even destroy the watcher. Elsewhere the destructor waits
/// for a call that is under way, so it must not run with a lock held that the listener takes.
class PulseDefaultOutputWatcher : public DefaultOutputWatcher {
public:
    PulseDefaultOutputWatcher();
    ~PulseDefaultOutputWatcher() override;

    Status listen(std::function<void()> listener) override;
    void requestCall() noexcept override;

private:
    struct Watch;
    std::shared_ptr<Watch> m_watch;
    std::thread m_thread;
};

} // namespace lyrabox
