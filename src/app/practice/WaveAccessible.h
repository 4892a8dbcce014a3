#pragma once

#include <QAccessibleWidget>

namespace lyrabox {

class WaveView;

/// Presents the wave to assistive technologies as a slider over the song, in seconds. Its text
/// names the loop as well. Main thread.
class WaveAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit WaveAccessible(WaveView *view);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;

    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override { return 0.0; }
    QVariant minimumStepSize() const override;

private:
    WaveView *view() const;
    double rate() const;
};

/// Registers the accessible interfaces of this folder's views. Their constructors call it.
void installAccessibleWave();

} // namespace lyrabox
