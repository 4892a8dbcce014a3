#include "platform/encoding/RateConverter.h"

#include "platform/audio/StreamFormat.h"

#include <algorithm>
#include <array>
#include <limits>

namespace lyrabox::encoding {

namespace {

constexpr auto ownRate = static_cast<int>(canonicalStreamFormat().mSampleRate);

} // namespace

Status RateConverter::open(int rate)
{
    m_rate = rate;
    if (rate == ownRate)
        return status::noError;
    AVChannelLayout stereo = {};
    av_channel_layout_default(&stereo, 2);
    SwrContext *swr = nullptr;
    int error = swr_alloc_set_opts2(&swr, &stereo, AV_SAMPLE_FMT_FLTP, rate, &stereo,
                                    AV_SAMPLE_FMT_FLTP, ownRate, 0, nullptr);
    m_swr.reset(swr);
    if (error == 0)
        error = swr_init(swr);
    if (error >= 0)
        return status::noError;
    return error == AVERROR(ENOMEM) ? status::notEnoughMemory : status::unspecified;
}

Status RateConverter::push(const float *left, const float *right, std::uint32_t frames,
                           const FrameSink &sink)
{
    if (!m_swr)
        return sink(left, right, frames);
    m_inFrames += frames;
    std::array<const std::uint8_t *, 2> input = {reinterpret_cast<const std::uint8_t *>(left),
                                                 reinterpret_cast<const std::uint8_t *>(right)};
    return convert(input.data(), frames, sink, std::numeric_limits<std::int64_t>::max());
}

Status RateConverter::finish(const FrameSink &sink)
{
    if (!m_swr)
        return status::noError;
    const std::int64_t length = av_rescale(m_inFrames, m_rate, ownRate);
    const Status result = convert(nullptr, 0, sink, length - m_outFrames);
    if (result != status::noError || m_outFrames >= length)
        return result;
    const std::vector<float> silence(static_cast<std::size_t>(length - m_outFrames), 0.0F);
    m_outFrames = length;
    return sink(silence.data(), silence.data(), static_cast<std::uint32_t>(silence.size()));
}

/// Converts `frames` frames, or flushes the resampler if `input` is null. Gives the sink at most
/// `limit` frames, because the resampler's filter reaches past the last frame.
Status RateConverter::convert(const std::uint8_t **input, std::uint32_t frames,
                              const FrameSink &sink, std::int64_t limit)
{
    const int bound = swr_get_out_samples(m_swr.get(), static_cast<int>(frames));
    if (bound < 0)
        return status::notEnoughMemory;
    m_left.resize(std::max(m_left.size(), static_cast<std::size_t>(bound)));
    m_right.resize(std::max(m_right.size(), static_cast<std::size_t>(bound)));
    std::array<std::uint8_t *, 2> output = {reinterpret_cast<std::uint8_t *>(m_left.data()),
                                            reinterpret_cast<std::uint8_t *>(m_right.data())};
    const int converted =
        swr_convert(m_swr.get(), output.data(), bound, input, static_cast<int>(frames));
    if (converted < 0)
        return converted == AVERROR(ENOMEM) ? status::notEnoughMemory : status::unspecified;
    const auto count = std::clamp<std::int64_t>(converted, 0, std::max<std::int64_t>(limit, 0));
    m_outFrames += count;
    return count == 0 ? status::noError
                      : sink(m_left.data(), m_right.data(), static_cast<std::uint32_t>(count));
}

} // namespace lyrabox::encoding
