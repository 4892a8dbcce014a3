#pragma once

namespace lyrabox {

struct ProgramParts;
class PracticePane;

/// Gives the pane the command that shows the stand view. Main thread.
void addPracticeStand(ProgramParts &parts, PracticePane *pane);

} // namespace lyrabox
