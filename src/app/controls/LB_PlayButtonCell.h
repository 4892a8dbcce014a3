#pragma once

#include "platform/ui/StateButton.h"

/// A button that shows its alternate image while it is on and its image while it is off. While it
/// is highlighted it shows the image of the same name followed by "Alt" instead. In any other state
/// it draws no image. Main thread.
class LB_PlayButtonCell : public lyrabox::StateButton {
    Q_OBJECT

public:
    using StateButton::StateButton;

protected:
    void drawImage(QPainter &painter, const QRect &rect) override;
};
