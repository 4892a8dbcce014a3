#pragma once

#include "navigation/SeekButton.h"

/// A short press plays the next song. A held press moves forward through the song and stops shortly
/// before its end.
class LB_ForwardButton : public lyrabox::SeekButton {
    Q_OBJECT

public:
    using SeekButton::SeekButton;

protected:
    AfterStep step(Press press) override;
    void clickAction() override;
};
