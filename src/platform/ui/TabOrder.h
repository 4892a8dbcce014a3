#pragma once

class QWidget;

namespace lyrabox {

/// Lets Tab go through a window in the order in which its widgets are nested: as the interface
/// definition lists them, however late a control was made. A divider stands between its panes.
void orderTabStops(QWidget *window);

} // namespace lyrabox
