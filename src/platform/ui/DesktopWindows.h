#pragma once

#include <QString>

class QWidget;

namespace lyrabox {

/// Window operations that differ between X and Wayland. Main thread only.

/// Whether the program can place its windows. On Wayland only the desktop can, and does not report
/// where they are.
bool programPlacesWindows();

/// The activation token that the desktop gave this process at its start, or an empty string.
/// Removes it from the environment, so that child processes do not inherit it; only the first call
/// returns it. Call it before the application object is made.
QString takeActivationToken();

/// Shows the window in front of the others and gives it the keyboard. A Wayland desktop does so
/// only if the user asked for it. `token` proves that: it is the result of takeActivationToken() in
/// the process that the user has just started. Without a token the desktop may only mark the
/// window.
void bringToFront(QWidget *window, const QString &token = {});

/// Ends this process with std::exit() when the display server is lost. The toolkit does so on X. On
/// Wayland it would end the process at once, without the functions registered with std::atexit().
void exitWhenDisplayIsLost();

} // namespace lyrabox
