#pragma once

#include "platform/foundation/Status.h"

#include <QString>

namespace lyrabox {

/// The text of a status in messages: its four bytes, most significant first, if all are printable
/// ASCII. Otherwise the first four characters of its decimal value.
QString statusText(Status status);

} // namespace lyrabox
