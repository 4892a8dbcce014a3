#pragma once

#include <QUrl>

namespace lyrabox {

struct ProgramParts;
class PracticePane;

/// Gives the pane the commands that share and open practice files, with their dialogs, and lets it
/// accept dropped files. Main thread.
void addPracticeSharing(ProgramParts &parts, PracticePane *pane);

/// Takes over files that exist if all of them have the names of practice files and label tracks,
/// and opens the pane for that. Returns the rest. While the pane is closed, texts of other kinds
/// are left alone.
QList<QUrl> openPracticeFiles(ProgramParts &parts, const QList<QUrl> &urls);

} // namespace lyrabox
