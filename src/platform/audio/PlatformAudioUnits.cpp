#include "platform/audio/AudioUnit.h"
#include "platform/audio/CubebOutput.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/PulseDefaultOutputWatcher.h"
#include "platform/audio/TimePitch.h"

namespace lyrabox {

AudioUnitFactory platformAudioUnits()
{
    return {.equalizer = [] { return std::make_unique<GraphicEqualizer>(); },
            .timePitch = [] { return std::make_unique<TimePitch>(TimePitch::WarmUp::Beside); },
            .output = [] { return std::make_unique<CubebOutput>(); },
            .defaultOutputWatcher = [] { return std::make_unique<PulseDefaultOutputWatcher>(); }};
}

} // namespace lyrabox
