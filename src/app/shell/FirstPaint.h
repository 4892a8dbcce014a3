#pragma once

#include <chrono>
#include <functional>

class QWidget;

namespace lyrabox {

/// Calls `work` once, from the event loop, as soon as `window` has been painted. Use it for work
/// that the first picture does not need. A window may never be painted, for example if it starts
/// minimised; then `work` is called after `timeout`. It is never called if `window` is destroyed
/// first. Main thread.
void afterFirstPaint(QWidget *window, std::function<void()> work,
                     std::chrono::milliseconds timeout = std::chrono::seconds(2));

} // namespace lyrabox
