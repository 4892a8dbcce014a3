#pragma once

#include <memory>

namespace lyrabox {

class EscapeListener;

/// Tells whether the user has pressed Escape while the main thread works and handles no events.
///
/// The key is heard for as long as the object lives and as long as one of the program's windows has
/// the keyboard: on X over a second connection to the server, on Wayland by a second keyboard
/// object with a queue of its own. The toolkit still gets its own copy of the key press, which it
/// delivers when it handles events again. Elsewhere nothing is ever heard. Main thread.
class EscapeWatch {
public:
    /// Whether Escape can be heard here. If not, no text may mention the key.
    static bool isSupported();

    /// Begins to listen. Asks the display server and waits for its answers, below a millisecond.
    EscapeWatch();
    ~EscapeWatch();
    EscapeWatch(const EscapeWatch &) = delete;
    EscapeWatch &operator=(const EscapeWatch &) = delete;

    /// Whether Escape has been pressed since the watch began. Takes some microseconds.
    bool wasPressed();

private:
    std::unique_ptr<EscapeListener> m_listener; ///< Null if Escape cannot be heard.
    bool m_wasPressed = false;
};

} // namespace lyrabox
