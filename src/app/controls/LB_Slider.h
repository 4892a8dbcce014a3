#pragma once

#include <QBasicTimer>
#include <QWidget>

#include <functional>
#include <optional>

/// A flat slider over a float range, horizontal or vertical. Its value is what was set last; the
/// knob may still be gliding there. A drag, a click, the wheel or a key moves it in whole `step`s
/// and sends moved(); values set in code keep their fractions and send nothing.
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

    /// The grain of the user's moves, counted from 0; 0 moves freely.
    double step() const { return m_step; }
    void setStep(double step);

    /// What an arrow key moves by, and PageUp and PageDown; at first the grain, or a hundredth of
    /// the range where there is none, and ten times that.
    double keyStep() const;
    void setKeySteps(double arrow, double page);

    /// The value a double-click goes to; none at first.
    void setDefaultValue(double value);

    /// Brought into the range.
    float floatValue() const { return m_value; }
    void setFloatValue(double value);

    /// The same through the animator: floatValue() is the new value at once, the knob glides there
    /// with an ease-out curve in half a second (speed 0.5 of the default animation of a quarter
    /// second). A slider that is just being shown is at its value.
    void animateToFloatValue(double value);

    /// Where the knob is drawn now.
    double displayedValue() const;
    bool isGliding() const { return m_glideTimer.isActive(); }

    /// The clock that glides run by, in milliseconds; the steady clock at first.
    using Clock = std::function<qint64()>;
    void setGlideClock(Clock clock) { m_clock = std::move(clock); }

    /// Moves as the user would: in whole steps, sending moved().
    void moveByUser(double value);

    /// The knob's rectangle and the track's, in widget coordinates.
    QRectF knobRect() const;
    QRectF trackRect() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user moved the slider.
    void moved(LB_Slider *sender);
    /// The value changed, by whomever.
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
    void take(double value);
    void stopGlide();
    double bounded(double value) const;
    double grain() const;
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
    int m_wheelRest = 0;
    bool m_dragging = false;
};

namespace lyrabox {

/// The part of the way that a glide has covered after `seconds`: the ease-out curve of control
/// points (0, 0) and (0.58, 1) over half a second. 0 before it begins, 1 once it is over.
double sliderGlideProgress(double seconds);

/// `value` brought to the nearest multiple of `step` (any value where `step` is 0) inside the
/// range.
double sliderValueOnGrid(double value, double step, double minimum, double maximum);

} // namespace lyrabox
