#pragma once

#include "navigation/SeekButton.h"

/// A short press goes to the start of the song or loop. In the first four seconds of a song it goes
/// to the previous song instead, unless a loop start is set. A held press moves backward through
/// the song until the start of the loop or song.
class LB_BackButton : public lyrabox::SeekButton {
    Q_OBJECT

public:
    using SeekButton::SeekButton;

protected:
    AfterStep step(Press press) override;
    void clickAction() override;
};
