#pragma once

#include "app/controls/SecondsToMinutesTransformer.h"
#include "platform/ui/NamedImage.h"

/// The image in the row of the playing song: "IsPlaying" for true, a null image for false. Main
/// thread, like the classes below.
class PlayImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};

/// The image in the row of a song with stored settings: "HasSettings" for true, a null image for
/// false.
class SettingsImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};

/// The image of the add/remove button: "PlusButton" for true, "MinusButton" for false.
class PlusMinusImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};
