#include "platform/decoding/AudioFileReader.h"

#include "platform/decoding/Converter.h"
#include "platform/decoding/Decoder.h"
#include "platform/decoding/Packets.h"
#include "platform/decoding/PayloadHash.h"
#include "platform/decoding/Tags.h"
#include "platform/foundation/Machine.h"

#include <cmath>
#include <new>
#include <stdexcept>

namespace lyrabox {

struct AudioFileReader::Private {
    decoding::Container container;
    decoding::Decoder decoder; ///< Reads from the container, so it is declared after it and
                               ///< destroyed first.
    decoding::Converter converter;
    QString path;
    AudioStreamBasicDescription client = canonicalStreamFormat();
    bool hasSamples = false;
    bool ended = false;
    Status failure = status::noError;
};

AudioFileReader::AudioFileReader() = default;
AudioFileReader::~AudioFileReader()
{
    const bool hadThreads = d && d->hasSamples;
    d.reset();
    if (hadThreads)
        giveBackFreedMemory(); // The decoder's threads have ended. Their heaps are free now.
}

namespace {

/// FFmpeg reports a lack of memory as an error. Our own containers throw it, also for an impossible
/// length.
template <typename Work>
Status withoutExceptions(Work &&work) noexcept
{
    try {
        return work();
    } catch (const std::bad_alloc &) {
        return status::notEnoughMemory;
    } catch (const std::length_error &) {
        return status::notEnoughMemory;
    } catch (...) {
        return status::unspecified;
    }
}

} // namespace

Status AudioFileReader::open(const QString &path, Depth depth)
{
    d.reset();
    const Status result = withoutExceptions([&] {
        d = std::make_unique<Private>();
        d->path = path;
        d->container.input().setStop(m_stop);
        const Status opened = d->container.open(path, m_waitHook);
        if (opened != status::noError || depth == Depth::Tags)
            return opened;
        d->hasSamples = true;
        return d->decoder.open(d->container, processorCount());
    });
    if (result != status::noError)
        d.reset();
    return result;
}

Status AudioFileReader::fileDataFormat(AudioStreamBasicDescription &format) const
{
    if (!d)
        return status::unspecified;
    const AVCodecParameters &parameters = *d->container.stream()->codecpar;
    format = {};
    format.mSampleRate = parameters.sample_rate;
    format.mChannelsPerFrame = static_cast<std::uint32_t>(parameters.ch_layout.nb_channels);
    const int bits = parameters.bits_per_raw_sample > 0
                         ? parameters.bits_per_raw_sample
                         : av_get_exact_bits_per_sample(parameters.codec_id);
    format.mBitsPerChannel = static_cast<std::uint32_t>(bits);
    return status::noError;
}

Status AudioFileReader::setClientDataFormat(const AudioStreamBasicDescription &format)
{
    constexpr std::uint32_t floatNonInterleaved = 0x21;
    constexpr double maximumRate = 768000.0;
    if (!d)
        return status::unspecified;
    if (format.mFormatID != canonicalStreamFormat().mFormatID || format.mBitsPerChannel != 32 ||
        (format.mFormatFlags & floatNonInterleaved) != floatNonInterleaved ||
        format.mChannelsPerFrame < 1 || format.mChannelsPerFrame > maximumChannels ||
        !(format.mSampleRate >= 1.0) || format.mSampleRate > maximumRate)
        return status::unsupportedDataFormat;
    d->client = format;
    d->converter.setOutput(static_cast<int>(std::lround(format.mSampleRate)),
                           static_cast<int>(format.mChannelsPerFrame));
    return status::noError;
}

Status AudioFileReader::read(std::uint32_t &frames, AudioBufferList &list)
{
    const std::uint32_t channels = d ? d->client.mChannelsPerFrame : 0;
    decoding::ConvertedFrames out{.channels = {}, .capacity = frames, .count = 0};
    frames = 0;
    if (!d || !d->hasSamples || list.mNumberBuffers < channels)
        return status::unspecified;
    for (std::uint32_t i = 0; i < channels; ++i) {
        out.channels[i] = static_cast<float *>(list.mBuffers[i].mData);
        if (!out.channels[i])
            return status::unspecified;
    }
    const Status result = withoutExceptions([&] {
        d->converter.take(out);
        while (out.room() > 0 && !d->ended) {
            const AVFrame *frame = d->decoder.next();
            const Status converted =
                frame ? d->converter.push(*frame, out) : d->converter.finish(out);
            d->ended = !frame || converted != status::noError;
            if (!frame)
                d->failure = d->decoder.status();
            if (converted != status::noError)
                d->failure = converted;
        }
        return status::noError;
    });
    if (result != status::noError) {
        d->ended = true;
        d->failure = result;
    }
    frames = static_cast<std::uint32_t>(out.count);
    for (std::uint32_t i = 0; i < channels; ++i)
        list.mBuffers[i].mDataByteSize = frames * static_cast<std::uint32_t>(sizeof(float));
    // Frames decoded before a failure are delivered first.
    return frames > 0 ? status::noError : d->failure;
}

std::optional<std::uint64_t> AudioFileReader::estimatedFrames() const
{
    const auto seconds = d ? d->container.duration() : std::nullopt;
    // Beyond 2^53 frames a double is no longer exact. No song is that long.
    if (!seconds || *seconds * d->client.mSampleRate > 9.0e15)
        return std::nullopt;
    return static_cast<std::uint64_t>(std::ceil(*seconds * d->client.mSampleRate));
}

bool AudioFileReader::isEstimateSure() const
{
    return d && !d->container.isDurationGuessed();
}

std::optional<std::uint64_t> AudioFileReader::countedFrames(std::uint64_t limit) const
{
    std::optional<std::uint64_t> counted;
    withoutExceptions([&] {
        decoding::Container container; // A second one, because the first stays at its position.
        container.input().setStop(m_stop);
        const Status opened = d ? container.open(d->path, m_waitHook) : status::unspecified;
        if (opened == status::noError)
            counted = decoding::countFrames(container, d->client.mSampleRate, limit);
        return opened;
    });
    return counted;
}

std::optional<QByteArray> AudioFileReader::payloadHash(const QString &path,
                                                       const std::stop_token &stop) const
{
    std::optional<QByteArray> hash;
    withoutExceptions([&] {
        hash = decoding::payloadHash(path, stop);
        return status::noError;
    });
    return hash;
}

QByteArray AudioFileReader::albumArtwork() const
{
    return d ? albumArtworkOf(d->container) : QByteArray();
}

QMap<QString, QString> AudioFileReader::infoDictionary() const
{
    return d ? infoDictionaryOf(d->container) : QMap<QString, QString>();
}

} // namespace lyrabox
