#pragma once

#include "platform/foundation/Status.h"

#include <QString>

namespace lyrabox {

/// A status as a message shows it: its four bytes, most significant first, when all are printable
/// ASCII; otherwise the first four characters of its decimal value.
QString statusText(Status status);

} // namespace lyrabox
