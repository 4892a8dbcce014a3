#pragma once

#include <QCollator>

namespace lyrabox {

/// Compares texts as people expect: by the alphabet of the user's language, ignoring case, numbers
/// within the text by value. A collator serves one thread; make one for each.
QCollator textCollator();

} // namespace lyrabox
