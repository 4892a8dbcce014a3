#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class PracticeSharing;
class SongPractice;

/// Carries out the commands that share and open practice files. Main thread.
class SharingCommands : public CommandSet {
    Q_OBJECT

public:
    /// Both must outlive this object.
    SharingCommands(PracticeSharing *sharing, SongPractice *practice, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;

Q_SIGNALS:
    /// The user wants to choose where the song's loops are written.
    void shareWanted(bool isLabelTrack);
    /// The user wants to choose a file to open.
    void openWanted();

private:
    PracticeSharing *m_sharing;
};

} // namespace lyrabox
