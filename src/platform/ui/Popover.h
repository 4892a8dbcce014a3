#pragma once

#include <QPointer>
#include <QWidget>

namespace lyrabox {

/// A panel with an arrow that shows one content view beside an anchor, and closes on Escape or a click outside.
class Popover : public QWidget {
    Q_OBJECT

public:
    enum class Edge { MinX, MaxX, MinY, MaxY };

    explicit Popover(QWidget *parent = nullptr);
    ~Popover() override;

    /// Takes ownership of `view`; the previous content view is deleted later.
    void setContentView(QWidget *view);
    QWidget *contentView() const { return m_contentView; }

    /// The size of the content; the panel is larger by its border and arrow.
    void setContentSize(const QSize &size);

    /// Shows the popover beside `anchor`, on `preferredEdge` where the screen has room, else on the opposite
    /// side. The first focusable control of the content takes the keyboard.
    void showRelativeTo(QWidget *anchor, Edge preferredEdge);

    /// Hides it and gives the keyboard back to where it was.
    void closePopover();

    bool isShown() const { return isVisible(); }

Q_SIGNALS:
    void closed();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void layoutContent();

    QPointer<QWidget> m_contentView;
    QPointer<QWidget> m_anchor;
    QPointer<QWidget> m_focusBefore;
    QSize m_contentSize;
    Edge m_edge = Edge::MaxX;
    int m_arrowOffset = 0;
};

} // namespace lyrabox
