#pragma once

#include <memory>

namespace lyrabox {

class EscapeListener;

/// Detects Escape while the main thread works and handles no events.
///
/// The watch detects the key as long as the object exists and one of the program's windows has the
/// keyboard. On X it uses a second connection to the server, on Wayland a second keyboard object
/// with its own queue. The toolkit still receives its own copy of the key press and delivers it
/// when the event loop runs again. On other displays wasPressed() always returns false. Main
/// thread.
class EscapeWatch {
public:
    /// Whether Escape can be detected on this display. If not, do not tell the user about the key.
    static bool isSupported();

    /// Starts to watch. Waits for the display server's answers, which takes less than a
    /// millisecond.
    EscapeWatch();
    ~EscapeWatch();
    EscapeWatch(const EscapeWatch &) = delete;
    EscapeWatch &operator=(const EscapeWatch &) = delete;

    /// Whether Escape was pressed since the watch started. Takes some microseconds.
    bool wasPressed();

private:
    std::unique_ptr<EscapeListener> m_listener; ///< null if Escape cannot be detected
    bool m_wasPressed = false;
};

} // namespace lyrabox
