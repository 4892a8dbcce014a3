#include "platform/audio/ClickMixer.h"

#include "platform/audio/ClickSchedule.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lyrabox {

Status ClickMixer::initialize()
{
    m_sounds.make();
    return status::noError;
}

Status ClickMixer::connect(TimePitchUnit *source, ClickSchedule *schedule)
{
    if (source == nullptr || schedule == nullptr)
        return status::noConnection;
    m_source = source;
    m_schedule = schedule;
    return status::noError;
}

void ClickMixer::render(std::uint32_t frames, AudioBufferList &ioData) noexcept
{
    if (m_source == nullptr) {
        for (std::uint32_t i = 0; i < std::min(ioData.mNumberBuffers, maximumChannels); ++i)
            std::fill_n(static_cast<float *>(ioData.mBuffers[i].mData), frames, 0.0F);
        return;
    }
    const TimePitchUnit::Account before = m_source->account();
    const std::uint64_t readBefore = m_schedule->framesRead();
    m_source->render(frames, ioData);
    if (m_schedule->isEmpty() && !isSounding()) {
        m_knowsPlace = false;
        return;
    }
    const TimePitchUnit::Account after = m_source->account();
    if (after.resets != before.resets) {
        // What was held is dropped, and the first frame that was read since is heard next.
        beginAt(static_cast<double>(readBefore));
        for (Voice &voice : m_voices)
            voice.release = releaseFrames;
    } else if (!m_knowsPlace) {
        beginAt(static_cast<double>(readBefore) - before.held);
    }
    // The account may step back a little when the speed changes. A click never sounds twice.
    const double end =
        std::max(m_place, static_cast<double>(m_schedule->framesRead()) - after.held);
    startDueClicks(m_place, end, frames);
    m_place = end;
    for (Voice &voice : m_voices)
        mix(voice, frames, ioData);
}

/// The frame `place` of the stream is delivered next. Clicks before it are dropped: a reset, or the
/// release of the former chain, has dropped their frames.
void ClickMixer::beginAt(double place) noexcept
{
    m_place = place;
    m_knowsPlace = true;
    while (!m_schedule->isEmpty() && static_cast<double>(m_schedule->next().at) < place)
        m_schedule->removeNext();
}

/// Starts the clicks of the stream's frames between the two places, which are heard during the next
/// `frames` frames.
void ClickMixer::startDueClicks(double from, double to, std::uint32_t frames) noexcept
{
    while (!m_schedule->isEmpty()) {
        const ClickSchedule::Due click = m_schedule->next();
        const double at = static_cast<double>(click.at);
        if (at >= to)
            return;
        m_schedule->removeNext();
        const double share = std::clamp((at - from) / (to - from), 0.0, 1.0);
        const auto delay = static_cast<std::uint32_t>(std::lround(share * frames));
        if (click.isCountIn || m_schedule->isOn())
            start(click.kind, std::min(delay, frames - 1));
    }
}

void ClickMixer::start(ClickKind kind, std::uint32_t delay) noexcept
{
    const ClickSound &sound = m_schedule->sound();
    if (kind == ClickKind::Accent && !sound.hasAccents)
        kind = ClickKind::Beat;
    // The one that has the least to come makes room.
    Voice &voice =
        *std::min_element(m_voices.begin(), m_voices.end(), [](const Voice &a, const Voice &b) {
            return a.rest.size() < b.rest.size();
        });
    voice = {.rest = m_sounds.of(sound.timbre, kind),
             .delay = delay,
             .left = sound.side == ClickSide::Right ? 0.0F : sound.loudness,
             .right = sound.side == ClickSide::Left ? 0.0F : sound.loudness};
}

void ClickMixer::mix(Voice &voice, std::uint32_t frames, AudioBufferList &ioData) noexcept
{
    const std::uint32_t first = std::exchange(voice.delay, 0U);
    if (voice.rest.empty() || ioData.mNumberBuffers < maximumChannels)
        return;
    auto *const left = static_cast<float *>(ioData.mBuffers[0].mData);
    auto *const right = static_cast<float *>(ioData.mBuffers[1].mData);
    const auto count =
        static_cast<std::uint32_t>(std::min<std::size_t>(frames - first, voice.rest.size()));
    const bool isReleased = voice.release > 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        float sample = voice.rest[i];
        if (isReleased) {
            sample *= static_cast<float>(voice.release) / releaseFrames;
            voice.release -= voice.release > 0 ? 1 : 0;
        }
        left[first + i] += voice.left * sample;
        right[first + i] += voice.right * sample;
    }
    voice.rest =
        isReleased && voice.release == 0 ? std::span<const float>() : voice.rest.subspan(count);
}

bool ClickMixer::isSounding() const noexcept
{
    return std::any_of(m_voices.begin(), m_voices.end(),
                       [](const Voice &voice) { return !voice.rest.empty(); });
}

} // namespace lyrabox
