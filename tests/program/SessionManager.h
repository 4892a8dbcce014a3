#pragma once

#include <QString>

#include <memory>

namespace lyrabox::test {

/// A session manager of the desktop (XSMP). Programs that start while SESSION_MANAGER holds its
/// address register with it and are told when the session ends. Failures are added to the test.
/// Main thread only; one object at a time.
class SessionManager {
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    /// Waits until a program has registered and has saved its state for the first time.
    bool waitForProgram();

    /// Ends the session like a log-out: asks the program to save its state, lets it interact with
    /// the user if it asks for that, and tells it to quit. Returns once it has been told.
    bool endSession();

    struct Private; // accessible to the library's callbacks

private:
    std::unique_ptr<Private> d;
};

} // namespace lyrabox::test
