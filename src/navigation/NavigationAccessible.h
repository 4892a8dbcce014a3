#pragma once

#include <QAccessibleWidget>

class LB_NavigationView;

namespace lyrabox {

/// Presents the navigation bar to assistive technologies as a slider over the song, in whole
/// seconds. Main thread.
class PositionAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit PositionAccessible(LB_NavigationView *view);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override;

private:
    LB_NavigationView *view() const;
};

/// Registers the accessible objects of this folder's views. Their constructors call it.
void installAccessibleNavigation();

/// Tells assistive technologies that the position has jumped.
void announcePosition(LB_NavigationView *view);

} // namespace lyrabox
