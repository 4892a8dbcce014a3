#pragma once

#include "navigation/SeekButton.h"

/// Short: the start of the song or of the loop, or the previous song within the first seconds.
/// Held: back through the song, to the loop start or the start.
class LB_BackButton : public lyrabox::SeekButton {
    Q_OBJECT

public:
    using SeekButton::SeekButton;

protected:
    AfterStep step(Press press) override;
    void clickAction() override;
};
