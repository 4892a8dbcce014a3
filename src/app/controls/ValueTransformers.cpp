#include "app/controls/ValueTransformers.h"

using lyrabox::NamedImage;
using namespace Qt::Literals::StringLiterals;

NamedImage PlayImageTransformer::transformedValue(bool value)
{
    return value ? NamedImage(u"IsPlaying"_s) : NamedImage();
}

NamedImage SettingsImageTransformer::transformedValue(bool value)
{
    return value ? NamedImage(u"HasSettings"_s) : NamedImage();
}

NamedImage PlusMinusImageTransformer::transformedValue(bool value)
{
    return NamedImage(value ? u"PlusButton"_s : u"MinusButton"_s);
}
