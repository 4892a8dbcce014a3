#pragma once

#include <QIcon>

namespace lyrabox {

/// The program's icon in the sizes that window managers use, rendered from compiled-in drawings. No
/// installed file is needed. Requires the application object. Main thread.
QIcon programIcon();

} // namespace lyrabox
