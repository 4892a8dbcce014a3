#pragma once

#include "app/practice/WaveTiles.h"

#include <QWidget>

namespace lyrabox {

class WaveView;

/// The wave of the whole song, with a frame around the part that a WaveView shows. A click or a
/// drag moves that part. Main thread.
class OverviewBar : public QWidget {
    Q_OBJECT

public:
    static constexpr int usualHeight = 28;

    /// `wave` and `peaks` must outlive the bar.
    OverviewBar(WaveView *wave, SongPeaks *peaks, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void showLine();
    void showPart(double x);
    double framesPerPoint() const;

    WaveView *m_wave;
    SongPeaks *m_peaks;
    WaveTiles m_tiles;
    int m_lineX = 0; ///< as it was marked for painting
};

} // namespace lyrabox
