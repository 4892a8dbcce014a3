#pragma once

#include <memory>

namespace lyrabox {

/// How EscapeWatch hears the key on one display system.
class EscapeListener {
public:
    EscapeListener() = default;
    virtual ~EscapeListener() = default;
    EscapeListener(const EscapeListener &) = delete;
    EscapeListener &operator=(const EscapeListener &) = delete;

    /// Whether Escape has been pressed since the last call. Never waits.
    virtual bool hasEscape() = 0;
};

/// Only while the toolkit is on X.
std::unique_ptr<EscapeListener> listenForEscapeOnX();

/// Whether the toolkit is on Wayland and shares its connection.
bool canListenForEscapeOnWayland();
/// Only where that is so.
std::unique_ptr<EscapeListener> listenForEscapeOnWayland();

} // namespace lyrabox
