#include "platform/decoding/PayloadHash.h"

#include "platform/decoding/Container.h"
#include "platform/decoding/Formats.h"
#include "platform/decoding/Packets.h"

#include <QCryptographicHash>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace lyrabox::decoding {

namespace {

using Bytes = std::span<const std::uint8_t>;

bool startsWith(Bytes bytes, std::string_view text)
{
    return bytes.size() >= text.size() &&
           std::equal(text.begin(), text.end(), bytes.begin(),
                      [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

std::uint32_t littleEndian32(Bytes bytes, std::size_t offset)
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i > 0; --i)
        value = value << 8 | bytes[offset + i - 1];
    return value;
}

/// Reads numbers of some bits, the most significant bit first.
class Bits {
public:
    explicit Bits(Bytes bytes) : m_bytes(bytes) {}

    unsigned take(unsigned count)
    {
        unsigned value = 0;
        for (; count > 0; --count, ++m_position) {
            const std::size_t byte = m_position / 8;
            const unsigned bit =
                byte < m_bytes.size() ? m_bytes[byte] >> (7 - m_position % 8) & 1U : 0U;
            value = value << 1 | bit;
        }
        return value;
    }
    bool isPastTheEnd() const { return m_position > m_bytes.size() * 8; }

private:
    Bytes m_bytes;
    std::size_t m_position = 0;
};

/// The sizes of samples of the codecs that store the same samples as another codec in reverse byte
/// order, and that other codec.
struct Reversed {
    AVCodecID codec;
    AVCodecID twin;
    std::size_t sampleBytes;
};
constexpr std::array reversedCodecs = {
    Reversed{AV_CODEC_ID_PCM_S16BE, AV_CODEC_ID_PCM_S16LE, 2},
    Reversed{AV_CODEC_ID_PCM_S24BE, AV_CODEC_ID_PCM_S24LE, 3},
    Reversed{AV_CODEC_ID_PCM_S32BE, AV_CODEC_ID_PCM_S32LE, 4},
    Reversed{AV_CODEC_ID_PCM_F32BE, AV_CODEC_ID_PCM_F32LE, 4},
    Reversed{AV_CODEC_ID_PCM_F64BE, AV_CODEC_ID_PCM_F64LE, 8},
};

const Reversed *reversed(AVCodecID codec)
{
    const auto *const found =
        std::find_if(reversedCodecs.begin(), reversedCodecs.end(),
                     [codec](const Reversed &entry) { return entry.codec == codec; });
    return found == reversedCodecs.end() ? nullptr : found;
}

/// Whether every frame states its sample rate and channels. Containers may then tell another rate:
/// that of the output, or none before a frame was decoded.
bool statesItsFormat(AVCodecID codec)
{
    switch (codec) {
    case AV_CODEC_ID_AAC:
    case AV_CODEC_ID_AC3:
    case AV_CODEC_ID_DTS:
    case AV_CODEC_ID_EAC3:
    case AV_CODEC_ID_MLP:
    case AV_CODEC_ID_MP1:
    case AV_CODEC_ID_MP2:
    case AV_CODEC_ID_MP3:
    case AV_CODEC_ID_OPUS:
    case AV_CODEC_ID_TRUEHD:
        return true;
    default:
        return false;
    }
}

/// Whether a frame of MPEG audio holds a table of the file instead of sound.
bool isMpegInfoFrame(Bytes frame)
{
    constexpr std::size_t vbriOffset = 36;
    if (frame.size() > vbriOffset && startsWith(frame.subspan(vbriOffset), "VBRI"))
        return true;
    const bool isFull = (frame[1] & 0x08U) != 0;
    const bool isMono = (frame[3] & 0xc0U) == 0xc0U;
    const std::size_t offset = 4 + (isFull ? (isMono ? 17U : 32U) : (isMono ? 9U : 17U));
    return frame.size() > offset &&
           (startsWith(frame.subspan(offset), "Xing") || startsWith(frame.subspan(offset), "Info"));
}

/// Hashes packets without what their container added to them.
class PayloadHasher {
public:
    explicit PayloadHasher(const AVCodecParameters &parameters)
        : m_codec(parameters.codec_id), m_reversed(reversed(m_codec))
    {
        const AVCodecID named = m_reversed ? m_reversed->twin : m_codec;
        addText("lyrabox payload 1 ");
        addText(avcodec_get_name(named));
        if (!statesItsFormat(m_codec)) {
            addNumber(parameters.sample_rate);
            addNumber(parameters.ch_layout.nb_channels);
        }
        if (m_codec == AV_CODEC_ID_AAC && parameters.extradata_size > 0) {
            if (const auto core = aacCoreOfConfig(
                    {parameters.extradata, static_cast<std::size_t>(parameters.extradata_size)}))
                addCore(*core);
        }
    }

    void add(Bytes packet)
    {
        switch (m_codec) {
        case AV_CODEC_ID_AAC:
            addAac(packet);
            break;
        case AV_CODEC_ID_MP1:
        case AV_CODEC_ID_MP2:
        case AV_CODEC_ID_MP3:
            addMpeg(packet);
            break;
        case AV_CODEC_ID_VORBIS: // The three headers have odd first bytes; one is the comment.
            if (!packet.empty() && (packet[0] & 1U) == 0)
                addPayload(packet);
            break;
        case AV_CODEC_ID_OPUS:
            if (!startsWith(packet, "OpusHead") && !startsWith(packet, "OpusTags"))
                addPayload(packet);
            break;
        case AV_CODEC_ID_WAVPACK:
            addWavPack(packet);
            break;
        default:
            if (m_reversed)
                addReversed(packet);
            else
                addPayload(packet);
        }
    }

    /// None if there was no sound at all.
    std::optional<QByteArray> result() const
    {
        return m_payloadBytes > 0 ? std::optional(m_hash.result().toHex()) : std::nullopt;
    }

private:
    void addText(std::string_view text)
    {
        m_hash.addData(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    }
    void addNumber(int number)
    {
        addText(" ");
        addText(std::to_string(number));
    }
    void addCore(const AacCore &core)
    {
        m_hasCore = true;
        addNumber(static_cast<int>(core.objectType));
        addNumber(static_cast<int>(core.rateIndex));
        addNumber(static_cast<int>(core.channels));
    }
    void addPayload(Bytes bytes)
    {
        m_hash.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
        m_payloadBytes += bytes.size();
    }

    /// Without the ADTS header, which only streams have.
    void addAac(Bytes packet)
    {
        AacCore core;
        const std::size_t header = adtsHeaderBytes(packet, core);
        if (header > 0 && !m_hasCore)
            addCore(core);
        addPayload(packet.subspan(header));
    }

    /// Only frames of sound: no table of the file, and no tag behind the last frame.
    void addMpeg(Bytes packet)
    {
        if (packet.size() < 4 || packet[0] != 0xff || (packet[1] & 0xe0U) != 0xe0U)
            return;
        if (const std::size_t frame = mp3FrameBytes(packet); frame > 0 && frame < packet.size())
            packet = packet.first(frame);
        if (!isMpegInfoFrame(packet))
            addPayload(packet);
    }

    /// Of each block's header only the number of samples, the flags and the checksum. Matroska
    /// keeps no more of it.
    void addWavPack(Bytes packet)
    {
        constexpr std::size_t headerBytes = 32;
        constexpr std::size_t keptOffset = 20;
        while (packet.size() >= headerBytes && startsWith(packet, "wvpk")) {
            const std::size_t block = std::size_t{littleEndian32(packet, 4)} + 8;
            const std::size_t size = std::clamp(block, headerBytes, packet.size());
            addPayload(packet.subspan(keptOffset, size - keptOffset));
            packet = packet.subspan(size);
        }
        addPayload(packet);
    }

    /// The samples of AIFF are those of WAV in reverse byte order.
    void addReversed(Bytes packet)
    {
        m_turned.assign(packet.begin(), packet.end());
        const std::size_t size = m_reversed->sampleBytes;
        for (std::size_t start = 0; start + size <= m_turned.size(); start += size)
            std::reverse(m_turned.begin() + static_cast<std::ptrdiff_t>(start),
                         m_turned.begin() + static_cast<std::ptrdiff_t>(start + size));
        addPayload(m_turned);
    }

    const AVCodecID m_codec;
    const Reversed *const m_reversed; ///< Null for most codecs.
    QCryptographicHash m_hash{QCryptographicHash::Blake2b_160};
    std::uint64_t m_payloadBytes = 0;
    bool m_hasCore = false;
    std::vector<std::uint8_t> m_turned;
};

} // namespace

std::optional<AacCore> aacCoreOfConfig(std::span<const std::uint8_t> config)
{
    constexpr unsigned bandReplication = 5;
    constexpr unsigned parametricStereo = 29;
    constexpr unsigned explicitRate = 15;
    Bits bits(config);
    const auto takeType = [&bits] {
        const unsigned type = bits.take(5);
        return type == 31 ? 32 + bits.take(6) : type;
    };
    const auto takeRate = [&bits] {
        const unsigned index = bits.take(4);
        return index == explicitRate ? bits.take(24) : index;
    };
    AacCore core;
    core.objectType = takeType();
    core.rateIndex = takeRate();
    core.channels = bits.take(4);
    if (core.objectType == bandReplication || core.objectType == parametricStereo) {
        takeRate(); // that of the output
        core.objectType = takeType();
    }
    return bits.isPastTheEnd() ? std::nullopt : std::optional(core);
}

std::size_t adtsHeaderBytes(std::span<const std::uint8_t> packet, AacCore &core)
{
    // No raw packet begins like this: its first three bits would announce its end.
    if (packet.size() < 7 || packet[0] != 0xff || (packet[1] & 0xf6U) != 0xf0U)
        return 0;
    Bits bits(packet.subspan(2));
    core.objectType = bits.take(2) + 1;
    core.rateIndex = bits.take(4);
    bits.take(1);
    core.channels = bits.take(3);
    const bool hasChecksum = (packet[1] & 1U) == 0;
    return std::min<std::size_t>(hasChecksum ? 9 : 7, packet.size());
}

std::optional<QByteArray> payloadHash(const QString &path, const std::stop_token &stop)
{
    Container container;
    container.input().setStop(stop);
    container.ignoreEditLists();
    if (container.open(path) != status::noError)
        return std::nullopt;
    Packets packets(container);
    const AvPointer<AVPacket> packet(av_packet_alloc());
    if (!packet)
        return std::nullopt;
    PayloadHasher hasher(*container.stream()->codecpar);
    while (!stop.stop_requested() && packets.next(*packet)) {
        container.input().progress();
        if (packet->size > 0)
            hasher.add({packet->data, static_cast<std::size_t>(packet->size)});
    }
    // What could not be read to its end would have another hash tomorrow.
    if (stop.stop_requested() || container.input().error() != status::noError)
        return std::nullopt;
    return hasher.result();
}

} // namespace lyrabox::decoding
