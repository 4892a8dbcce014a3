#pragma once

#include <QProcess>

#include <functional>

/// Helpers for tests that start other programs.
namespace lyrabox::test {

/// Calls the condition until it is true. False if it stays false for `seconds`, which is much
/// longer than any successful test takes.
bool waitUntil(const std::function<bool()> &condition, double seconds = 20.0);

/// Makes the process die with the test that starts it, even if the test crashes.
void dieWithTheTest(QProcess &process);

} // namespace lyrabox::test
