#pragma once

#include <QRectF>

class QPainter;

namespace lyrabox {

/// Draws the gray rounded background of the navigation view. Main thread.
class BackLayerDelegate {
public:
    /// Fills `bounds`. Leaves the pixels outside the rounded corners unchanged.
    void drawLayerInContext(const QRectF &bounds, QPainter &context) const;
};

/// Holds the position and loop start as fractions, and draws the played part. Main thread.
class PlayLayerDelegate {
public:
    /// Current frame / total frames. If it is NaN, nothing is drawn.
    double playProgress() const { return m_playProgress; }
    void setPlayProgress(double fraction) { m_playProgress = fraction; }

    /// Loop start / total frames.
    double loopStart() const { return m_loopStart; }
    void setLoopStart(double fraction) { m_loopStart = fraction; }

    bool loopStartIsSet() const { return m_loopStartIsSet; }
    void setLoopStartIsSet(bool isSet) { m_loopStartIsSet = isSet; }

    /// Draws the part before the loop start half transparent and the rest opaque.
    void drawLayerInContext(const QRectF &bounds, QPainter &context) const;

private:
    double m_playProgress = 0.0;
    double m_loopStart = 0.0;
    bool m_loopStartIsSet = false;
};

} // namespace lyrabox
