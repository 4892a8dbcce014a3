#pragma once

#include "navigation/SeekButton.h"

/// Short: the next song. Held: forward through the song, stopping short of its end.
class LB_ForwardButton : public lyrabox::SeekButton {
    Q_OBJECT

public:
    using SeekButton::SeekButton;

protected:
    AfterStep step(Press press) override;
    void clickAction() override;
};
