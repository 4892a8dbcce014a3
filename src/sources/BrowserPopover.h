#pragma once

#include "sources/LB_BrowserController.h"

class LB_BrowserButton;
class QWidget;

namespace lyrabox {

/// One fresh copy of the directory browser's interface.
struct BrowserPopoverContent {
    QWidget *view; ///< owned by whoever shows it; owns the rest
    LB_BrowserController *controller;
    LB_BrowserButton *okButton; ///< enabled while a row is selected
};

BrowserPopoverContent makeBrowserPopover();

} // namespace lyrabox
