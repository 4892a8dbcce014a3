#pragma once

#include <QString>

#include <memory>

namespace lyrabox::test {

/// The desktop's session manager (XSMP): programs that are started while SESSION_MANAGER is its
/// address register with it and are told when the session ends. What fails adds a test failure.
/// Main thread only, one at a time.
class SessionManager {
public:
    SessionManager();
    ~SessionManager();
    SessionManager(const SessionManager &) = delete;
    SessionManager &operator=(const SessionManager &) = delete;

    /// Returns when a program has registered and has saved its state for the first time.
    bool waitForProgram();

    /// Ends the session as a log-out does: asks the program to save its state, gives it the word
    /// when it wants to ask something, and tells it to end. Returns when it has been told.
    bool endSession();

    struct Private; // for the library's callbacks

private:
    std::unique_ptr<Private> d;
};

} // namespace lyrabox::test
