#include "platform/ui/Accessibility.h"

#include "platform/ui/StateButton.h"

#include <QAbstractButton>

namespace lyrabox {

namespace {

QAccessible::Role roleOf(QWidget *widget)
{
    if (widget->inherits("LB_PopUpButtonCell"))
        return QAccessible::ButtonMenu;
    if (widget->inherits("lyrabox::SegmentButton"))
        return QAccessible::RadioButton;
    return QAccessible::Button;
}

QAccessibleInterface *createInterface(const QString &className, QObject *object)
{
    if (className != QLatin1String("QAbstractButton"))
        return nullptr;
    // Asked from the class downwards: the toolkit's own buttons never get here, they are served
    // before.
    auto *button = qobject_cast<QAbstractButton *>(object);
    const bool ours = button && (button->inherits("lyrabox::StateButton") ||
                                 button->inherits("lyrabox::MatrixCell") ||
                                 button->inherits("lyrabox::SegmentButton"));
    return ours ? new ButtonAccessible(button) : nullptr;
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

void installAccessibleControls()
{
    static const bool installed = [] {
        QAccessible::installFactory(createInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

} // namespace lyrabox
