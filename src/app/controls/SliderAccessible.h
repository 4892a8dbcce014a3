#pragma once

#include <QAccessibleWidget>

class LB_Slider;

/// The accessible interface of an LB_Slider. Assistive technologies read its value, range and step,
/// and can move it as the user can. Main thread.
class SliderAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit SliderAccessible(LB_Slider *slider);

    /// Registers this class with the toolkit for every LB_Slider. Only the first call does
    /// anything.
    static void install();

    /// Notifies assistive technologies that the slider's value has changed.
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
