#include "platform/encoding/AudioFileWriter.h"

#include "platform/encoding/Encoders.h"
#include "platform/encoding/FFmpeg.h"
#include "platform/encoding/RateConverter.h"
#include "platform/encoding/Samples.h"
#include "platform/encoding/TargetFile.h"

#include <algorithm>
#include <array>

namespace lyrabox {

using namespace encoding;

namespace {

/// The length of a frame for encoders that take any.
constexpr int usualFrames = 4096;
constexpr qsizetype longestTag = 1000;
/// The header of a WAV file counts bytes with 32 bits. The rest is for the header and the tags.
constexpr std::uint64_t longestWav = 0xFFFF'FFFFU - (1U << 16);

void addTag(AVDictionary **tags, const char *name, const QString &text)
{
    if (!text.isEmpty())
        av_dict_set(tags, name, text.left(longestTag).toUtf8().constData(), 0);
}

} // namespace

struct AudioFileWriter::Private {
    SongFormat format{};
    TargetFile target;
    AvPointer<AVFormatContext> file;
    AvPointer<AVCodecContext> encoder;
    AvPointer<AVFrame> frame;
    AvPointer<AVPacket> packet;
    RateConverter rates;
    Dither dither;
    int filled = 0;                 ///< frames that `frame` holds
    std::int64_t encodedFrames = 0; ///< that the encoder was given
    std::int64_t packets = 0;       ///< that the encoder gave
    bool isEnding = false;          ///< the encoder has got its last frame

