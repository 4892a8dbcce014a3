#pragma once

#include <functional>
#include <string>
#include <string_view>

/// What the small programs in this folder have in common: each does one piece of work, its own or
/// its peer's, and writes one line of JSON with what the work took. `scripts/bench` runs them.
namespace lyrabox::work {

struct Cost {
    double seconds = 0.0;   ///< wall time
    double megabytes = 0.0; ///< peak of resident memory above what was resident before (10^6 bytes)
};

/// Runs `work` once.
Cost measure(const std::function<void()> &work);

/// Runs `prepare` and `work` by turns until a second has gone into the work, at least once. The
/// median time of `work`.
Cost measureRepeated(const std::function<void()> &prepare, const std::function<void()> &work);

/// Writes the line: {"seconds": ..., "megabytes": ..., "amount": ...}. `amount` is what was worked
/// on, so that the caller can tell that it was done.
void report(const Cost &cost, double amount);

/// The chosen side, from the command line `PROGRAM ours|peer ARGUMENT`.
struct Arguments {
    bool ours = true;
    std::string argument;
};

/// Ends the process with a message when the command line is another.
Arguments arguments(int argc, char **argv);

/// Ends the process with a message.
[[noreturn]] void fail(std::string_view message);

/// An application without a display, in a settings folder of its own, until the process ends.
void startApplication();

} // namespace lyrabox::work
