#pragma once

class QWidget;

namespace lyrabox {

/// Makes Tab visit the widgets of `window` in the order in which they are nested, as the interface
/// definition lists them, no matter when they were created. A divider comes between its panes. Main
/// thread.
void orderTabStops(QWidget *window);

} // namespace lyrabox
