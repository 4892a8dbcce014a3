#include "platform/decoding/Container.h"

#include "platform/decoding/Decoder.h"
#include "platform/decoding/Formats.h"
#include "platform/decoding/OversizedTags.h"

#include <QFileInfo>

#include <algorithm>
#include <array>
#include <mutex>
#include <string_view>
#include <vector>

namespace lyrabox::decoding {

namespace {

constexpr int maximumFileChannels = 64;
constexpr int maximumFileRate = 768000;

/// Upper bound for one allocation by FFmpeg. No tag, table or picture worth reading needs more.
constexpr std::size_t maximumAllocation = std::size_t{64} << 20;

/// ID3v2 tags above this size are skipped. FFmpeg cannot read one without its pictures.
constexpr std::int64_t maximumTag = std::int64_t{36} << 20;

/// How many bytes are probed, step by step, to find out the format.
constexpr std::array<std::size_t, 3> probeSizes = {std::size_t{4} << 10, std::size_t{32} << 10,
                                                   std::size_t{256} << 10};

int denyNestedOpen(AVFormatContext *, AVIOContext **, const char *, int, AVDictionary **)
{
    return AVERROR(EACCES);
}

} // namespace

void prepareFFmpeg()
{
    static std::once_flag once;
    std::call_once(once, [] {
        av_log_set_level(AV_LOG_QUIET);
        av_max_alloc(maximumAllocation);
    });
}

Status Container::open(const QString &path, std::function<void()> waitHook)
{
    prepareFFmpeg();
    m_input.setWaitHook(std::move(waitHook));
    Status result = m_input.open(path);
    if (result == status::noError)
        result = probe(path);
    if (result == status::noError) {
        for (const FilePart &part : oversizedTags(m_input))
            m_input.blank(part.offset, part.length);
        const std::string_view demuxer = m_format->name;
        if (demuxer == "ogg")
            m_input.setInspector(makeOggInspector(m_input));
        else if (demuxer.starts_with("matroska"))
            m_input.setInspector(makeMatroskaInspector(m_input));
        result = openContext();
    }
    if (result == status::noError && !m_certain) {
        if (!decodesAsAudio())
            return status::unsupportedFileType;
        result = openContext();
    }
    m_input.progress();
    m_input.endOpening();
    return result;
}

/// Returns whether the beginning decodes, because a file name alone proves nothing. The context has
/// to be opened again afterwards.
bool Container::decodesAsAudio()
{
    // FFmpeg recognises a frame of MPEG audio by its first bits. A long program contains many such
    // bits, and FFmpeg would decode what follows them as sound.
    if (m_format->name == std::string_view("mp3")) {
        std::vector<std::uint8_t> bytes(probeSizes.back());
        bytes.resize(m_input.peek(m_start, bytes));
        if (!hasMpegFramesInARow(bytes))
            return false;
    }
    Decoder decoder;
    if (decoder.open(*this, 1) != status::noError)
        return false;
    int frames = 0;
    while (frames < 8 && decoder.next())
        ++frames;
    return frames > decoder.damagedPackets();
}

Status Container::probe(const QString &path)
{
    std::array<std::uint8_t, 10> start{};
    std::int64_t tag = id3TagBytes(std::span(start.data(), m_input.peek(0, start)));
    if (tag > maximumTag) {
        m_input.hideStart(tag);
        tag = 0;
    }
    m_start = tag;
    // The name only counts if the content leaves the format open. Its extension is enough.
    const std::string extension = QFileInfo(path).suffix().toLower().left(8).toStdString();
    for (const std::size_t size : probeSizes) {
        std::vector<std::uint8_t> bytes(size + AVPROBE_PADDING_SIZE);
        const std::size_t got = m_input.peek(tag, std::span(bytes.data(), size));
        if (got == 0)
            break;
        const auto result = probeContainer(std::span(bytes.data(), got), extension);
        if (result.foreign)
            break;
        m_format = result.format;
        m_certain = result.certain;
        if (m_certain || got < size)
            break;
    }
    return m_format ? status::noError : status::unsupportedFileType;
}

Status Container::openContext()
{
    m_stream = nullptr;
    m_context.reset();
    AVFormatContext *context = avformat_alloc_context();
    if (!context)
        return status::notEnoughMemory;
    m_input.setReadLimit(Input::readLimit);
    avio_seek(m_input.context(), 0, SEEK_SET);
    context->pb = m_input.context();
    context->io_open = denyNestedOpen;
    context->max_streams = 64;
    context->probesize = std::int64_t{1} << 20;
    AVDictionary *options = nullptr;
    av_dict_set(&options, "format_whitelist", audioContainers(), 0);
    av_dict_set(&options, "codec_whitelist", audioDecoders(), 0);
    av_dict_set(&options, "protocol_whitelist", "", 0);
    if (m_ignoresEditLists)
        av_dict_set(&options, "ignore_editlist", "1", 0);
    const int error = avformat_open_input(&context, "", m_format, &options);
    av_dict_free(&options);
    if (error == AVERROR(ENOMEM))
        return status::notEnoughMemory;
    if (error < 0)
        return m_certain ? status::invalidFile : status::unsupportedFileType;
    m_context.reset(context);
    // The tag has been read by now. Only audio data should follow.
    if (m_format->name == std::string_view("mp3")) {
        m_input.progress();
        m_input.setReadLimit(Input::keptReadLimit);
    }
    return chooseStream();
}

Status Container::chooseStream()
{
    const auto choose = [this] {
        bool hasAudio = false;
        for (unsigned i = 0; i < m_context->nb_streams && !m_stream; ++i) {
            AVStream *stream = m_context->streams[i];
            if (stream->codecpar->codec_type != AVMEDIA_TYPE_AUDIO)
                continue;
            hasAudio = true;
            m_decoder = audioDecoder(stream->codecpar->codec_id);
            if (m_decoder && m_decoder->type == AVMEDIA_TYPE_AUDIO)
                m_stream = stream;
        }
        return hasAudio;
    };
    bool hasAudio = choose();
    if (!m_stream || !isComplete()) {
        // The header was not enough. Read a few packets.
        if (avformat_find_stream_info(m_context.get(), nullptr) == AVERROR(ENOMEM))
            return status::notEnoughMemory;
        m_stream = nullptr;
        hasAudio = choose();
    }
    if (!m_stream)
        return hasAudio ? status::unsupportedDataFormat : status::unsupportedFileType;
    for (unsigned i = 0; i < m_context->nb_streams; ++i) {
        if (m_context->streams[i] != m_stream)
            m_context->streams[i]->discard = AVDISCARD_ALL;
    }
    const AVCodecParameters &parameters = *m_stream->codecpar;
    if (parameters.sample_rate <= 0 || parameters.ch_layout.nb_channels <= 0)
        return m_certain ? status::invalidFile : status::unsupportedFileType;
    if (parameters.sample_rate < minimumFileRate || parameters.sample_rate > maximumFileRate ||
        parameters.ch_layout.nb_channels > maximumFileChannels)
        return status::unsupportedDataFormat;
    return status::noError;
}

bool Container::isComplete() const
{
    const AVCodecParameters &parameters = *m_stream->codecpar;
    return parameters.sample_rate > 0 && parameters.ch_layout.nb_channels > 0 && duration();
}

std::optional<double> Container::duration() const
{
    double seconds = 0.0;
    if (m_stream->duration > 0 && m_stream->duration != AV_NOPTS_VALUE)
        seconds = static_cast<double>(m_stream->duration) * av_q2d(m_stream->time_base);
    else if (m_context->duration > 0 && m_context->duration != AV_NOPTS_VALUE)
        seconds = static_cast<double>(m_context->duration) / AV_TIME_BASE;
    if (seconds <= 0.0)
        return std::nullopt;

    const AVCodecParameters &parameters = *m_stream->codecpar;
    const double bits = 8.0 * static_cast<double>(m_input.size());
    const int sampleBits = av_get_exact_bits_per_sample(parameters.codec_id);
    if (sampleBits > 0) {
        const double bitsPerSecond = static_cast<double>(sampleBits) *
                                     parameters.ch_layout.nb_channels * parameters.sample_rate;
        return std::min(seconds, bits / bitsPerSecond);
    }
    // Even digital silence takes more bits than that.
    constexpr double minBitsPerSecond = 16.0;
    return bits / seconds < minBitsPerSecond ? std::nullopt : std::optional(seconds);
}

} // namespace lyrabox::decoding
