#include "export/PassReader.h"

#include <algorithm>
#include <utility>

namespace lyrabox {

PassReader::PassReader(const ExportRequest &request, SongSource &source, ClickSchedule &clicks,
                       TimePitchUnit &timePitch)
    : m_request(request), m_source(source), m_clicks(clicks), m_timePitch(timePitch)
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
    std::uint32_t done = 0;
    while (done < frames && !m_hasEnded)
        done += readSome(left + done, right + done, frames - done);
    m_pulled += frames;
    if (done < frames) // the rest of the last slice counts as silence
        m_clicks.readLeadIn({}, 0, frames - done);
    forgetWhatIsOver();
}

/// Reads up to the end of a lead-in or a pass. Returns the number of frames, which may be 0.
std::uint32_t PassReader::readSome(float *left, float *right, std::uint32_t frames)
{
    if (m_leadIn.isActive()) {
        const std::uint32_t silent = std::min(m_leadIn.framesLeft(), frames);
        const auto songFrame = [this](std::uint32_t channel) {
            return [this, channel](std::uint64_t frame) { return m_source.sample(channel, frame); };
        };
        m_leadIn.read(left, silent, songFrame(0));
        m_leadIn.read(right, silent, songFrame(1));
        m_clicks.readLeadIn(m_leadIn.current(), m_leadIn.done(), silent);
        m_leadIn.advance(silent);
        m_length += silent;
        return silent;
    }
    const ExportPass &pass = m_request.passes[m_pass];
    const std::uint64_t rest = pass.end > m_position ? pass.end - m_position : 0;
    const auto wanted = static_cast<std::uint32_t>(std::min<std::uint64_t>(rest, frames));
    const std::uint32_t count = wanted > 0 ? m_source.copy(m_position, wanted, left, right) : 0;
    if (count > 0)
        m_clicks.readSong(m_position, count, pass.end);
    m_position += count;
    m_length += count;
    if (count < wanted || m_position >= pass.end)
        beginPass(m_position);
    return count;
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
