#include "platform/decoding/Converter.h"

#include <algorithm>
#include <cmath>

namespace lyrabox::decoding {

namespace {

/// Floating-point files may hold any value. NaN, infinity, and values so large that they could make
/// a later filter overflow permanently count as damage and become silence.
void silenceDamage(float *samples, std::int64_t count)
{
    constexpr float maxLevel = 1.0e6F;
    for (std::int64_t i = 0; i < count; ++i)
        samples[i] = std::abs(samples[i]) <= maxLevel ? samples[i] : 0.0F;
}

/// Whether the mixing gains come from FFmpeg (by channel names) or from alternatingMatrix().
enum class Gains { Usual, Own };

/// Stereo to stereo needs no gains. Mono and unknown layouts need gains of our own. Everything else
/// is mixed by the usual rules of its layout.
Gains gainsFor(const AVChannelLayout &layout, int outputs)
{
    const int channels = layout.nb_channels;
    if (channels <= 2)
        return channels != outputs ? Gains::Own : Gains::Usual;
    return layout.order != AV_CHANNEL_ORDER_NATIVE ? Gains::Own : Gains::Usual;
}

} // namespace

std::vector<double> alternatingMatrix(int channels, int outputs)
{
    std::vector<double> gains(
        static_cast<std::size_t>(outputs) * static_cast<std::size_t>(channels), 0.0);
    for (int output = 0; output < outputs; ++output) {
        const auto feeds = [&](int channel) {
            return outputs == 1 || channels == 1 || channel % 2 == output;
        };
        int sources = 0;
        for (int channel = 0; channel < channels; ++channel)
            sources += feeds(channel) ? 1 : 0;
        for (int channel = 0; channel < channels; ++channel) {
            if (feeds(channel))
                gains[static_cast<std::size_t>(output * channels + channel)] = 1.0 / sources;
        }
    }
    return gains;
}

void Converter::setOutput(int rate, int channels)
{
    m_rate = rate;
    m_channels = channels;
    m_swr.reset();
    m_waitingStart = m_waitingEnd = 0;
}

void Converter::take(ConvertedFrames &out)
{
    const std::size_t count = std::min(out.room(), m_waitingEnd - m_waitingStart);
    for (int channel = 0; channel < m_channels; ++channel) {
        const auto index = static_cast<std::size_t>(channel);
        const float *from = m_waiting[index].data() + m_waitingStart;
        std::copy(from, from + count, out.channels[index] + out.count);
    }
    out.count += count;
    m_waitingStart += count;
    if (m_waitingStart == m_waitingEnd)
        m_waitingStart = m_waitingEnd = 0;
}

Status Converter::push(const AVFrame &frame, ConvertedFrames &out)
{
    if (!m_swr || !matches(frame)) {
        Status result = finish(out);
        if (result == status::noError)
            result = configure(frame);
        if (result != status::noError)
            return result;
    }
    m_inFrames += frame.nb_samples;
    return convert(&frame, out);
}

Status Converter::finish(ConvertedFrames &out)
{
    if (!m_swr)
        return status::noError;
    const Status result = convert(nullptr, out);
    m_swr.reset();
    return result;
}

bool Converter::matches(const AVFrame &frame) const
{
    return frame.format == m_inFormat && frame.sample_rate == m_inRate &&
           av_channel_layout_compare(&frame.ch_layout, &m_inLayout) == 0;
}

Status Converter::configure(const AVFrame &frame)
{
    m_inFormat = frame.format;
    m_inRate = frame.sample_rate;
    m_inFrames = m_outFrames = 0;
    av_channel_layout_uninit(&m_inLayout);
    if (av_channel_layout_copy(&m_inLayout, &frame.ch_layout) < 0)
        return status::notEnoughMemory;

    const auto build = [&](Gains gains) {
        AVChannelLayout out = {};
        av_channel_layout_default(&out, m_channels);
        AVChannelLayout in = {};
        if (gains == Gains::Own)
            av_channel_layout_default(&in, m_inLayout.nb_channels);
        else
            av_channel_layout_copy(&in, &m_inLayout);
        SwrContext *swr = nullptr;
        int error =
            swr_alloc_set_opts2(&swr, &out, AV_SAMPLE_FMT_FLTP, m_rate, &in,
                                static_cast<AVSampleFormat>(m_inFormat), m_inRate, 0, nullptr);
        m_swr.reset(swr);
        if (error == 0) {
            av_opt_set_double(swr, "rematrix_maxval", 1.0, 0);
            if (gains == Gains::Own)
                error = swr_set_matrix(swr, alternatingMatrix(in.nb_channels, m_channels).data(),
                                       in.nb_channels);
        }
        if (error >= 0)
            error = swr_init(swr);
        av_channel_layout_uninit(&in);
        return error;
    };
    int error = build(gainsFor(m_inLayout, m_channels));
    if (error < 0 && error != AVERROR(ENOMEM))
        error = build(Gains::Own);
    if (error >= 0)
        return status::noError;
    m_swr.reset();
    return error == AVERROR(ENOMEM) ? status::notEnoughMemory : status::unsupportedDataFormat;
}

/// Converts one frame, or flushes the resampler if `frame` is null. Writes directly into the
/// caller's buffers if the result is certain to fit, otherwise into the waiting buffers.
Status Converter::convert(const AVFrame *frame, ConvertedFrames &out)
{
    const int bound = swr_get_out_samples(m_swr.get(), frame ? frame->nb_samples : 0);
    if (bound < 0)
        return status::notEnoughMemory;
    const auto most = static_cast<std::size_t>(bound);
    const bool direct = m_waitingEnd == 0 && out.room() >= most;
    std::array<std::uint8_t *, 2> target{};
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(m_channels); ++channel) {
        if (!direct && m_waiting[channel].size() < m_waitingEnd + most)
            m_waiting[channel].resize(m_waitingEnd + most);
        target[channel] = reinterpret_cast<std::uint8_t *>(
            direct ? out.channels[channel] + out.count : m_waiting[channel].data() + m_waitingEnd);
    }
    const std::uint8_t **input =
        frame ? const_cast<const std::uint8_t **>(frame->extended_data) : nullptr;
    const int converted =
        swr_convert(m_swr.get(), target.data(), bound, input, frame ? frame->nb_samples : 0);
    if (converted < 0)
        return converted == AVERROR(ENOMEM) ? status::notEnoughMemory : status::unspecified;
    // The resampler may deliver samples past the last source frame, because its filter reaches
    // further.
    const std::int64_t limit =
        frame ? INT64_MAX : av_rescale(m_inFrames, m_rate, m_inRate) - m_outFrames;
    const auto count = std::clamp<std::int64_t>(converted, 0, std::max<std::int64_t>(limit, 0));
    m_outFrames += count;
    for (std::size_t channel = 0; channel < static_cast<std::size_t>(m_channels); ++channel)
        silenceDamage(reinterpret_cast<float *>(target[channel]), count);
    if (direct) {
        out.count += static_cast<std::size_t>(count);
    } else {
        m_waitingEnd += static_cast<std::size_t>(count);
        take(out);
    }
    return status::noError;
}

} // namespace lyrabox::decoding
