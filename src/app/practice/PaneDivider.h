#pragma once

#include <QAccessibleWidget>
#include <QWidget>

namespace lyrabox {

/// The line above the pane. Dragging it, or the arrow keys while it has the keyboard, change the
/// height of the pane. Main thread.
class PaneDivider : public QWidget {
    Q_OBJECT

public:
    /// Takes the mouse; the line itself is one point high.
    static constexpr int thickness = 5;

    explicit PaneDivider(QWidget *parent = nullptr);

    /// The height of the pane, for assistive technologies and for keys.
    int paneHeight() const { return m_paneHeight; }
    void setPaneHeight(int paneHeight) { m_paneHeight = paneHeight; }

Q_SIGNALS:
    /// The user wants a pane of this height, in points. It may be more or less than is possible.
    void heightWanted(int paneHeight);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    int m_paneHeight = 0;
    double m_pressedY = 0.0; ///< on the screen
    int m_pressedHeight = 0;
};

/// The accessible interface of the divider. Its value is the height of the pane in points.
class PaneDividerAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit PaneDividerAccessible(PaneDivider *divider);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }

private:
    PaneDivider *divider() const;
};

} // namespace lyrabox
