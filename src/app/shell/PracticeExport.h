#pragma once

namespace lyrabox {

struct ProgramParts;
class PracticePane;

/// Gives the pane the command that exports songs and loops. Main thread.
void addPracticeExport(ProgramParts &parts, PracticePane *pane);

} // namespace lyrabox
