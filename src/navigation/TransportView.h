#pragma once

#include <QWidget>

namespace lyrabox {

class SeekButton;

/// Who has the keyboard, as far as the transport's keys are concerned.
enum class FocusKind {
    Other,  ///< the transport area, a table, nothing
    Text,   ///< a text field in use: every key is its own
    Button, ///< a button reached with Tab: Space presses it
    Arrows, ///< something that moves by arrow keys: a slider, a tree, a tab switch, a divider
};

FocusKind focusKind(const QWidget *focus);

/// Whether a key (an arrow or Space) goes to the transport rather than to what has the keyboard.
bool transportTakesKey(int key, FocusKind focus);

/// The transport area of the main window. It takes the keyboard when nothing else wants it. It
/// hands the seek buttons their keys from its own window and from those added, unless the widget
/// that has the keyboard needs them.
class TransportView : public QWidget {
    Q_OBJECT

public:
    explicit TransportView(QWidget *parent = nullptr);

    /// Not owned.
    void setButtons(SeekButton *backward, SeekButton *forward);

    /// Lets the transport's keys work in this window too. Not owned.
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
