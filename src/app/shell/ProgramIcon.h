#pragma once

#include <QIcon>

namespace lyrabox {

/// The program's own icon in the sizes that window managers ask for, drawn from the compiled-in
/// drawings; nothing has to be installed. Needs the application object.
QIcon programIcon();

} // namespace lyrabox
