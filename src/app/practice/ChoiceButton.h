#pragma once

#include <QPushButton>
#include <QStringList>

class QActionGroup;
class QMenu;

namespace lyrabox {

/// A button that shows one of several texts, and opens a menu of them. Tab reaches it, a click does
/// not give it the keyboard. Assistive technologies get its label and the chosen text. Main thread.
class ChoiceButton : public QPushButton {
    Q_OBJECT

public:
    /// `label` says what is chosen.
    explicit ChoiceButton(const QString &label, const QStringList &choices,
                          QWidget *parent = nullptr);

    int current() const { return m_current; }
    /// Shows a choice without sending chosen(). Does nothing if there is no such choice.
    void setCurrent(int index);
    /// Replaces the choices; there is at least one. The first one is shown.
    void setChoices(const QStringList &choices);
    /// Whether the user can choose it. All can be chosen at first.
    void setChoiceEnabled(int index, bool enabled);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user has chosen; current() is the choice.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_label;
    QStringList m_choices;
    int m_current = 0;
    QMenu *m_menu;
    QActionGroup *m_group = nullptr; ///< of the choices
};

} // namespace lyrabox
