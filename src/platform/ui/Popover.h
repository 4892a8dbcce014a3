#pragma once

#include <QPointer>
#include <QWidget>

namespace lyrabox {

/// A panel with an arrow that shows one content view next to an anchor widget. It closes on Escape
/// or on a click outside. A click on the anchor does not close it; the anchor decides what to do.
/// While it is shown it is a child of the anchor's window and is drawn above everything in it. Main
/// thread.
class Popover : public QWidget {
    Q_OBJECT

public:
    /// A side of the anchor: left, right, top, bottom.
    enum class Edge { MinX, MaxX, MinY, MaxY };

    explicit Popover(QWidget *parent = nullptr);
    ~Popover() override;

    /// Takes ownership of `view`, which may be null. The previous content view is deleted later.
    void setContentView(QWidget *view);
    QWidget *contentView() const { return m_contentView; }

    /// The size of the content in device-independent pixels; by default the view's own size. The
    /// panel is larger by its border and arrow.
    void setContentSize(const QSize &size);

    /// Shows the popover next to `anchor`, on `preferredEdge` if the window has room there,
    /// otherwise on the opposite side. The first focusable control of the content takes the
    /// keyboard. While the popover is shown, Tab stays inside it, Return presses the content's
    /// default button and Escape closes it. Assistive technologies name the panel by its first
    /// label: the label's accessible name, or its text.
    void showRelativeTo(QWidget *anchor, Edge preferredEdge);

    /// Sets the content view, takes its present size and shows the popover. Ownership as in
    /// setContentView().
    void showContent(QWidget *content, QWidget *anchor, Edge preferredEdge);

    /// Hides the popover. If it had the keyboard, the focus returns to the widget that had it
    /// before.
    void closePopover();

    bool isShown() const { return m_shown; }

Q_SIGNALS:
    /// The popover was shown and is now hidden.
    void closed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void layoutContent();
    void place();
    void pressDefaultButton();

    QPointer<QWidget> m_contentView;
    QPointer<QWidget> m_anchor;
    QPointer<QWidget> m_previousFocus;
    QSize m_contentSize;
    Edge m_preferredEdge = Edge::MaxX;
    Edge m_edge = Edge::MaxX;
    int m_arrowOffset = 0;
    bool m_shown = false;
};

/// Where a popover is placed, in coordinates of its window.
struct PopoverPlacement {
    QRect frame;
    Popover::Edge edge;
    /// The middle of the arrow in pixels, measured along the side that faces the anchor.
    int arrowOffset;
};

/// Places a popover of `size`, arrow included, next to `anchor` inside `window`: on `preferred` if
/// it fits there, otherwise on the opposite side if it fits there. The popover is moved along the
/// anchor's edge, and cut if need be, to stay inside the window.
PopoverPlacement placePopover(const QSize &size, const QRect &anchor, const QRect &window,
                              Popover::Edge preferred);

} // namespace lyrabox
