#pragma once

#include <QWidget>

namespace lyrabox {

class SeekButton;

/// The kind of widget that has the keyboard focus, as far as the transport's keys are concerned.
enum class FocusKind {
    Other,  ///< The transport area, a table, or nothing.
    Text,   ///< An active text field. It needs every key.
    Button, ///< A button reached with Tab. Space presses it.
    Arrows, ///< A widget with arrow keys of its own: a slider, a tree, a tab switch, a divider.
};

/// Classifies the widget that has the focus; null counts as Other.
FocusKind focusKind(const QWidget *focus);

/// Whether a key (an arrow or Space) goes to the transport and not to the focused widget.
bool transportTakesKey(int key, FocusKind focus);

/// The transport area of the main window. It takes the focus if no other widget wants it. Unless
/// the focused widget needs a key, it passes keys of its own window and of the added ones to the
/// seek buttons. Main thread.
class TransportView : public QWidget {
    Q_OBJECT

public:
    explicit TransportView(QWidget *parent = nullptr);

    /// Sets the buttons that get the keys. They are not owned.
    void setButtons(SeekButton *backward, SeekButton *forward);

    /// Makes the transport's keys work in `window`, too. It is not owned and must outlive the view.
    void addWindow(const QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool servesWindow(const QWidget *window) const;

    SeekButton *m_backward = nullptr;
    SeekButton *m_forward = nullptr;
    QList<const QWidget *> m_otherWindows;
};

} // namespace lyrabox
