#pragma once

#include "app/stand/StandLayout.h"
#include "app/stand/StandSource.h"

#include <QTimer>
#include <QWidget>

namespace lyrabox {

/// A window for the music stand: what the player plays, so large that it can be read from three
/// metres. It takes its colours from its palette. Escape and a double-click close it. It follows
/// the player only while it is visible, and paints only what has changed. Main thread.
class StandView : public QWidget {
    Q_OBJECT

public:
    /// What `source` uses must outlive the use of the view.
    explicit StandView(const StandSource &source, QWidget *parent = nullptr);

    /// What is shown now.
    const StandPage &page() const { return m_page; }

    /// Whether the view looks at the position regularly now.
    bool isMoving() const { return m_motion.isActive(); }
    /// How often the view has painted itself. Tests use it to show that it rests.
    quint64 paintCount() const { return m_paintCount; }

public Q_SLOTS:
    /// Shows this moment.
    void showNow();

Q_SIGNALS:
    /// The view was shown or hidden.
    void shownChanged(bool shown);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void follow();
    void updateMotion();
    void drawText(QPainter &painter, const QRectF &place, const QString &text, bool isBold,
                  double least = 0.5) const;
    void drawWords(QPainter &painter, const StandLayout &layout) const;
    void drawLoop(QPainter &painter, const QRectF &place) const;
    void drawNumbers(QPainter &painter, const StandLayout &layout) const;
    void drawDots(QPainter &painter, const QRectF &area) const;
    void drawSteps(QPainter &painter, const StandLayout &layout) const;
    QColor quietText() const;

    StandSource m_source;
    StandPage m_page;
    QTimer m_motion;
    quint64 m_paintCount = 0;
};

} // namespace lyrabox
