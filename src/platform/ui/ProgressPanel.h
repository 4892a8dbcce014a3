#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace lyrabox {

/// A small panel over the middle of a view that shows the progress of work on the main thread.
/// Every call of showProgress() paints the panel at once, without the event loop, so no input is
/// handled during the work. The panel disappears when the event loop runs again; a short delay
/// keeps it from flashing. Clicks pass through it. Main thread.
class ProgressPanel : public QWidget {
    Q_OBJECT

public:
    /// Covers the middle of `view`. The view's parent owns the panel. Hidden at first.
    explicit ProgressPanel(QWidget *view);

    /// Shows `text`, and a bar filled to `done` of `total`. A total of 0 means that the total is
    /// not known. If `done` exceeds the total, the bar is full.
    void showProgress(const QString &text, qint64 done, qint64 total);

    QString text() const;

    /// For tests: how much of the bar is filled, in thousandths; -1 while the total is not known.
    int shownPermille() const;

    /// For tests: the timer that hides the panel when the work is over.
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
