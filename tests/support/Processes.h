#pragma once

#include <QProcess>

#include <functional>

/// What every test needs that starts other programs.
namespace lyrabox::test {

/// Asks until the answer is yes; false when it stays no for `seconds`, which a test never reaches
/// when all is well.
bool waitUntil(const std::function<bool()> &condition, double seconds = 20.0);

/// Lets the process die with the test that starts it, even when the test crashes.
void dieWithTheTest(QProcess &process);

} // namespace lyrabox::test
