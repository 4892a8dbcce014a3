#pragma once

#include "app/practice/PracticeCommands.h"
#include "engine/LoopRange.h"

#include <QWidget>

#include <functional>

class LB_AudioController;
class QAbstractButton;
class QLabel;
class QLineEdit;

namespace lyrabox {

class SongPractice;

/// The row below the wave with the two ends of the loop that sounds: buttons that move them, and
/// fields in which their times can be typed. Main thread.
class LoopEnds : public QWidget {
    Q_OBJECT

public:
    /// Makes a button for a command with its argument.
    using MakeButton = std::function<QAbstractButton *(const QString &text, PracticeCommand command,
                                                       int argument)>;

    /// `audio` and `practice` must outlive the row.
    LoopEnds(LB_AudioController *audio, SongPractice *practice, const MakeButton &makeButton,
             QWidget *parent = nullptr);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit *addEnd(const QString &label, const QString &name, PracticeCommand command,
                      const MakeButton &makeButton);
    void showLoop();
    void showLength();
    QString lengthText(LoopRange loop) const;
    void enter(QLineEdit *field);

    LB_AudioController *m_audio;
    SongPractice *m_practice;
    QLineEdit *m_start;
    QLineEdit *m_end;
    QLabel *m_length;
};

} // namespace lyrabox
