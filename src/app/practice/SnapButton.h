#pragma once

#include "app/practice/TextButton.h"

namespace lyrabox {

class WaveView;

/// The button in the header that chooses what drags snap to. The choice is remembered. Main thread.
class SnapButton : public TextButton {
    Q_OBJECT

public:
    /// Gives the remembered choice to `wave`, which must outlive the button.
    explicit SnapButton(WaveView *wave, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void openMenu();
    void showChoice();

    WaveView *m_wave;
};

} // namespace lyrabox
