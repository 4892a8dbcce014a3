#pragma once

#include <QRectF>

class QPainter;

namespace lyrabox {

/// Draws the gray rounded ground of the navigation view.
class BackLayerDelegate {
public:
    /// `bounds` is the layer's; what lies outside its rounded corners is left alone.
    void drawLayerInContext(const QRectF &bounds, QPainter &context) const;
};

/// Holds the fractions to draw and draws the played part.
class PlayLayerDelegate {
public:
    /// Current frame over total frames; not a number draws nothing.
    double playProgress() const { return m_playProgress; }
    void setPlayProgress(double fraction) { m_playProgress = fraction; }

    /// Loop start over total frames.
    double loopStart() const { return m_loopStart; }
    void setLoopStart(double fraction) { m_loopStart = fraction; }

    bool loopStartIsSet() const { return m_loopStartIsSet; }
    void setLoopStartIsSet(bool isSet) { m_loopStartIsSet = isSet; }

    /// What has been played before the loop start is half transparent, the rest of it opaque.
    void drawLayerInContext(const QRectF &bounds, QPainter &context) const;

private:
    double m_playProgress = 0.0;
    double m_loopStart = 0.0;
    bool m_loopStartIsSet = false;
};

} // namespace lyrabox
