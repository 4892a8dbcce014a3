#pragma once

#include <QStringList>
#include <QWidget>

class QGridLayout;
class QLabel;

namespace lyrabox {

class NumberField;
class SegmentedControl;

/// The content of a popover with settings: a title, a line that says what is missing, and a row for
/// each setting. Main thread.
class SettingsPanel : public QWidget {
    Q_OBJECT

public:
    explicit SettingsPanel(const QString &title, QWidget *parent = nullptr);

    /// Shows a line below the title. An empty text hides it.
    void setHint(const QString &text);

protected:
    /// Adds a row. The label also names the control for assistive technologies, unless it has a
    /// name.
    void addRow(const QString &label, QWidget *control);
    /// Adds a row in which one of several values is chosen.
    SegmentedControl *addChoice(const QString &label, const QStringList &values);
    /// A field for a whole number from `minimum` to `maximum`. Not in a row yet.
    NumberField *makeNumber(const QString &name, int minimum, int maximum);
    /// Several controls side by side, as one. Plain texts are possible as well.
    QWidget *joined(const QList<QWidget *> &controls);
    QLabel *makeLabel(const QString &text);

private:
    QGridLayout *m_rows;
    QLabel *m_hint;
};

} // namespace lyrabox
