#pragma once

#include "practice/LoopRotation.h"
#include "practice/PracticeRecord.h"

#include <QList>
#include <QWidget>

#include <vector>

class QCheckBox;
class QVBoxLayout;

namespace lyrabox {

class ChoiceButton;
class NumberField;
class SongPractice;
class TrainerRun;

/// The part of the trainer's page where the loops are ticked that take turns. Ticks are forgotten
/// with the song. Main thread.
class RotationBox : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the box.
    RotationBox(TrainerRun *run, SongPractice *practice, QWidget *parent = nullptr);

    /// The ticked loops; without a tick, all that can be played. In the order of the list.
    std::vector<PracticeId> loops() const;
    LoopRotation::Turn turn() const;

    /// The box of a loop; null if there is none.
    QCheckBox *tick(PracticeId loop) const;

Q_SIGNALS:
    /// loops() may be others.
    void loopsChanged();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void showLoops();
    void showTicks(const std::vector<PracticeLoop> &loops);

    /// What a box shows.
    struct Shown {
        PracticeId loop = 0;
        QString name;
        bool isPlayable = true;
        bool operator==(const Shown &) const = default;
    };
    struct Tick {
        PracticeId loop;
        QCheckBox *box;
    };

    TrainerRun *m_run;
    SongPractice *m_practice;
    QVBoxLayout *m_boxes;
    NumberField *m_amount;
    ChoiceButton *m_unit;
    QList<Tick> m_ticks;
    QList<Shown> m_shown;
};

} // namespace lyrabox
