#include "navigation/NavigationAccessible.h"

#include "engine/LB_AudioController.h"
#include "navigation/LB_NavigationView.h"

namespace lyrabox {

namespace {

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    if (className == QLatin1String("LB_NavigationView"))
        return new PositionAccessible(static_cast<LB_NavigationView *>(object));
    if (className == QLatin1String("lyrabox::TransportView"))
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Grouping);
    return nullptr;
}

} // namespace

PositionAccessible::PositionAccessible(LB_NavigationView *view)
    : QAccessibleWidget(view, QAccessible::Slider)
{}

LB_NavigationView *PositionAccessible::view() const
{
    return static_cast<LB_NavigationView *>(widget());
}

void *PositionAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString PositionAccessible::text(QAccessible::Text kind) const
{
    if (kind != QAccessible::Value && kind != QAccessible::Description)
        return QAccessibleWidget::text(kind);
    return LB_NavigationView::tr("%1 of %2").arg(view()->elapsedText(), view()->totalText());
}

QVariant PositionAccessible::currentValue() const
{
    const LB_AudioController *audio = view()->audio();
    return static_cast<double>(audio != nullptr ? audio->currentSeconds() : 0);
}

void PositionAccessible::setCurrentValue(const QVariant &value)
{
    view()->seekToSecond(value.toDouble());
}

QVariant PositionAccessible::maximumValue() const
{
    const LB_AudioController *audio = view()->audio();
    return static_cast<double>(audio != nullptr ? audio->totalSeconds() : 0);
}

QVariant PositionAccessible::minimumStepSize() const
{
    return LB_NavigationView::keyStepSeconds;
}

void installAccessibleNavigation()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void announcePosition(LB_NavigationView *view)
{
    const LB_AudioController *audio = view->audio();
    QAccessibleValueChangeEvent event(view, static_cast<double>(audio->currentSeconds()));
    QAccessible::updateAccessibility(&event);
}

} // namespace lyrabox
