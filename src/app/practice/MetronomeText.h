#pragma once

#include <QString>

/// What the pane says of the metronome. Main thread.
namespace lyrabox::metronomeText {

/// Why the click is silent if there are no beats.
QString beatsMissing();
/// The same for the count-in, which can do without the song's beats.
QString beatsOrBarsMissing();

} // namespace lyrabox::metronomeText
