// The properties that the engine holds: thin wrappers, and the controls that their setters move.

#include "engine/AudioEngine.h"
#include "engine/LB_AudioController.h"
#include "engine/TransportRules.h"
#include "platform/foundation/UserDefaults.h"

#include <cmath>

namespace engine = lyrabox::engine;
namespace transport = lyrabox::transport;

namespace {

lyrabox::ValueRange rangeOf(const LB_Slider &slider)
{
    return {.minimum = static_cast<float>(slider.minValue()),
            .maximum = static_cast<float>(slider.maxValue())};
}

} // namespace

lyrabox::AudioStreamBasicDescription LB_AudioController::audioBufferFormat() const
{
    return engine::streamFormat();
}

quint64 LB_AudioController::currentFrame() const
{
    return engine::currentFrame();
}

void LB_AudioController::setCurrentFrame(quint64 frame)
{
    engine::seekToFrame(frame);
    Q_EMIT positionSet();
}

void LB_AudioController::startAtFrame(quint64 frame)
{
    if (isRunning())
        Q_EMIT aboutToStart(frame);
    engine::startAtFrame(frame);
    Q_EMIT positionSet();
}

quint64 LB_AudioController::totalFrames() const
{
    return engine::totalFrames();
}

quint64 LB_AudioController::heardFrame() const
{
    return engine::heardFrame();
}

std::shared_ptr<const lyrabox::DecodedSong> LB_AudioController::decodedSong() const
{
    return engine::decodedSong();
}

std::optional<lyrabox::LoopRange> LB_AudioController::loop() const
{
    if (!isLooping())
        return std::nullopt;
    return lyrabox::LoopRange{.start = loopStartFrame(), .end = loopEndFrame()};
}

quint64 LB_AudioController::loopStartFrame() const
{
    return engine::loopStartFrame();
}

void LB_AudioController::setLoopStartFrame(quint64 frame)
{
    engine::setLoopStartFrame(frame);
}

quint64 LB_AudioController::loopEndFrame() const
{
    return engine::loopEndFrame();
}

void LB_AudioController::setLoopEndFrame(quint64 frame)
{
    engine::setLoopEndFrame(frame);
}

bool LB_AudioController::isLooping() const
{
    return engine::isLooping();
}

void LB_AudioController::setIsLooping(bool looping)
{
    engine::setIsLooping(looping);
}

bool LB_AudioController::trackHasEnded() const
{
    return engine::trackHasEnded();
}

void LB_AudioController::setTrackHasEnded(bool ended)
{
    engine::setTrackHasEnded(ended);
}

qint64 LB_AudioController::currentSeconds() const
{
    return engine::wholeSeconds(engine::currentFrame(), engine::streamFormat().mSampleRate);
}

qint64 LB_AudioController::totalSeconds() const
{
    return engine::wholeSeconds(engine::totalFrames(), engine::streamFormat().mSampleRate);
}

bool LB_AudioController::isRunning() const
{
    return engine::outputIsRunning();
}

void LB_AudioController::setIsRunning(bool running)
{
    if (running && !isRunning())
        Q_EMIT aboutToStart(heardFrame());
    engine::setOutputRunning(running);
    Q_EMIT runningChanged(isRunning());
}

float LB_AudioController::outputVolume() const
{
    return engine::outputVolume();
}

void LB_AudioController::setOutputVolume(float volume)
{
    engine::setOutputVolume(volume);
    lyrabox::setUserDefault(lyrabox::defaultsKey::outputVolume, volume);
    Q_EMIT outputVolumeChanged(outputVolume());
}

float LB_AudioController::playbackSpeedPct() const
{
    // Most percentages don't survive the conversion: 105 would come back as 104.999992.
    const float rate = engine::playbackRate();
    return rate == transport::rateOf(m_speedPct) ? m_speedPct : rate * 100.0F;
}

void LB_AudioController::setPlaybackSpeedPct(float pct)
{
    if (!std::isfinite(pct))
        return;
    m_playbackSpeedSlider->animateToFloatValue(pct);
    m_playbackSpeedTextField->setFloatValue(pct);
    m_speedPct = pct;
    engine::setPlaybackRate(transport::rateOf(pct));
    Q_EMIT speedOrPitchChanged();
}

float LB_AudioController::playbackPitch() const
{
    return static_cast<float>(transport::wholeCents(engine::pitchCents()));
}

void LB_AudioController::setPlaybackPitch(float cents)
{
    if (!std::isfinite(cents))
        return;
    m_playbackPitchSlider->animateToFloatValue(cents);
    m_playbackPitchTextField->setFloatValue(cents);
    engine::setPitchCents(cents);
    Q_EMIT speedOrPitchChanged();
}

lyrabox::ValueRange LB_AudioController::playbackSpeedRange() const
{
    return rangeOf(*m_playbackSpeedSlider);
}

lyrabox::ValueRange LB_AudioController::playbackPitchRange() const
{
    return rangeOf(*m_playbackPitchSlider);
}

float LB_AudioController::eqLevelForIndex(quint32 index) const
{
    return engine::eqLevel(index);
}

void LB_AudioController::setEqLevelForIndex(float level, quint32 index)
{
    engine::setEqLevel(index, level);
}
