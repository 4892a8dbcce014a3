#pragma once

#include <QAccessibleWidget>

namespace lyrabox {

/// The accessible face of a drawn push button: pressed by assistive programs as by a click, with
/// the state of a StateButton.
class ButtonAccessible : public QAccessibleWidget {
public:
    explicit ButtonAccessible(QWidget *button);

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
};

/// Registers the accessible faces of this folder's controls; called by their constructors.
void installAccessibleControls();

} // namespace lyrabox
