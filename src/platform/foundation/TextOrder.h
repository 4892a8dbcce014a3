#pragma once

#include <QCollator>

namespace lyrabox {

/// A collator that compares texts as people expect: by the alphabet of the user's language, without
/// regard to case, and numbers within a text by value. Any thread may make one, but only one thread
/// may use each.
QCollator textCollator();

} // namespace lyrabox
