#pragma once

namespace lyrabox {

/// Reads the system's font rules and font list. Otherwise the toolkit reads them when it first
/// needs a font, which takes a fifth of the time until the first window. Any thread, even before
/// the application object exists. If the toolkit needs the fonts during this call, it waits for its
/// end.
void readFontConfiguration();

} // namespace lyrabox
