#pragma once

#include "practice/LoopRotation.h"
#include "practice/TrainerSettings.h"

#include <QWidget>

#include <optional>
#include <vector>

class QGridLayout;
class QHBoxLayout;
class QLabel;

namespace lyrabox {

class ChoiceButton;
class ElidedLabel;
class NumberField;
class RotationBox;
class SongPractice;
class TrainerRun;

/// The page of the trainer: how the loop is trained, which loops take turns, and a row of buttons.
/// Every change is kept with the loop at once. Main thread.
class TrainerPage : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the page.
    TrainerPage(TrainerRun *run, SongPractice *practice, QWidget *parent = nullptr);

    /// Adds a button below the page, from left to right.
    void addButton(QWidget *button);
    /// Adds the button that starts the rotation, at the right end.
    void addRotationButton(QWidget *button);

    RotationBox *rotation() const { return m_rotation; }

private:
    QWidget *makeForm();
    QWidget *cell() const;
    NumberField *addNumber(QWidget *row, const QString &name, int least, int most);
    ChoiceButton *addChoice(QWidget *row, const QString &name, const QStringList &choices);
    void addRow(const QString &label, QWidget *row);
    void addLadderRows();
    void addRuleRows();
    void addBetweenRows();
    void connectControls();
    void show(const TrainerSettings &settings);
    void showTarget();
    void enableControls();
    TrainerSettings entered() const;
    void keep();
    void changeUnit();

    TrainerRun *m_run;
    SongPractice *m_practice;
    ElidedLabel *m_target;
    QWidget *m_form = nullptr;
    QGridLayout *m_rows = nullptr;
    QHBoxLayout *m_buttons;
    NumberField *m_from = nullptr;
    NumberField *m_to = nullptr;
    ChoiceButton *m_unit = nullptr;
    NumberField *m_step = nullptr;
    ChoiceButton *m_kind = nullptr;
    NumberField *m_passes = nullptr;
    ChoiceButton *m_counting = nullptr;
    ChoiceButton *m_afterMiss = nullptr;
    ChoiceButton *m_atTop = nullptr;
    ChoiceButton *m_judging = nullptr;
    ChoiceButton *m_between = nullptr;
    NumberField *m_beats = nullptr;
    ChoiceButton *m_countInWhen = nullptr;
    RotationBox *m_rotation = nullptr;
    std::optional<TrainerSettings> m_shown;
};

/// The settings with their speeds in another unit. `songTempo` is above 0.
TrainerSettings inUnit(TrainerSettings settings, TempoUnit unit, double songTempo);

} // namespace lyrabox
