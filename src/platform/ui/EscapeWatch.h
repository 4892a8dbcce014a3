#pragma once

#include <memory>

namespace lyrabox {

/// Tells whether the user has pressed Escape while the main thread works and handles no events.
///
/// The key is heard over a second connection to the X server, for as long as the object lives and
/// as long as one of the program's windows has the keyboard. The toolkit still gets its own copy of
/// the key press, which it delivers when it handles events again. Without an X server nothing is
/// ever heard. Main thread.
class EscapeWatch {
public:
    /// Whether there is an X server to listen to.
    static bool isSupported();

    /// Begins to listen.
    EscapeWatch();
    ~EscapeWatch();
    EscapeWatch(const EscapeWatch &) = delete;
    EscapeWatch &operator=(const EscapeWatch &) = delete;

    /// Whether Escape has been pressed since the watch began. Takes some microseconds.
    bool wasPressed();

private:
    class Connection;
    std::unique_ptr<Connection> m_connection; ///< none where there is nothing to listen to
    bool m_wasPressed = false;
};

} // namespace lyrabox
