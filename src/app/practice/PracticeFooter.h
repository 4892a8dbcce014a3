#pragma once

#include "practice/PracticeStore.h"

#include <QLabel>
#include <QTimer>

namespace lyrabox {

class SongPractice;

/// What the user should know of the song's practice file, in one sentence. Empty if it is nothing.
/// Main thread.
QString practiceProblemText(PracticeStore::Problem problem);

/// The quiet line at the bottom of the pane. It says what is wrong with the song's practice file,
/// or that the song is being recognised, if that takes long. Hidden while there is nothing to say.
/// Main thread.
class PracticeFooter : public QLabel {
    Q_OBJECT

public:
    /// Recognising a song is mentioned after this time, in milliseconds: most songs take less.
    static constexpr int patience = 700;

    /// `practice` must outlive the footer.
    explicit PracticeFooter(SongPractice *practice, QWidget *parent = nullptr);

private:
    void showState();

    SongPractice *m_practice;
    QTimer m_patience;
    bool m_isSlow = false; ///< the song is still being recognised after that time
};

} // namespace lyrabox
