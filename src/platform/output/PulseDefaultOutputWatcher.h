#pragma once

#include "platform/audio/AudioUnit.h"

#include <functional>
#include <memory>
#include <thread>

namespace lyrabox {

/// Watches the default output device of a PulseAudio server; PipeWire speaks the same protocol. It
/// uses a thread of its own, the device-notification thread, and calls the listener on it.
///
/// The listener is called when another device has become the default, when the default device was
/// removed and has come back, when a server has appeared or reappeared, and once for every
/// requestCall(). It is not called for changes of volume or of other devices. Without a server the
/// watcher looks for one every 0.1 s at first, then less often, but at least once a second. It
/// never starts a server.
///
/// While the server reports no default device, the watcher makes a new connection after 250 ms, and
/// after up to 5 s later on, because PipeWire may keep an old connection from seeing a device.
///
/// A listener that cannot use the device yet calls requestCall() itself. It is then called again
/// after 250 ms, and after pauses of up to 4 s later on, as long as the server has a default
/// device.
///
/// The listener may call listen() and may even destroy the watcher. On any other thread the
/// destructor waits for a listener call in progress, so its caller must not hold a lock that the
/// listener takes.
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
