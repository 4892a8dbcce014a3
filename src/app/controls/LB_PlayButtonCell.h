#pragma once

#include "platform/ui/StateButton.h"

/// A button that shows its alternate image while it is on and its image while it is off, each
/// replaced by the image of the same name followed by "Alt" while highlighted. Any other state
/// draws no image.
class LB_PlayButtonCell : public lyrabox::StateButton {
    Q_OBJECT

public:
    using StateButton::StateButton;

protected:
    void drawImage(QPainter &painter, const QRect &rect) override;
};
