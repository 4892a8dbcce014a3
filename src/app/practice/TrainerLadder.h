#pragma once

#include <QAbstractButton>
#include <QList>
#include <QWidget>

class QLabel;

namespace lyrabox {

class TrainerRun;

/// One speed of the ladder. Tab reaches it, a click does not give it the keyboard.
class LadderStep : public QAbstractButton {
    Q_OBJECT

public:
    enum class State { Coming, Present, Done };

    explicit LadderStep(QWidget *parent = nullptr);

    /// `part` of the step was done, 0.0 to 1.0; it counts for the present one.
    void setStep(const QString &speed, State state, double part);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    State m_state = State::Coming;
    double m_part = 0.0;
};

/// The row below the wave that shows a run of the trainer: the speeds of its ladder, and which pass
/// plays. A click on a speed goes there. If not all of them fit, it shows those around the present
/// one. Hidden while there is no run. Main thread.
class TrainerLadder : public QWidget {
    Q_OBJECT

public:
    /// `run` must outlive the row.
    explicit TrainerLadder(TrainerRun *run, QWidget *parent = nullptr);

    /// The steps that are shown, from the lowest on.
    QList<LadderStep *> steps() const;
    /// What it says of the passes.
    QString words() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void showRun();
    void showSteps(int first, int count, int stepWidth);
    LadderStep *step(int index);

    TrainerRun *m_run;
    QList<LadderStep *> m_steps;
    int m_shown = 0;
    int m_first = 0; ///< the rung of the first step
    QLabel *m_words;
};

/// Which rungs of a ladder are shown.
struct ShownRungs {
    int first = 0;
    int count = 0;

    bool operator==(const ShownRungs &) const = default;
};

/// The rungs around `present` if `room` of `rungs` rungs fit. All of these are indexes from 0.
ShownRungs shownRungs(int rungs, int present, int room);

} // namespace lyrabox
