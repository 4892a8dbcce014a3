#pragma once

#include <QBasicTimer>
#include <QFont>
#include <QPointF>
#include <QWidget>

#include <optional>

/// A line of text that is centred when it fits and scrolls as a marquee, 20 points a second, when
/// it does not. The timer runs only while there is something to scroll and the window shows it.
/// Resizing counts as live from the first change of size until a quarter second without one; the
/// text stands still meanwhile.
class LB_ScrollingTextView : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString string READ string WRITE setString)

public:
    explicit LB_ScrollingTextView(QWidget *parent = nullptr);

    QString string() const { return m_string; }

    /// Shows `text`, plain, from the start.
    void setString(const QString &text);

    /// The property keeps its value whatever setFontSize() does.
    double fontSize() const { return m_fontSize; }

    /// The size counts for measuring from the next setString() on.
    void setFontSize(double points);

    QFont font() const { return m_font; }
    QPointF drawingPoint() const { return m_drawingPoint; }
    double stringWidth() const { return m_stringWidth; }
    bool isScrolling() const { return m_scrollTimer.isActive(); }

    /// One step of the marquee: 1 point to the left.
    void scrollText();

    /// The size begins or ceases to change. Called by the view itself.
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

/// Where the marquee's text is drawn when its first copy stands at `x`.
struct MarqueePositions {
    /// The second copy, a gap of 25 points behind the first.
    std::optional<double> second;
    /// Where the first copy stands from the next drawing on: `x`, or the second copy's place once
    /// the first copy has left the view entirely.
    double next;
};
MarqueePositions marqueePositions(double x, double stringWidth);

} // namespace lyrabox