    Status statusOf(int error) const;
    Status openEncoder();
    Status beginFile(const SongDetails &details);
    Status allocateFrame();
    Status take(const float *left, const float *right, std::uint32_t frames);
    void fill(const float *left, const float *right, int frames);
    Status sendFrame();
    Status drain();
    Status statePadding();
};

/// The status for an error of FFmpeg. If the file could not be written, that is the reason.
Status AudioFileWriter::Private::statusOf(int error) const
{
    if (target.error() != status::noError)
        return target.error();
    if (error >= 0)
        return status::noError;
    return error == AVERROR(ENOMEM) ? status::notEnoughMemory : status::unspecified;
}

Status AudioFileWriter::Private::openEncoder()
{
    const Encoding &encoding = encodingOf(format);
    const AVCodec *const codec = avcodec_find_encoder_by_name(encoding.encoder);
    encoder.reset(avcodec_alloc_context3(codec));
    if (!encoder)
        return status::notEnoughMemory;
    encoder->sample_fmt = encoding.sampleFormat;
    encoder->sample_rate = encoding.sampleRate;
    encoder->time_base = {1, encoding.sampleRate};
    encoder->bit_rate = encoding.bitRate;
    encoder->thread_count = 1; // playing goes on, and needs the other cores
    av_channel_layout_default(&encoder->ch_layout, 2);
    if (encoding.sampleFormat == AV_SAMPLE_FMT_S32)
        encoder->bits_per_raw_sample = 24;
    if (format == SongFormat::Mp3) {
        encoder->flags |= AV_CODEC_FLAG_QSCALE; // variable bit rate
        encoder->global_quality = 0;
    }
    if ((file->oformat->flags & AVFMT_GLOBALHEADER) != 0)
        encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    return statusOf(avcodec_open2(encoder.get(), codec, nullptr));
}

Status AudioFileWriter::Private::beginFile(const SongDetails &details)
{
    AVStream *const stream = avformat_new_stream(file.get(), nullptr);
    if (stream == nullptr)
        return status::notEnoughMemory;
    stream->time_base = encoder->time_base;
    if (const Status result =
            statusOf(avcodec_parameters_from_context(stream->codecpar, encoder.get())))
        return result;
    // Ogg keeps the tags with the stream, the others with the file.
    AVDictionary **const tags = format == SongFormat::Opus ? &stream->metadata : &file->metadata;
    addTag(tags, "title", details.title);
    addTag(tags, "artist", details.artist);
    addTag(tags, "album", details.album);

    AVDictionary *options = nullptr;
    if (format == SongFormat::Mp3)
        av_dict_set(&options, "id3v2_version", "3", 0); // the newest that every player reads
    if (format == SongFormat::M4a) // the song's length is in these units; the usual ones are 1 ms
        av_dict_set_int(&options, "movie_timescale", encoder->sample_rate, 0);
    const auto bytes = static_cast<std::uint64_t>(av_get_bits_per_sample(encoder->codec_id)) / 4U;
    if (bytes > 0 && details.frames > longestWav / bytes)
        av_dict_set(&options, "rf64", "always", 0);
    const int result = avformat_write_header(file.get(), &options);
    av_dict_free(&options);
    return statusOf(result);
}

Status AudioFileWriter::Private::allocateFrame()
{
    frame.reset(av_frame_alloc());
    packet.reset(av_packet_alloc());
    if (!frame || !packet)
        return status::notEnoughMemory;
    frame->format = encoder->sample_fmt;
    frame->sample_rate = encoder->sample_rate;
    frame->nb_samples = encoder->frame_size > 0 ? encoder->frame_size : usualFrames;
    av_channel_layout_default(&frame->ch_layout, 2);
    return statusOf(av_frame_get_buffer(frame.get(), 0));
}

/// Collects frames at the encoder's rate, and encodes them when enough are there.
Status AudioFileWriter::Private::take(const float *left, const float *right, std::uint32_t frames)
{
    const int capacity = frame->nb_samples;
    while (frames > 0) {
        if (filled == 0) {
            if (const Status result = statusOf(av_frame_make_writable(frame.get())))
                return result;
        }
        const int count = std::min(capacity - filled, static_cast<int>(frames));
        fill(left, right, count);
        filled += count;
        left += count;
        right += count;
        frames -= static_cast<std::uint32_t>(count);
        if (filled < capacity)
            break;
        if (const Status result = sendFrame())
            return result;
    }
    return status::noError;
}

/// Appends `frames` frames to `frame`, as the samples that the encoder takes.
void AudioFileWriter::Private::fill(const float *left, const float *right, int frames)
{
    const auto interleave = [&](auto *samples, const auto &convert) {
        samples += 2 * static_cast<std::ptrdiff_t>(filled);
        for (int i = 0; i < frames; ++i) {
            *samples++ = convert(left[i]);
            *samples++ = convert(right[i]);
        }
    };
    std::uint8_t **const data = frame->data;
    switch (encodingOf(format).sampleFormat) {
    case AV_SAMPLE_FMT_S16:
        interleave(reinterpret_cast<std::int16_t *>(data[0]),
                   [this](float sample) { return toInt16(sample, dither); });
        break;
    case AV_SAMPLE_FMT_S32:
        interleave(reinterpret_cast<std::int32_t *>(data[0]), toInt24);
        break;
    case AV_SAMPLE_FMT_FLT:
        interleave(reinterpret_cast<float *>(data[0]), [](float sample) { return sample; });
        break;
    default:
        std::copy_n(left, frames, reinterpret_cast<float *>(data[0]) + filled);
        std::copy_n(right, frames, reinterpret_cast<float *>(data[1]) + filled);
    }
}

/// Encodes what `frame` holds. Only the last one may be shorter than the encoder's frame.
Status AudioFileWriter::Private::sendFrame()
{
    const int capacity = frame->nb_samples;
    frame->nb_samples = filled;
    frame->pts = encodedFrames;
    encodedFrames += filled;
    filled = 0;
    const int result = avcodec_send_frame(encoder.get(), frame.get());
    frame->nb_samples = capacity;
    return result < 0 ? statusOf(result) : drain();
}

/// Writes the packets that the encoder has ready.
Status AudioFileWriter::Private::drain()
{
    for (;;) {
        int result = avcodec_receive_packet(encoder.get(), packet.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF)
            return status::noError;
        ++packets;
        if (result >= 0 && isEnding && format == SongFormat::Mp3) {
            if (const Status status = statePadding())
                return status;
        }
        if (result >= 0) {
            av_packet_rescale_ts(packet.get(), encoder->time_base, file->streams[0]->time_base);
            packet->stream_index = 0;
            result = av_interleaved_write_frame(file.get(), packet.get());
        }
        if (const Status status = statusOf(result))
            return status;
    }
}

/// States in `packet`, one of the last, how many frames so far follow the song's end. The encoder
/// itself states only those of its last packet, but LAME may end with a packet and a part of
/// another.
Status AudioFileWriter::Private::statePadding()
{
    const std::int64_t padding =
        packets * encoder->frame_size - encoder->initial_padding - encodedFrames;
    if (padding <= 0)
        return status::noError;
    // Frames at the start and at the end, four bytes each, and two bytes of reasons. The encoder
    // has stated the start in its first packet.
    std::array<std::uint8_t, 10> values{};
    std::size_t size = 0;
    if (const std::uint8_t *const before =
            av_packet_get_side_data(packet.get(), AV_PKT_DATA_SKIP_SAMPLES, &size))
        std::copy_n(before, std::min(size, values.size()), values.begin());
    for (unsigned byte = 0; byte < 4; ++byte)
        values[4 + byte] = static_cast<std::uint8_t>(padding >> 8U * byte);
    std::uint8_t *const statement =
        av_packet_new_side_data(packet.get(), AV_PKT_DATA_SKIP_SAMPLES, values.size());
    if (statement == nullptr)
        return status::notEnoughMemory;
    std::copy(values.begin(), values.end(), statement);
    return status::noError;
}

AudioFileWriter::AudioFileWriter() : d(std::make_unique<Private>())
{
    // The statuses say what matters.
    [[maybe_unused]] static const bool isQuiet = [] {
        av_log_set_level(AV_LOG_QUIET);
        return true;
    }();
}

AudioFileWriter::~AudioFileWriter() = default;

Status AudioFileWriter::open(const QString &path, SongFormat format, const SongDetails &details)
{
    d->format = format;
    if (!isWritable(format))
        return status::missingEncoder;
    if (const Status result = d->target.create(path))
        return result;
    AVFormatContext *file = nullptr;
    const int error =
        avformat_alloc_output_context2(&file, nullptr, encodingOf(format).container, nullptr);
    d->file.reset(file);
    if (error < 0)
        return d->statusOf(error);
    file->pb = d->target.context();
    file->flags |= AVFMT_FLAG_CUSTOM_IO;
    if (const Status result = d->openEncoder())
        return result;
    if (const Status result = d->beginFile(details))
        return result;
    if (const Status result = d->rates.open(encodingOf(format).sampleRate))
        return result;
    return d->allocateFrame();
}

Status AudioFileWriter::write(const float *left, const float *right, std::uint32_t frames)
{
    return d->rates.push(left, right, frames,
                         [this](const float *l, const float *r, std::uint32_t count) {
                             return d->take(l, r, count);
                         });
}

Status AudioFileWriter::finish()
{
    Status result = d->rates.finish([this](const float *l, const float *r, std::uint32_t count) {
        return d->take(l, r, count);
    });
    if (result == status::noError && d->filled > 0)
        result = d->sendFrame();
    d->isEnding = true;
    if (result == status::noError)
        result = d->statusOf(avcodec_send_frame(d->encoder.get(), nullptr));
    if (result == status::noError)
        result = d->drain();
    if (result == status::noError)
        result = d->statusOf(av_write_trailer(d->file.get()));
    return result == status::noError ? d->target.commit() : result;
}

} // namespace lyrabox
