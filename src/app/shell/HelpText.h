#pragma once

#include <QString>

namespace lyrabox {

/// The list of keys, plain text.
QString keysHelpText();

/// Name, version and licence, plain text.
QString aboutText();

} // namespace lyrabox
