#pragma once

namespace lyrabox {

/// Reads the system's rules and lists of fonts, which the toolkit would do when it first needs a
/// font: a fifth of the time until there is a window. Any thread, also before there is an
/// application; the toolkit waits for one that has begun.
void readFontConfiguration();

} // namespace lyrabox
