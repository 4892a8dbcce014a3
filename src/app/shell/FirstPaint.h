#pragma once

#include <chrono>
#include <functional>

class QWidget;

namespace lyrabox {

/// Calls `work` once, from the event loop: as soon as `window` has been painted, or after
/// `patience` where it is not, as when it starts minimised. For what the first picture does not
/// need and should not wait for. Never called when `window` is gone.
void afterFirstPaint(QWidget *window, std::function<void()> work,
                     std::chrono::milliseconds patience = std::chrono::seconds(2));

} // namespace lyrabox
