#include "platform/audio/AudioFileReaderFormats.h"

#include "platform/audio/AudioFileReaderFFmpeg.h"

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

ProbeResult probeContainer(std::span<std::uint8_t> bytes, const std::string &extension)
{
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
