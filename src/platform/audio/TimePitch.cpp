#include "platform/audio/TimePitch.h"

#include "platform/audio/FadeShape.h"
#include "platform/audio/TimePitchLeadIn.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lyrabox {

static_assert(leadOutFrames % TimePitch::sliceFrames == 0);

namespace {

float rise(std::uint32_t step, std::uint32_t steps) noexcept
{
    return static_cast<float>(fadeShape((step + 0.5) / steps));
}

} // namespace

void TimePitch::render(std::uint32_t frames, AudioBufferList &ioData) noexcept
{
    const std::uint32_t channels = std::min(ioData.mNumberBuffers, maximumChannels);
    if (!m_ready.load(std::memory_order_acquire) || m_source == nullptr ||
        channels != maximumChannels) {
        for (std::uint32_t i = 0; i < channels; ++i)
            std::fill_n(static_cast<float *>(ioData.mBuffers[i].mData), frames, 0.0F);
        return;
    }
    if (m_resetRequested.load(std::memory_order_acquire) == Reset::atOnce)
        m_isPlayingOut = false;
    if (!m_isPlayingOut) {
        takeParameters();
        takeReset();
    }
    Output output{static_cast<float *>(ioData.mBuffers[0].mData),
                  static_cast<float *>(ioData.mBuffers[1].mData)};
    while (frames > 0) {
        const std::uint32_t done = renderSome(output, std::min(frames, blockFrames));
        output = {output.left + done, output.right + done};
        frames -= done;
    }
    const double heard = position();
    // The lead-out's frames are not part of the song.
    const std::int64_t pulled =
        m_isPlayingOut ? std::min(m_history.end(), m_songEnd) : m_history.end();
    if (m_isPlayingOut && heard >= static_cast<double>(m_songEnd))
        m_isPlayingOut = false;
    m_latency.store(std::max(0.0, static_cast<double>(pulled) - heard), std::memory_order_relaxed);
}

/// The source frame that render() delivers next.
double TimePitch::position() const noexcept
{
    switch (m_state) {
    case State::passing:
    case State::leaving:
        return static_cast<double>(m_passed);
    case State::bridging:
        return m_speed * m_progress;
    case State::stretching:
    case State::returning:
        break;
    }
    return m_stretcher.position();
}

void TimePitch::takeParameters() noexcept
{
    m_wantedRate = std::clamp(m_rate.load(std::memory_order_relaxed), minimumRate, maximumRate);
    const float pitch = pitchRange.clamped(m_pitch.load(std::memory_order_relaxed));
    if (pitch != m_wantedPitch) {
        m_wantedPitch = pitch;
        m_wantedPitchRatio = pitchRatioForCents(pitch);
    }
    m_wantsUnchanged = m_wantedRate == 1.0F && m_wantedPitch == 0.0F;
}

void TimePitch::takeReset() noexcept
{
    if (!m_wantsUnchanged && !m_stretcher.canRestart())
        return; // The reset stays pending until the control side has refreshed the spare engine.
    if (m_resetRequested.exchange(Reset::none, std::memory_order_acq_rel) == Reset::none)
        return;
    ++m_resets;
    m_history.clear();
    m_passed = 0;
    m_progress = 0;
    m_fadeInLeft = 0;
    if (m_wantsUnchanged) {
        m_state = State::passing;
        return;
    }
    m_state = State::bridging;
    startStretcher(std::llround(static_cast<double>(m_wantedRate) * startFrames), m_wantedRate,
                   m_wantedPitchRatio);
    const std::int64_t missing = -m_stretcher.nextFrame();
    if (missing > 0) {
        const auto frames = static_cast<std::uint32_t>(missing);
        pull(leadInSourceFrames(frames));
        makeLeadIn(m_history, frames);
    }
    m_quickStretcher.start(m_wantedRate, m_wantedPitchRatio.value());
    m_fadeInLeft = fadeInFrames;
}

std::uint32_t TimePitch::renderSome(Output output, std::uint32_t frames) noexcept
{
    switch (m_state) {
    case State::passing:
        if (m_wantsUnchanged || !m_stretcher.canRestart()) {
            pass(output, frames);
            return frames;
        }
        m_state = State::leaving;
        m_progress = 0;
        startStretcher(m_passed + startFrames, 1.0, {});
        [[fallthrough]];
    case State::leaving:
        return leave(output, frames);
    case State::bridging:
        return bridge(output, frames);
    case State::returning:
        frames = std::min(frames, crossfadeFrames - m_progress);
        crossfade(output, frames);
        if (m_progress == crossfadeFrames) {
            m_state = State::passing;
            m_progress = 0;
        }
        return frames;
    case State::stretching:
        break;
    }
    setRatios(m_wantedRate, m_wantedPitchRatio);
    if (!m_wantsUnchanged) {
        m_progress = 0;
    } else {
        frames = std::min(frames, settleFrames - m_progress);
        m_progress += frames;
    }
    stretch(output, frames);
    if (m_progress == settleFrames) {
        m_passed = std::llround(m_stretcher.position());
        m_state = State::returning;
        m_progress = 0;
    }
    return frames;
}

