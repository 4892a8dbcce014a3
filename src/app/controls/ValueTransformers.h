#pragma once

#include "app/controls/SecondsToMinutesTransformer.h"
#include "platform/ui/NamedImage.h"

/// The mark of the playing song's row: "IsPlaying", a null image for false.
class PlayImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};

/// The mark of a song with stored settings: "HasSettings", a null image for false.
class SettingsImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};

/// The add/remove button's image: "PlusButton" for true, "MinusButton" for false.
class PlusMinusImageTransformer {
public:
    static lyrabox::NamedImage transformedValue(bool value);
};
