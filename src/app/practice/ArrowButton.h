#pragma once

#include "app/practice/TextButton.h"

namespace lyrabox {

/// A text button with an arrow at its end, which opens the settings of what the button switches. A
/// click on the arrow, a click with the right button and the menu key open them. Main thread.
class ArrowButton : public TextButton {
    Q_OBJECT

public:
    explicit ArrowButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;

    /// Whether what is switched on does nothing yet. The button then has only the border of a
    /// checked one.
    void setWaiting(bool waiting);
    bool isWaiting() const { return m_isWaiting; }

    /// The part that opens the settings, in widget coordinates.
    QRect arrowRect() const;

Q_SIGNALS:
    void settingsWanted();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QColor drawWaitingBox(QPainter &painter) const;

    bool m_isWaiting = false;
};

} // namespace lyrabox
