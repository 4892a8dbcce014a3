#pragma once

#include <QWidget>

namespace lyrabox {

class SplitView;

/// Decides where the divider of a split view may be and how the panes share a new size. Positions
/// are in device-independent pixels from the outer edge of the first pane.
class SplitViewDelegate {
public:
    virtual ~SplitViewDelegate() = default;

    /// The smallest and the largest position of divider `index`. `proposed` is what the view would
    /// allow by itself; the delegate may ignore it.
    virtual double splitViewConstrainMinCoordinateOfSubviewAt(double proposed, int index) = 0;
    virtual double splitViewConstrainMaxCoordinateOfSubviewAt(double proposed, int index) = 0;

    /// Sets the geometry of both panes after the size of the view has changed.
    virtual void splitViewResizeSubviewsWithOldSize(SplitView *view, QSize oldSize) = 0;
};

/// Two panes side by side with a divider. The user drags the divider, or moves it with the arrow
/// keys while it has the keyboard. In right-to-left layouts the first pane, called "left", is on
/// the right; positions still count from its outer edge. Main thread.
class SplitView : public QWidget {
    Q_OBJECT

public:
    static constexpr int dividerThickness = 1;

    explicit SplitView(QWidget *parent = nullptr);

    /// Makes both panes children of the view, which then owns them.
    void setPanes(QWidget *left, QWidget *right);
    QWidget *leftPane() const { return m_left; }
    QWidget *rightPane() const { return m_right; }

    /// The widget that the user drags. Tab gives it the keyboard.
    QWidget *divider() const { return m_handle; }

    /// Sets the delegate. It is not owned and must outlive the view.
    void setDelegate(SplitViewDelegate *delegate);

    /// Moves the divider as a drag to `position` would, in device-independent pixels within the
    /// limits.
    void setDividerPosition(double position);
    /// The width of the first pane, in device-independent pixels.
    int dividerPosition() const;
    /// The limits that the delegate sets; without one, the whole view.
    double minimumDividerPosition() const;
    double maximumDividerPosition() const;

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// setDividerPosition(), a drag or a key has placed the divider.
    void dividerMoved(int position);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Mirrors the panes in a right-to-left layout, and places the handle over the divider.
    void arrange();
    /// The left edge of an item at `x` that is `extent` wide, mirrored in a right-to-left layout.
    int mirrored(int x, int extent) const;

    QWidget *m_left = nullptr;
    QWidget *m_right = nullptr;
    QWidget *m_handle;
    SplitViewDelegate *m_delegate = nullptr;
    int m_grabOffset = 0;
};

} // namespace lyrabox
