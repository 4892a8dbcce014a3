#include "export/PassReader.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

PassReader::PassReader(const ExportRequest &request, SongSource &source, ChannelStage &channels,
                       ClickSchedule &clicks, TimePitchUnit &timePitch)
    : m_request(request),
      m_source(source),
      m_channels(channels),
      m_clicks(clicks),
      m_timePitch(timePitch)
{
    std::uint64_t first = ExportPass::songEnd;
    m_firstNeeded.resize(request.passes.size());
    for (std::size_t i = request.passes.size(); i-- > 0;) {
        first = std::min(first, request.passes[i].start);
        m_firstNeeded[i] = first;
    }
    m_source.forgetBefore(m_firstNeeded.front());
    m_position = request.passes.front().start;
    m_leadIn.request(request.passes.front().before);
    m_leadIn.beginRequested(m_position);
}

Status PassReader::render(void *reader, std::uint32_t frames, AudioBufferList &list) noexcept
{
    static_cast<PassReader *>(reader)->read(frames, list);
    return status::noError;
}

void PassReader::read(std::uint32_t frames, AudioBufferList &list)
{
    if (m_hasEnded) { // the buffers are silent already
        if (!std::exchange(m_hasToldEnd, true))
            m_timePitch.sourceHasEnded();
        return;
    }
    auto *left = static_cast<float *>(list.mBuffers[0].mData);
    auto *right = static_cast<float *>(list.mBuffers[1].mData);
    m_sliceStart = m_position;
    m_sliceBeganWithLeadIn = m_leadIn.isActive();
    std::uint32_t done = 0;
    while (done < frames && !m_hasEnded)
        done += readSome(left + done, right + done, frames - done);
    m_pulled += frames;
    if (done < frames) // the rest of the last slice counts as silence
        m_clicks.readLeadIn({}, 0, frames - done);
    if (m_channels.isOn())
        m_channels.process(left, right, frames, *this);
    forgetWhatIsOver();
}

/// Reads up to the end of a lead-in or a pass. Returns the number of frames, which may be 0.
std::uint32_t PassReader::readSome(float *left, float *right, std::uint32_t frames)
{
    if (m_leadIn.isActive()) {
        const std::uint32_t silent = readLeadIn(m_leadIn.left(), left, right, frames);
        m_clicks.readLeadIn(m_leadIn.current(), m_leadIn.done(), silent);
        m_leadIn.advance(silent);
        m_length += silent;
        return silent;
    }
    const ExportPass &pass = m_request.passes[m_pass];
    bool isOver = false;
    const std::uint32_t count = readSong(pass, m_position, left, right, frames, isOver);
    if (count > 0)
        m_clicks.readSong(m_position, count, pass.end);
    m_position += count;
    m_length += count;
    if (isOver)
        beginPass(m_position);
    return count;
}

std::uint32_t PassReader::readLeadIn(const engine::LeadInFrames &leadIn, float *left, float *right,
                                     std::uint32_t frames)
{
    const std::uint32_t silent = std::min(leadIn.left(), frames);
    const auto songFrame = [this](std::uint32_t channel) {
        return [this, channel](std::uint64_t frame) { return m_source.sample(channel, frame); };
    };
    leadIn.read(left, silent, songFrame(0));
    leadIn.read(right, silent, songFrame(1));
    return silent;
}

/// Reads a pass from `position` on. `isOver`: up to its end, or to the song's.
std::uint32_t PassReader::readSong(const ExportPass &pass, std::uint64_t position, float *left,
                                   float *right, std::uint32_t frames, bool &isOver)
{
    const std::uint64_t rest = pass.end > position ? pass.end - position : 0;
    const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(rest, frames));
    const std::uint32_t count = wanted > 0 ? m_source.copy(position, wanted, left, right) : 0;
    isOver = count < wanted || position + count >= pass.end;
    return count;
}

/// What follows the slice is known to the end of the last pass.
void PassReader::readAhead(float *left, float *right, std::uint32_t frames) noexcept
{
    engine::LeadInFrames leadIn = m_leadIn.left();
    std::size_t pass = m_pass;
    std::uint64_t position = m_position;
    std::uint32_t done = 0;
    while (done < frames && pass < m_request.passes.size()) {
        if (leadIn.isActive()) {
            const std::uint32_t silent =
                readLeadIn(leadIn, left + done, right + done, frames - done);
            leadIn.done += silent;
            done += silent;
            continue;
        }
        bool isOver = false;
        const std::uint32_t count = readSong(m_request.passes[pass], position, left + done,
                                             right + done, frames - done, isOver);
        position += count;
        done += count;
        if (isOver && ++pass < m_request.passes.size()) {
            const ExportPass &next = m_request.passes[pass];
            m_leadInAhead.setAtWrap(next.before);
            leadIn = m_leadInAhead.nextAtWrap(position, next.start);
            position = next.start;
        }
    }
    std::fill(left + done, left + frames, 0.0F);
    std::fill(right + done, right + frames, 0.0F);
}

void PassReader::readBefore(float *left, float *right, std::uint32_t frames) noexcept
{
    for (std::uint32_t i = 0; i < frames; ++i) {
        // Nothing sounds before a lead-in at a start. A place before the song is silent.
        const std::uint64_t frame = m_sliceStart - frames + i;
        left[i] = m_sliceBeganWithLeadIn ? 0.0F : m_source.sample(0, frame);
        right[i] = m_sliceBeganWithLeadIn ? 0.0F : m_source.sample(1, frame);
    }
}

/// Goes on to the pass after the present one.
void PassReader::beginPass(std::uint64_t from)
{
    ++m_pass;
    if (m_pass == m_request.passes.size() || m_source.error() != status::noError) {
        m_hasEnded = true;
        return;
    }
    const ExportPass &pass = m_request.passes[m_pass];
    if (pass.rate != m_request.passes[m_pass - 1].rate)
        m_rateChanges.push_back({.at = m_length, .rate = pass.rate});
    m_position = pass.start;
    m_leadIn.setAtWrap(pass.before);
    m_leadIn.beginAtWrap(from, pass.start);
}

void PassReader::forgetWhatIsOver()
{
    if (m_hasEnded)
        return;
    const bool isLast = m_pass + 1 == m_request.passes.size();
    m_source.forgetBefore(isLast ? m_position : std::min(m_position, m_firstNeeded[m_pass + 1]));
}

} // namespace lyrabox
