#pragma once

#include <QWidget>

class QHBoxLayout;

namespace lyrabox {

class ElidedLabel;
class SegmentedControl;

/// The row at the top of the practice pane: the switch to the songs, a group of controls on the
/// left, a text that takes the room between, and a group on the right. Main thread.
class PracticeHeader : public QWidget {
    Q_OBJECT

public:
    explicit PracticeHeader(QWidget *parent = nullptr);

    /// Add a control to a group, behind those that it has.
    void addLeft(QWidget *control);
    void addRight(QWidget *control);

    void setText(const QString &text);
    /// Whether the switch between the songs and the pane is shown. It is hidden at first.
    void setSwitchShown(bool shown);

Q_SIGNALS:
    /// The user chose the songs with the switch.
    void songsWanted();

private:
    QHBoxLayout *m_left;
    QHBoxLayout *m_right;
    SegmentedControl *m_switch;
    ElidedLabel *m_text;
};

/// The switch between the songs and the pane, for windows that have room for only one of them.
/// `selected` is the index of the selected segment: 0 songs, 1 the pane.
SegmentedControl *makePaneSwitch(int selected, QWidget *parent);

} // namespace lyrabox
