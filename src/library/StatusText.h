#pragma once

#include "platform/foundation/Status.h"

#include <QString>

namespace lyrabox {

/// The text that messages show for a status: its four bytes, most significant first, if all are
/// printable ASCII. Otherwise the first four characters of its decimal value. Any thread.
QString statusText(Status status);

} // namespace lyrabox
