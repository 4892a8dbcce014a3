#include "platform/decoding/AudioFileReaderFormats.h"

#include "platform/decoding/AudioFileReaderFFmpeg.h"

#include <array>
#include <cstring>

namespace lyrabox {

const char *audioContainers()
{
    return "aac,ac3,ace,aiff,amr,amrnb,amrwb,ape,asf,ast,au,avr,caf,dsf,dts,dtshd,eac3,flac,gsm,"
           "hcom,iff,ircam,"
           "loas,m4a,matroska,mlp,mov,mp3,mp4,mpc,mpc8,nistsphere,ogg,oma,paf,pvf,qcp,rm,rso,sds,"
           "shn,sox,spdif,"
           "tak,truehd,tta,voc,vqf,w64,wav,webm,wsd,wv,wve,xwma,3gp,3g2";
}

const char *audioDecoders()
{
    static const std::string names = [] {
        std::string list;
        void *position = nullptr;
        while (const AVCodec *codec = av_codec_iterate(&position)) {
            if (codec->type == AVMEDIA_TYPE_AUDIO && av_codec_is_decoder(codec) != 0)
                list.append(list.empty() ? "" : ",").append(codec->name);
        }
        return list;
    }();
    return names.c_str();
}

bool isAudioContainer(std::string_view demuxerNames)
{
    const std::string listed = std::string(",") + audioContainers() + ",";
    while (!demuxerNames.empty()) {
        const auto comma = demuxerNames.find(',');
        const std::string_view name = demuxerNames.substr(0, comma);
        if (listed.find(',' + std::string(name) + ',') != std::string::npos)
            return true;
        demuxerNames.remove_prefix(comma == std::string_view::npos ? demuxerNames.size()
                                                                   : comma + 1);
    }
    return false;
}

std::int64_t id3TagBytes(std::span<const std::uint8_t> start)
{
    if (start.size() < 10 || std::memcmp(start.data(), "ID3", 3) != 0 || start[3] == 0xff ||
        start[4] == 0xff)
        return 0;
    std::int64_t bytes = 0;
    for (std::size_t i = 6; i < 10; ++i) {
        if ((start[i] & 0x80U) != 0)
            return 0;
        bytes = bytes << 7 | start[i];
    }
    const bool hasFooter = (start[5] & 0x10U) != 0;
    return 10 + bytes + (hasFooter ? 10 : 0);
}

std::size_t mp3FrameBytes(std::span<const std::uint8_t> header)
{
    // ISO 11172-3, 2.4.2.3, and its extension to half and quarter sampling rates.
    static constexpr std::array<std::uint16_t, 15> fullRates = {
        0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    static constexpr std::array<std::uint16_t, 15> lowRates = {0,  8,  16, 24,  32,  40,  48, 56,
                                                               64, 80, 96, 112, 128, 144, 160};
    static constexpr std::array<std::uint32_t, 3> sampleRates = {44100, 48000, 32000};
    if (header.size() < 4 || header[0] != 0xff || (header[1] & 0xe6U) != 0xe2U)
        return 0;
    const unsigned version = header[1] >> 3 & 3U; // 0: quarter, 2: half, 3: full sampling rate
    const unsigned bitrate = header[2] >> 4;
    const unsigned rate = header[2] >> 2 & 3U;
    if (version == 1 || bitrate == 0 || bitrate == 15 || rate == 3)
        return 0;
    const bool full = version == 3;
    const std::uint32_t hertz = sampleRates[rate] >> (full ? 0U : version == 2 ? 1U : 2U);
    const std::uint32_t bitsPerSecond = 1000U * (full ? fullRates[bitrate] : lowRates[bitrate]);
    return (full ? 144U : 72U) * bitsPerSecond / hertz + (header[2] >> 1 & 1U);
}

const AVInputFormat *containerBySignature(std::span<const std::uint8_t> bytes)
{
    using namespace std::string_view_literals;
    const std::string_view text(reinterpret_cast<const char *>(bytes.data()), bytes.size());
    const auto has = [&](std::size_t offset, std::string_view what) {
        return text.size() >= offset + what.size() && text.substr(offset, what.size()) == what;
    };
    if (has(0, "fLaC\0\0\0\x22"sv))
        return av_find_input_format("flac");
    if (has(0, "OggS\0"sv))
        return av_find_input_format("ogg");
    if (has(4, "ftyp"sv))
        return av_find_input_format("mov");
    if (has(0, "RIFF"sv) && has(8, "WAVEfmt "sv))
        return av_find_input_format("wav");
    if (has(0, "FORM"sv) && (has(8, "AIFF"sv) || has(8, "AIFC"sv)))
        return av_find_input_format("aiff");
    std::size_t offset = 0;
    for (int frame = 0; frame < 3; ++frame) {
        const std::size_t frameBytes =
            offset < bytes.size() ? mp3FrameBytes(bytes.subspan(offset)) : 0;
        if (frameBytes == 0)
            return nullptr;
        offset += frameBytes;
    }
    return av_find_input_format("mp3");
}

ProbeResult probeContainer(std::span<std::uint8_t> bytes, const std::string &extension)
{
    if (const AVInputFormat *known = containerBySignature(bytes))
        return {.format = known, .certain = true};
    const std::string name = "song." + extension;
    AVProbeData data = {};
    data.filename = name.c_str();
    data.buf = bytes.data();
    data.buf_size = static_cast<int>(bytes.size());
    int score = 0;
    const AVInputFormat *format = av_probe_input_format3(&data, 1, &score);
    if (!format)
        return {};
    const bool certain = score > AVPROBE_SCORE_RETRY;
    if (!isAudioContainer(format->name))
        return {.foreign = certain};
    if (!certain && av_match_ext(data.filename, format->extensions) == 0)
        return {};
    return {.format = format, .certain = certain};
}

} // namespace lyrabox
