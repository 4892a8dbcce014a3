#pragma once

#include <QPointer>
#include <QWidget>

namespace lyrabox {

/// A panel with an arrow that shows one content view beside an anchor, and closes on Escape or a
/// click outside (a click on the anchor is left to the anchor, which may close the popover or not).
/// While it is shown it is a child of the anchor's window, drawn above everything in it.
class Popover : public QWidget {
    Q_OBJECT

public:
    enum class Edge { MinX, MaxX, MinY, MaxY };

    explicit Popover(QWidget *parent = nullptr);
    ~Popover() override;

    /// Takes ownership of `view`; the previous content view is deleted later.
    void setContentView(QWidget *view);
    QWidget *contentView() const { return m_contentView; }

    /// The size of the content, at first the view's own; the panel is larger by its border and
    /// arrow.
    void setContentSize(const QSize &size);

    /// Shows the popover beside `anchor`, on `preferredEdge` where the window has room, else on the
    /// opposite side. The first focusable control of the content takes the keyboard. Tab stays
    /// inside then, Return presses the content's default button and Escape closes. For assistive
    /// programs the panel is called what its first label says, or what that label is called.
    void showRelativeTo(QWidget *anchor, Edge preferredEdge);

    /// Hides it and gives the keyboard back to where it was.
    void closePopover();

    bool isShown() const { return m_shown; }

Q_SIGNALS:
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
    QPointer<QWidget> m_focusBefore;
    QSize m_contentSize;
    Edge m_preferredEdge = Edge::MaxX;
    Edge m_edge = Edge::MaxX;
    int m_arrowOffset = 0;
    bool m_shown = false;
};

/// Where a popover of `size` (arrow included) lies in `window`, beside `anchor`: on `preferred`
/// where it fits, else on the opposite side where that fits, moved along the anchor's edge to stay
/// inside the window.
struct PopoverPlacement {
    QRect frame;
    Popover::Edge edge;
    /// The arrow's middle, counted along the side that touches the anchor.
    int arrowOffset;
};
PopoverPlacement placePopover(const QSize &size, const QRect &anchor, const QRect &window,
                              Popover::Edge preferred);

} // namespace lyrabox
