#pragma once

#include <QPushButton>

namespace lyrabox {

/// A push button with a text in the program's look. A checked one is filled with the accent colour.
/// Tab reaches it, a click does not give it the keyboard. Main thread.
class TextButton : public QPushButton {
    Q_OBJECT

public:
    explicit TextButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// Draws the box. Sets the colour of the text as the pen, and returns it.
    QColor drawBox(QPainter &painter) const;
    /// Draws the ring of a button that has the keyboard.
    void drawFocus(QPainter &painter) const;

    void paintEvent(QPaintEvent *event) override;
};

} // namespace lyrabox