/// Pulls slices until the history holds every frame before `end`. After the source's end the slices
/// hold the lead-out, and then silence.
void TimePitch::pull(std::int64_t end) noexcept
{
    while (m_history.end() < end) {
        const TimePitchHistory::Channels slice = m_history.writable();
        if (m_isPlayingOut && m_history.end() < m_leadOutEnd) {
            m_history.advance(sliceFrames);
            continue;
        }
        AudioBufferList list;
        list.mNumberBuffers = maximumChannels;
        for (std::uint32_t i = 0; i < maximumChannels; ++i) {
            // At the song's end the source leaves the buffers as they are.
            std::fill_n(slice[i], sliceFrames, 0.0F);
            list.mBuffers[i] = {1, sliceFrames * sizeof(float), slice[i]};
        }
        if (!m_isPlayingOut) {
            m_sourceEndSeen = false;
            m_source->render(sliceFrames, list);
            if (m_sourceEndSeen) {
                m_isPlayingOut = true;
                m_songEnd = m_history.end();
                m_leadOutEnd = m_songEnd + leadOutFrames;
                makeLeadOut(m_history, m_songEnd);
            }
        }
        m_history.advance(sliceFrames);
    }
}

void TimePitch::pass(Output output, std::uint32_t frames) noexcept
{
    pull(m_passed + frames);
    for (std::uint32_t i = 0; i < frames; ++i) {
        output.left[i] = m_history.left(m_passed + i);
        output.right[i] = m_history.right(m_passed + i);
    }
    m_passed += frames;
}

void TimePitch::stretch(Output output, std::uint32_t frames) noexcept
{
    while (frames > 0) {
        const std::uint32_t taken = m_stretcher.take(output.left, output.right, frames);
        output = {output.left + taken, output.right + taken};
        frames -= taken;
        if (frames == 0)
            break;
        const std::uint32_t count = std::min(m_stretcher.framesRequired(), blockFrames);
        const std::int64_t first = m_stretcher.nextFrame();
        pull(first + count);
        std::array<float, blockFrames> left;
        std::array<float, blockFrames> right;
        for (std::uint32_t i = 0; i < count; ++i) {
            left[i] = m_history.left(first + i);
            right[i] = m_history.right(first + i);
        }
        m_stretcher.feed(left.data(), right.data(), count);
    }
}

std::uint32_t TimePitch::leave(Output output, std::uint32_t frames) noexcept
{
    if (m_progress < startFrames) {
        frames = std::min(frames, startFrames - m_progress);
        pass(output, frames);
        m_progress += frames;
        readAhead(m_progress);
        return frames;
    }
    frames = std::min(frames, startFrames + crossfadeFrames - m_progress);
    crossfade(output, frames);
    if (m_progress == startFrames + crossfadeFrames) {
        m_state = State::stretching;
        m_progress = 0;
    }
    return frames;
}

std::uint32_t TimePitch::bridge(Output output, std::uint32_t frames) noexcept
{
    const bool isAlone = m_progress < startFrames;
    const std::uint32_t end = isAlone ? startFrames : startFrames + handoverFrames;
    frames = std::min(frames, end - m_progress);
    pull(m_quickStretcher.reach(frames));
    m_quickStretcher.render(m_history, output.left, output.right, frames);
    fadeIn(output, frames);
    if (isAlone) {
        m_progress += frames;
        readAhead(m_progress);
        return frames;
    }
    const Output stretched{m_scratch.data(), m_scratch.data() + blockFrames};
    stretch(stretched, frames);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const float gain = rise(m_progress - startFrames + i, handoverFrames);
        output.left[i] += gain * (stretched.left[i] - output.left[i]);
        output.right[i] += gain * (stretched.right[i] - output.right[i]);
    }
    m_progress += frames;
    if (m_progress == end) {
        m_state = State::stretching;
        m_progress = 0;
    }
    return frames;
}

/// Runs the stretcher through the part of its lead-in that belongs to the first `progress` frames
/// after the change. Its output depends only on the song and the ratios, not on how callbacks
/// divide the work.
void TimePitch::readAhead(std::uint32_t progress) noexcept
{
    if (progress <= restFrames)
        return;
    const std::uint32_t due =
        m_stretcher.leadInOutput() * (progress - restFrames) / (startFrames - restFrames);
    const Output discarded{m_scratch.data(), m_scratch.data() + blockFrames};
    while (m_discarded < due) {
        const std::uint32_t count = std::min(due - m_discarded, blockFrames);
        stretch(discarded, count);
        m_discarded += count;
    }
}

/// Both signals are the same place in the song, nearly in phase. So the gains add up to 1.
void TimePitch::crossfade(Output output, std::uint32_t frames) noexcept
{
    const bool isLeaving = m_state == State::leaving;
    const std::uint32_t faded = isLeaving ? m_progress - startFrames : m_progress;
    const Output stretched{m_scratch.data(), m_scratch.data() + blockFrames};
    stretch(stretched, frames);
    pass(output, frames);
    for (std::uint32_t i = 0; i < frames; ++i) {
        const float gain = rise(faded + i, crossfadeFrames);
        const float ofStretched = isLeaving ? gain : 1.0F - gain;
        output.left[i] += ofStretched * (stretched.left[i] - output.left[i]);
        output.right[i] += ofStretched * (stretched.right[i] - output.right[i]);
    }
    m_progress += frames;
}

void TimePitch::fadeIn(Output output, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < frames && m_fadeInLeft > 0; ++i, --m_fadeInLeft) {
        const float gain = rise(fadeInFrames - m_fadeInLeft, fadeInFrames);
        output.left[i] *= gain;
        output.right[i] *= gain;
    }
}

/// Restarts the stretcher so that its first output after the lead-in belongs to source frame
/// `frame`.
void TimePitch::startStretcher(std::int64_t frame, double speed, PitchRatio pitch) noexcept
{
    setRatios(speed, pitch);
    m_stretcher.restart(frame - m_stretcher.leadInFrames());
    m_discarded = 0;
}

void TimePitch::setRatios(double speed, PitchRatio pitch) noexcept
{
    if (speed == m_speed && pitch == m_pitchRatio)
        return;
    m_speed = speed;
    m_pitchRatio = pitch;
    m_stretcher.setRatios(speed, pitch);
}

} // namespace lyrabox
