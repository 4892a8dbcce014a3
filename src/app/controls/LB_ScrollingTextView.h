#pragma once

#include <QBasicTimer>
#include <QFont>
#include <QPointF>
#include <QWidget>

/// A line of text that is centred when it fits and scrolls as a marquee, 20 points a second, when it does not.
/// The timer runs only while there is something to scroll and the window shows it.
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

    QSize sizeHint() const override;

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
    QBasicTimer m_scrollTimer;
};
