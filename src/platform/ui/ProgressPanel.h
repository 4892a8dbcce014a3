#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace lyrabox {

/// A small panel over the middle of a view that tells how far long work has come while the main
/// thread does it. Every call paints it at once, without the event loop, so that no input is
/// handled meanwhile; it is gone as soon as the event loop runs again, or a moment later, that it
/// does not flash. Clicks go through it.
class ProgressPanel : public QWidget {
    Q_OBJECT

public:
    /// Lies over `view`, within the view's parent, which owns it. Hidden at first.
    explicit ProgressPanel(QWidget *view);

    /// Shows `done` of `total`, and `text`, which says the same in words. A total of 0 is not
    /// known; one that is exceeded counts as reached.
    void showProgress(const QString &text, qint64 done, qint64 total);

    QString text() const;

    /// For tests: thousandths of the bar that are filled; -1 while the total is not known.
    int shownPermille() const;

    /// Takes the panel away when the work is over.
    QTimer *hideTimer() { return &m_hideTimer; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *m_view;
    QLabel *m_label;
    QProgressBar *m_bar;
    QTimer m_hideTimer;
};

} // namespace lyrabox
