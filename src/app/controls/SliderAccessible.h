#pragma once

#include <QAccessibleWidget>

class LB_Slider;

/// A slider's value, range and grain for assistive programs, which move it as its user does.
class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderAccessible(LB_Slider *slider);

    /// Makes it the accessible face of every LB_Slider.
    static void install();

    /// Tells assistive programs that the value has changed.
    static void announce(LB_Slider *slider);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

private:
    LB_Slider *slider() const;
};
