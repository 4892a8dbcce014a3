#pragma once

#include "app/practice/CommandSet.h"

namespace lyrabox {

class SongPractice;

/// Carries out the command that shows the export window. It needs a song. Main thread.
class ExportCommands : public CommandSet {
    Q_OBJECT

public:
    /// `practice` must outlive the object.
    explicit ExportCommands(const SongPractice *practice, QObject *parent = nullptr);

    bool canPerform(PracticeCommand command, int argument = 0) const override;
    void perform(PracticeCommand command, int argument = 0) override;

Q_SIGNALS:
    /// The user wants to export something.
    void exportWanted();

private:
    const SongPractice *m_practice;
};

} // namespace lyrabox
