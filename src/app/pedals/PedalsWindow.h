#pragma once

#include "app/pedals/Learner.h"
#include "pedals/PedalSets.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QMenu;
class QPushButton;
class QSortFilterProxyModel;
class QTableView;

namespace lyrabox {

class AssignmentRows;
class ElidedLabel;
class SearchField;
class SegmentedControl;

/// The window "Pedals and Keys": all commands with their keys and pedals, and how they are learnt,
/// taken away, and set as ready-made sets. It is not modal. Main thread.
class PedalsWindow : public QDialog {
    Q_OBJECT

public:
    /// `pedals` must outlive the window.
    explicit PedalsWindow(PedalAssignments *pedals, QWidget *parent = nullptr);
    ~PedalsWindow() override;

    QTableView *table() const { return m_table; }
    Learner *learner() { return &m_learner; }

protected:
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeTop();
    QWidget *makeControls();
    QWidget *makeButtons();
    void setUpTable();
    void fillSets();
    void useSet(PedalSet set, const QString &name);
    void filter();
    QString selectedId() const;
    bool selectedIsValue() const;
    void learn();
    void fillRemove();
    void remove(const Assignment &assignment);
    void showState();
    QString stateText() const;
    void say(const QString &text);

    PedalAssignments *m_pedals;
    AssignmentRows *m_rows;
    QSortFilterProxyModel *m_shown;
    SearchField *m_search;
    QPushButton *m_sets;
    QTableView *m_table;
    ElidedLabel *m_name;
    QLabel *m_message;
    SegmentedControl *m_gesture;
    QComboBox *m_form;
    QPushButton *m_learn;
    QPushButton *m_take;
    QPushButton *m_remove;
    QMenu *m_removeMenu;
    ElidedLabel *m_devices;
    QString m_said; ///< instead of what the learner says
    Learner m_learner;
};

} // namespace lyrabox
