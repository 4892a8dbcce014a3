#include "platform/audio/AudioUnit.h"
#include "platform/audio/ClickMixer.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/OutputModule.h"
#include "platform/audio/TimePitch.h"

namespace lyrabox {

AudioUnitFactory platformAudioUnits()
{
    return {
        .equalizer = [] { return std::make_unique<GraphicEqualizer>(); },
        .timePitch = [] { return std::make_unique<TimePitch>(TimePitch::WarmUp::InBackground); },
        .click = [] { return std::make_unique<ClickMixer>(); },
        .output = [] { return outputModule().makeOutput(); },
        .defaultOutputWatcher = [] { return outputModule().makeDefaultOutputWatcher(); }};
}

} // namespace lyrabox
