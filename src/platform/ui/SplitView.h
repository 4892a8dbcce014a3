#pragma once

#include <QWidget>

namespace lyrabox {

class SplitView;

/// Decides where the divider of a split view may stand and how the panes share a new size.
class SplitViewDelegate {
public:
    virtual ~SplitViewDelegate() = default;

    /// The least and the greatest coordinate of divider `index`, whatever the view proposes.
    virtual double splitViewConstrainMinCoordinateOfSubviewAt(double proposed, int index) = 0;
    virtual double splitViewConstrainMaxCoordinateOfSubviewAt(double proposed, int index) = 0;

    /// Sets the geometry of both panes after the view's size has changed.
    virtual void splitViewResizeSubviewsWithOldSize(SplitView *view, QSize oldSize) = 0;
};

/// Two panes side by side with a divider that the user drags, or moves with the arrow keys while it
/// has the keyboard. The panes are children of the view. From right to left the first pane, "left"
/// by name, stands on the right; positions and the delegate count from its outer edge all the same.
class SplitView : public QWidget {
    Q_OBJECT

public:
    static constexpr int dividerThickness = 1;

    explicit SplitView(QWidget *parent = nullptr);

    /// The panes become children of the view.
    void setPanes(QWidget *left, QWidget *right);
    QWidget *leftPane() const { return m_left; }
    QWidget *rightPane() const { return m_right; }

    /// What is dragged, and takes the keyboard by Tab.
    QWidget *divider() const { return m_handle; }

    /// Not owned; lives as long as the view.
    void setDelegate(SplitViewDelegate *delegate);

    /// Moves the divider as a drag to that coordinate would.
    void setDividerPosition(double position);
    /// The width of the first pane, in points.
    int dividerPosition() const;
    double leastDividerPosition() const;
    double greatestDividerPosition() const;

    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void dividerMoved(int position);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Mirrors the panes where the layout is, and puts the handle over the divider.
    void arrange();
    int mirrored(int x, int extent) const;

    QWidget *m_left = nullptr;
    QWidget *m_right = nullptr;
    QWidget *m_handle;
    SplitViewDelegate *m_delegate = nullptr;
    int m_grabOffset = 0;
};

} // namespace lyrabox
