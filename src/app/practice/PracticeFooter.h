#pragma once

#include "app/practice/PracticeDiary.h"
#include "practice/PracticeStore.h"

#include <QLabel>
#include <QTimer>

namespace lyrabox {

class SongPractice;

/// What the user should know of the song's practice file, in one sentence. Empty if it is nothing.
/// Main thread.
QString practiceProblemText(PracticeStore::Problem problem);
/// The same of the history.
QString historyProblemText(PracticeDiary::Problem problem);

/// The quiet line at the bottom of the pane. It says what is wrong with the song's practice file or
/// with the history, or that the song is being recognised, if that takes long. Hidden while there
/// is nothing to say. Main thread.
class PracticeFooter : public QLabel {
    Q_OBJECT

public:
    /// Recognising a song is mentioned after this time, in milliseconds: most songs take less.
    static constexpr int patience = 700;

    /// `practice` must outlive the footer.
    explicit PracticeFooter(SongPractice *practice, QWidget *parent = nullptr);

    /// Tells of the problems of the history, too. `diary` must outlive the use of the footer.
    void setDiary(const PracticeDiary *diary);

private:
    void showState();

    SongPractice *m_practice;
    const PracticeDiary *m_diary = nullptr;
    QTimer m_patience;
    bool m_isSlow = false; ///< the song is still being recognised after that time
};

} // namespace lyrabox
