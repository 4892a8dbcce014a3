#pragma once

#include <QString>

class QWidget;

namespace lyrabox {

/// What a program may do with its windows differs from display system to display system. All of
/// these are for the main thread.

/// Whether the program decides where its windows are. On Wayland only the desktop does, and tells
/// nobody.
bool programPlacesWindows();

/// What the desktop gave this process at its start so that it may come to the front, taken out of
/// the environment; empty where it gave nothing. Only the first call has it. To be asked before
/// there is an application object, so that children do not inherit it.
QString takeActivationToken();

/// Shows the window in front of the others, with the keyboard. A desktop with Wayland does so at
/// the user's wish only. `token` proves that wish: what takeActivationToken() returned in the
/// process that the user has just started. Without one it may do no more than mark the window.
void bringToFront(QWidget *window, const QString &token = {});

/// Makes the loss of the display server end this process by std::exit(). The toolkit does so on X;
/// on Wayland it would leave at once, and what is registered with std::atexit() would not be done.
void exitWhenDisplayIsLost();

} // namespace lyrabox
