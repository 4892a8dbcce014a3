#pragma once

namespace lyrabox {

struct ProgramParts;
class PracticePane;

/// Makes the diary that writes the history of practising, and gives the pane the command that shows
/// it. Main thread.
void addPracticeHistory(ProgramParts &parts, PracticePane *pane);

} // namespace lyrabox
