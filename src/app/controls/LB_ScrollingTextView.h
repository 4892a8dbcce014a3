#pragma once

#include <QBasicTimer>
#include <QFont>
#include <QPointF>
#include <QWidget>

#include <optional>

/// A line of text. It is centred if it fits; otherwise it scrolls as a marquee at 20 points a
/// second. The timer runs only while there is text to scroll and the window shows it. A live resize
/// lasts from the first change of size until a quarter of a second without one; meanwhile the text
/// does not move. Main thread.
class LB_ScrollingTextView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString string READ string WRITE setString)

public:
    explicit LB_ScrollingTextView(QWidget *parent = nullptr);

    QString string() const { return m_string; }

    /// Shows `text` as plain text, starting at its beginning.
    void setString(const QString &text);

    /// setFontSize() does not change this value; see docs/kept-on-purpose.md.
    double fontSize() const { return m_fontSize; }

    /// Sets the size in points for drawing. The width of the text is measured with it only from the
    /// next setString() on; see docs/kept-on-purpose.md.
    void setFontSize(double points);

    QFont font() const { return m_font; }
    /// Where the text begins, in widget coordinates.
    QPointF drawingPoint() const { return m_drawingPoint; }
    /// The width of the text in points, as measured by setString().
    double stringWidth() const { return m_stringWidth; }
    bool isScrolling() const { return m_scrollTimer.isActive(); }

    /// Moves the text 1 point to the left, one step of the marquee.
    void scrollText();

    /// The view calls these itself when a live resize begins and ends.
    void viewWillStartLiveResize();
    void viewDidEndLiveResize();
    bool inLiveResize() const { return m_settleTimer.isActive(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void center();
    void updateTimer();

    QString m_string;
    QFont m_font;
    double m_fontSize = 0.0;
    QPointF m_drawingPoint;
    double m_stringWidth = 0.0;
    bool m_wantsScroll = false;
    bool m_onScreen = false;
    QBasicTimer m_scrollTimer;
    QBasicTimer m_settleTimer;
};

namespace lyrabox {

/// Where the marquee's text is drawn when the first copy is at `x`. In points from the left edge.
struct MarqueePositions {
    /// The second copy, 25 points after the end of the first; none if it is not drawn.
    std::optional<double> second;
    /// The position of the first copy for the next drawing: `x`, or the position of the second copy
    /// once the first has left the view.
    double next;
};
MarqueePositions marqueePositions(double x, double stringWidth);

} // namespace lyrabox
