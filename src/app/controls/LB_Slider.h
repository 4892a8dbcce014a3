#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <optional>

/// A flat slider over a float range, horizontal or vertical. Its value is the one that was set
/// last, even while the knob still glides to it. A drag, a click, the wheel or a key moves it in
/// whole `step`s and sends moved(). A value set by code keeps its fraction and does not send
/// moved(). Main thread.
class LB_Slider : public QWidget {
    Q_OBJECT
    Q_PROPERTY(double minValue READ minValue WRITE setMinValue)
    Q_PROPERTY(double maxValue READ maxValue WRITE setMaxValue)
    Q_PROPERTY(double step READ step WRITE setStep)
    Q_PROPERTY(double floatValue READ floatValue WRITE setFloatValue)
    Q_PROPERTY(Qt::Orientation orientation READ orientation WRITE setOrientation)

public:
    explicit LB_Slider(QWidget *parent = nullptr);
    explicit LB_Slider(Qt::Orientation orientation, QWidget *parent = nullptr);

    Qt::Orientation orientation() const { return m_orientation; }
    void setOrientation(Qt::Orientation orientation);

    double minValue() const { return m_minValue; }
    void setMinValue(double value);
    double maxValue() const { return m_maxValue; }
    void setMaxValue(double value);

    /// The user moves the slider to multiples of this, counted from 0. With 0 the slider moves
    /// freely.
    double step() const { return m_step; }
    void setStep(double step);

    /// The distance that an arrow key moves the slider. By default it is `step`, or a hundredth of
    /// the range if `step` is 0. PageUp and PageDown move it by `page`, by default ten times as
    /// far.
    double keyStep() const;
    void setKeySteps(double arrow, double page);

    /// The value that a double-click sets. Without one, which is the default, a double-click is a
    /// click.
    void setDefaultValue(double value);

    /// The value. A value outside the range is set to the nearest limit.
    float floatValue() const { return m_value; }
    void setFloatValue(double value);

    /// The same with an animation: floatValue() is the new value at once, and the knob glides there
    /// in half a second with an ease-out curve (speed 0.5 of the default animation of a quarter of
    /// a second). If the slider becomes visible during the animation, the animation ends.
    void animateToFloatValue(double value);

    /// The value at which the knob is drawn now.
    double displayedValue() const;
    bool isGliding() const { return m_glideTimer.isActive(); }

    /// For tests: replaces the clock of the animation. It returns milliseconds. The default is a
    /// steady clock.
    using Clock = std::function<qint64()>;
    void setGlideClock(Clock clock) { m_clock = std::move(clock); }

    /// Moves the slider as the user would: to a whole step. Sends moved() if the value changes.
    void moveByUser(double value);

    /// The rectangles of the knob and the track, in widget coordinates.
    QRectF knobRect() const;
    QRectF trackRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user moved the slider.
    void moved(LB_Slider *sender);
    /// The value changed, by the user or by code.
    void valueChanged(double value);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void changeValue(double value);
    void stopGlide();
    double bounded(double value) const;
    double stepOrHundredth() const;
    double pageStep() const;
    double valueAt(const QPointF &point) const;
    double travel() const;

    Qt::Orientation m_orientation = Qt::Horizontal;
    double m_minValue = 0.0;
    double m_maxValue = 1.0;
    double m_step = 0.0;
    double m_keyStep = 0.0;
    double m_pageStep = 0.0;
    std::optional<double> m_defaultValue;
    float m_value = 0.0F;
    Clock m_clock;
    double m_glideFrom = 0.0;
    qint64 m_glideStart = 0;
    QBasicTimer m_glideTimer;
    QPointF m_grabOffset;
    int m_wheelRemainder = 0;
    bool m_dragging = false;
};

namespace lyrabox {

/// How much of the way a glide has covered after `seconds`, from 0 to 1: a cubic Bézier ease-out
/// curve with control points (0, 0) and (0.58, 1) over half a second.
double sliderGlideProgress(double seconds);

/// The multiple of `step` nearest to `value`, within the range. If `step` is 0, `value` within the
/// range.
double sliderValueOnGrid(double value, double step, double minimum, double maximum);

} // namespace lyrabox
