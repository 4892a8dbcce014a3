#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Shared by the small programs in this folder. Each does one piece of work, the program's own or
/// its peer's, and writes its cost as one line of JSON. `scripts/bench` runs them.
namespace lyrabox::work {

struct Cost {
    double seconds = 0.0;   ///< Wall time.
    double megabytes = 0.0; ///< Peak of resident memory above the start, in 10^6 bytes.
};

/// Runs `work` once and measures it.
Cost measure(const std::function<void()> &work);

/// Alternates `prepare` and `work` until `work` has taken a second in total, at least once. Returns
/// the median time of `work`.
Cost measureRepeated(const std::function<void()> &prepare, const std::function<void()> &work);

/// Writes {"seconds": ..., "megabytes": ..., "amount": ...}. `amount` is a result of the work,
/// which lets the caller check that it was done.
void report(const Cost &cost, double amount);

/// The command line `PROGRAM ours|peer ARGUMENT`.
struct Arguments {
    bool ours = true;
    std::string argument;
};

/// Ends the process with a message if the command line is different.
Arguments arguments(int argc, char **argv);

/// Ends the process with a message.
[[noreturn]] void fail(std::string_view message);

/// Creates an application without a display and with a temporary settings folder. It lives until
/// the process ends.
void startApplication();

} // namespace lyrabox::work
