#pragma once

#include "sources/LB_BrowserController.h"

class LB_BrowserButton;
class QWidget;

namespace lyrabox {

/// The parts of a directory browser that was just built.
struct BrowserPopoverContent {
    QWidget *view; ///< The caller takes ownership. The view owns the other two.
    LB_BrowserController *controller;
    LB_BrowserButton *okButton; ///< Enabled while a row is selected.
};

/// Builds a directory browser. Main thread.
BrowserPopoverContent makeBrowserPopover();

} // namespace lyrabox
