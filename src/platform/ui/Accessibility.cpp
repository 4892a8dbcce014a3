#include "platform/ui/Accessibility.h"

#include "platform/ui/SegmentedControl.h"
#include "platform/ui/SplitView.h"
#include "platform/ui/StateButton.h"

#include <QAbstractButton>

namespace lyrabox {

namespace {

QAccessible::Role roleOf(QWidget *widget)
{
    return widget->inherits("LB_PopUpButtonCell") ? QAccessible::ButtonMenu : QAccessible::Button;
}

SegmentedControl *segmentedControl(QObject *object)
{
    return qobject_cast<SegmentedControl *>(object);
}

SplitView *splitView(const QWidget *divider)
{
    return static_cast<SplitView *>(divider->parentWidget());
}

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    auto *widget = qobject_cast<QWidget *>(object);
    if (!widget)
        return nullptr;
    if (className == QLatin1String("lyrabox::StateButton") ||
        className == QLatin1String("lyrabox::MatrixCell"))
        return new ButtonAccessible(widget);
    if (className == QLatin1String("lyrabox::SegmentedControl"))
        return new SegmentedAccessible(widget);
    if (className == QLatin1String("lyrabox::ButtonMatrix"))
        return new QAccessibleWidget(widget, QAccessible::Grouping);
    if (className == QLatin1String("lyrabox::ImageView"))
        return new QAccessibleWidget(widget, QAccessible::Graphic);
    if (className == QLatin1String("lyrabox::Popover"))
        return new QAccessibleWidget(widget, QAccessible::Dialog);
    if (qobject_cast<SplitView *>(widget->parent()) &&
        widget->objectName() == QLatin1String("divider"))
        return new DividerAccessible(widget);
    return nullptr;
}

} // namespace

ButtonAccessible::ButtonAccessible(QWidget *button) : QAccessibleWidget(button, roleOf(button)) {}

QAccessible::State ButtonAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const auto *button = static_cast<const QAbstractButton *>(widget());
    state.pressed = button->isDown();
    if (button->isCheckable()) {
        state.checkable = true;
        state.checked = button->isChecked();
    }
    if (const auto *stateButton = qobject_cast<const StateButton *>(button)) {
        state.checkable = !stateButton->isMomentary();
        state.checked = state.checkable && stateButton->state() == 1;
        state.checkStateMixed = state.checkable && stateButton->state() == -1;
    }
    return state;
}

QStringList ButtonAccessible::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled())
        names.prepend(pressAction());
    return names;
}

void ButtonAccessible::doAction(const QString &actionName)
{
    if (actionName == pressAction())
        static_cast<QAbstractButton *>(widget())->click();
    else
        QAccessibleWidget::doAction(actionName);
}

SegmentedAccessible::SegmentedAccessible(QWidget *control)
    : QAccessibleWidget(control, QAccessible::PageTabList)
{}

SegmentedAccessible::~SegmentedAccessible()
{
    for (const QAccessible::Id id : m_segments)
        QAccessible::deleteAccessibleInterface(id);
}

int SegmentedAccessible::childCount() const
{
    return static_cast<int>(segmentedControl(widget())->segments().size());
}

QAccessibleInterface *SegmentedAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    while (m_segments.size() <= static_cast<std::size_t>(index))
        m_segments.push_back(QAccessible::registerAccessibleInterface(
            new SegmentAccessible(widget(), static_cast<int>(m_segments.size()))));
    return QAccessible::accessibleInterface(m_segments[static_cast<std::size_t>(index)]);
}

int SegmentedAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    for (int index = 0; index < childCount(); ++index) {
        if (this->child(index) == child)
            return index;
    }
    return -1;
}

QString SegmentedAccessible::text(QAccessible::Text kind) const
{
    const SegmentedControl *control = segmentedControl(widget());
    if (kind == QAccessible::Value)
        return control->segments().value(control->selectedSegment());
    return QAccessibleWidget::text(kind);
}

SegmentAccessible::SegmentAccessible(QWidget *control, int index)
    : m_control(control), m_index(index)
{}

bool SegmentAccessible::isValid() const
{
    const SegmentedControl *control = segmentedControl(m_control);
    return control && m_index < control->segments().size();
}

QAccessibleInterface *SegmentAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_control);
}

QString SegmentAccessible::text(QAccessible::Text kind) const
{
    return isValid() && kind == QAccessible::Name
               ? segmentedControl(m_control)->segments().at(m_index)
               : QString();
}

QRect SegmentAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect segment = segmentedControl(m_control)->segmentRect(m_index);
    return {m_control->mapToGlobal(segment.topLeft()), segment.size()};
}

QAccessible::State SegmentAccessible::state() const
{
    QAccessible::State state;
    state.selectable = true;
    state.selected = isValid() && segmentedControl(m_control)->selectedSegment() == m_index;
    state.disabled = !isValid() || !m_control->isEnabled();
    return state;
}

void *SegmentAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this)
                                                : nullptr;
}

QStringList SegmentAccessible::actionNames() const
{
    return {pressAction()};
}

void SegmentAccessible::doAction(const QString &actionName)
{
    if (isValid() && m_control->isEnabled() && actionName == pressAction())
        segmentedControl(m_control)->pressSegment(m_index);
}

DividerAccessible::DividerAccessible(QWidget *divider)
    : QAccessibleWidget(divider, QAccessible::Splitter)
{}

void *DividerAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QVariant DividerAccessible::currentValue() const
{
    return splitView(widget())->dividerPosition();
}

void DividerAccessible::setCurrentValue(const QVariant &value)
{
    splitView(widget())->setDividerPosition(value.toDouble());
}

QVariant DividerAccessible::maximumValue() const
{
    return splitView(widget())->maximumDividerPosition();
}

QVariant DividerAccessible::minimumValue() const
{
    return splitView(widget())->minimumDividerPosition();
}

void installAccessibleControls()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace lyrabox
