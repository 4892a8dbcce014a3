#include "app/controls/SliderAccessible.h"

#include "app/controls/LB_Slider.h"

namespace {

QAccessibleInterface *createInterface(const QString &, QObject *object)
{
    auto *slider = qobject_cast<LB_Slider *>(object);
    return slider ? new SliderAccessible(slider) : nullptr;
}

} // namespace

SliderAccessible::SliderAccessible(LB_Slider *slider)
    : QAccessibleWidget(slider, QAccessible::Slider)
{}

void SliderAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void SliderAccessible::announce(LB_Slider *slider)
{
    QAccessibleValueChangeEvent event(slider, static_cast<double>(slider->floatValue()));
    QAccessible::updateAccessibility(&event);
}

LB_Slider *SliderAccessible::slider() const
{
    return static_cast<LB_Slider *>(widget());
}

void *SliderAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString SliderAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Value)
        return QString::number(static_cast<double>(slider()->floatValue()));
    return QAccessibleWidget::text(kind);
}

QVariant SliderAccessible::currentValue() const
{
    return static_cast<double>(slider()->floatValue());
}

void SliderAccessible::setCurrentValue(const QVariant &value)
{
    if (slider()->isEnabled())
        slider()->moveByUser(value.toDouble());
}

QVariant SliderAccessible::maximumValue() const
{
    return slider()->maxValue();
}

QVariant SliderAccessible::minimumValue() const
{
    return slider()->minValue();
}

QVariant SliderAccessible::minimumStepSize() const
{
    return slider()->keyStep();
}
