#pragma once

#include <memory>

namespace lyrabox {

/// Detects the Escape key on one display system, for EscapeWatch. Main thread.
class EscapeListener {
public:
    EscapeListener() = default;
    virtual ~EscapeListener() = default;
    EscapeListener(const EscapeListener &) = delete;
    EscapeListener &operator=(const EscapeListener &) = delete;

    /// Whether Escape has been pressed since the last call. Never waits.
    virtual bool hasEscape() = 0;
};

/// Call it only if the toolkit uses X.
std::unique_ptr<EscapeListener> listenForEscapeOnX();

/// Whether the toolkit uses Wayland and gives access to its connection.
bool canListenForEscapeOnWayland();
/// Call it only if canListenForEscapeOnWayland().
std::unique_ptr<EscapeListener> listenForEscapeOnWayland();

} // namespace lyrabox
