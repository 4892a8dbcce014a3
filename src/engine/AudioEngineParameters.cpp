#include "engine/AudioEngineControl.h"

namespace lyrabox::engine {

namespace {

using Lock = std::lock_guard<std::mutex>;

float readParameter(const AudioUnit *unit, std::uint32_t id)
{
    return unit ? unit->parameter(id) : 0.0F;
}

void writeParameter(AudioUnit *unit, std::uint32_t id, float value)
{
    if (unit)
        unit->setParameter(id, value);
}

} // namespace

float outputVolume()
{
    const Lock lock(control().mutex);
    return readParameter(control().chain.output.get(), parameter::outputVolume);
}

void setOutputVolume(float volume)
{
    const Lock lock(control().mutex);
    writeParameter(control().chain.output.get(), parameter::outputVolume, volume);
}

float playbackRate()
{
    const Lock lock(control().mutex);
    return readParameter(control().chain.timePitch.get(), parameter::rate);
}

void setPlaybackRate(float rate)
{
    const Lock lock(control().mutex);
    writeParameter(control().chain.timePitch.get(), parameter::rate, rate);
}

float pitchCents()
{
    const Lock lock(control().mutex);
    return readParameter(control().chain.timePitch.get(), parameter::pitch);
}

void setPitchCents(float cents)
{
    const Lock lock(control().mutex);
    writeParameter(control().chain.timePitch.get(), parameter::pitch, cents);
}

float eqLevel(std::uint32_t parameterID)
{
    const Lock lock(control().mutex);
    return readParameter(control().chain.equalizer.get(), parameterID);
}

void setEqLevel(std::uint32_t parameterID, float level)
{
    const Lock lock(control().mutex);
    writeParameter(control().chain.equalizer.get(), parameterID, level);
}

} // namespace lyrabox::engine
