#pragma once

#include "navigation/SeekButton.h"

/// A short press goes to the start of the song or loop, or to the previous song within the first
/// seconds. A held press moves backward through the song until the start of the loop or song.
class LB_BackButton : public lyrabox::SeekButton {
    Q_OBJECT

public:
    using SeekButton::SeekButton;

protected:
    AfterStep step(Press press) override;
    void clickAction() override;
};
