#pragma once

#include <QAccessibleWidget>
#include <QPointer>

#include <vector>

namespace lyrabox {

/// The accessible interface of a drawn push button. Assistive technologies can press it, which
/// counts as a click, and read the state of a StateButton.
class ButtonAccessible : public QAccessibleWidget {
public:
    explicit ButtonAccessible(QWidget *button);

    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
};

/// The accessible interface of a SegmentedControl: a list of tabs.
class SegmentedAccessible : public QAccessibleWidget {
public:
    explicit SegmentedAccessible(QWidget *control);
    ~SegmentedAccessible() override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QString text(QAccessible::Text kind) const override;

private:
    /// One interface per segment, registered when it is first asked for. The destructor deletes
    /// them.
    mutable std::vector<QAccessible::Id> m_segments;
};

/// The accessible interface of one segment. A segment is not a widget, so it has no object of its
/// own.
class SegmentAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    SegmentAccessible(QWidget *control, int index);

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QPointer<QWidget> m_control;
    int m_index;
};

/// The accessible interface of a SplitView's divider. Its value is the width of the first pane, in
/// device-independent pixels.
class DividerAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit DividerAccessible(QWidget *divider);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override { return 1; }
};

/// Registers the accessible interfaces of this folder's controls with the toolkit. The controls'
/// constructors call it; only the first call does anything. Main thread.
void installAccessibleControls();

} // namespace lyrabox
