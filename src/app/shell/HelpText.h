#pragma once

#include <QString>

namespace lyrabox {

/// The list of keys, as plain text in the user's language.
QString keysHelpText();

/// Version and licence, as plain text in the user's language.
QString aboutText();

} // namespace lyrabox
