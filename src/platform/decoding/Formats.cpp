#include "platform/decoding/Formats.h"

#include "platform/decoding/FFmpeg.h"

#include <array>
#include <cstring>

namespace lyrabox::decoding {

namespace {

/// Whether `name` occurs in the comma-separated `list`.
bool isListed(std::string_view list, std::string_view name)
{
    while (!name.empty() && !list.empty()) {
        const auto comma = list.find(',');
        if (list.substr(0, comma) == name)
            return true;
        list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
    }
    return false;
}

} // namespace

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
    return "8svx_exp,8svx_fib,aac,aac_latm,ac3,acelp.kelvin,adpcm_4xm,adpcm_adx,"
           "adpcm_afc,adpcm_agm,adpcm_aica,adpcm_argo,adpcm_ct,adpcm_dtk,adpcm_ea,"
           "adpcm_ea_maxis_xa,adpcm_ea_r1,adpcm_ea_r2,adpcm_ea_r3,adpcm_ea_xas,"
           "adpcm_ima_acorn,adpcm_ima_alp,adpcm_ima_amv,adpcm_ima_apc,adpcm_ima_apm,"
           "adpcm_ima_cunning,adpcm_ima_dat4,adpcm_ima_dk3,adpcm_ima_dk4,"
           "adpcm_ima_ea_eacs,adpcm_ima_ea_sead,adpcm_ima_iss,adpcm_ima_moflex,"
           "adpcm_ima_mtf,adpcm_ima_oki,adpcm_ima_qt,adpcm_ima_rad,adpcm_ima_smjpeg,"
           "adpcm_ima_ssi,adpcm_ima_wav,adpcm_ima_ws,adpcm_ms,adpcm_mtaf,adpcm_psx,"
           "adpcm_sbpro_2,adpcm_sbpro_3,adpcm_sbpro_4,adpcm_swf,adpcm_thp,adpcm_thp_le,"
           "adpcm_vima,adpcm_xa,adpcm_yamaha,adpcm_zork,alac,als,amrnb,amrwb,ape,"
           "aptx,aptx_hd,atrac1,atrac3,atrac3al,atrac3plus,atrac3plusal,atrac9,"
           "binkaudio_dct,binkaudio_rdft,bmv_audio,comfortnoise,cook,dca,derf_dpcm,"
           "dfpwm,dolby_e,dsd_lsbf,dsd_lsbf_planar,dsd_msbf,dsd_msbf_planar,"
           "dsicinaudio,dss_sp,dst,dvaudio,eac3,evrc,fastaudio,flac,g722,g723_1,"
           "g726,g726le,g729,gremlin_dpcm,gsm,gsm_ms,hca,hcom,iac,ilbc,imc,"
           "interplay_dpcm,interplayacm,libcodec2,mace3,mace6,metasound,mlp,mp1,mp2,"
           "mp3adufloat,mp3float,mp3on4float,mpc7,mpc8,msnsiren,nellymoser,on2avc,"
           "opus,paf_audio,pcm_alaw,pcm_bluray,pcm_dvd,pcm_f16le,pcm_f24le,pcm_f32be,"
           "pcm_f32le,pcm_f64be,pcm_f64le,pcm_lxf,pcm_mulaw,pcm_s16be,"
           "pcm_s16be_planar,pcm_s16le,pcm_s16le_planar,pcm_s24be,pcm_s24daud,"
           "pcm_s24le,pcm_s24le_planar,pcm_s32be,pcm_s32le,pcm_s32le_planar,pcm_s64be,"
           "pcm_s64le,pcm_s8,pcm_s8_planar,pcm_sga,pcm_u16be,pcm_u16le,pcm_u24be,"
           "pcm_u24le,pcm_u32be,pcm_u32le,pcm_u8,pcm_vidc,qcelp,qdm2,qdmc,ralf,"
           "real_144,real_288,roq_dpcm,s302m,sbc,sdx2_dpcm,shorten,sipr,siren,"
           "smackaud,sol_dpcm,sonic,libspeex,speex,tak,truehd,truespeech,tta,"
           "twinvq,vmdaudio,vorbis,wavpack,wmalossless,wmapro,wmav1,wmav2,wmavoice,"
           "ws_snd1,xan_dpcm,xma1,xma2";
}

const AVCodec *audioDecoder(AVCodecID codec)
{
    // FFmpeg 7.1's own decoder outputs twice as many samples as it should for wide-band speech.
    if (codec == AV_CODEC_ID_SPEEX) {
        if (const AVCodec *speex = avcodec_find_decoder_by_name("libspeex"))
            return speex;
    }
    const AVCodec *usual = avcodec_find_decoder(codec);
    if (!usual || isListed(audioDecoders(), usual->name))
        return usual;
    void *position = nullptr;
    while (const AVCodec *other = av_codec_iterate(&position)) {
        if (other->id == codec && av_codec_is_decoder(other) != 0 &&
            isListed(audioDecoders(), other->name))
            return other;
    }
    return nullptr;
}

bool isAudioContainer(std::string_view demuxerNames)
{
    while (!demuxerNames.empty()) {
        const auto comma = demuxerNames.find(',');
        if (isListed(audioContainers(), demuxerNames.substr(0, comma)))
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

namespace {

/// Size in bytes of the MPEG audio frame of layer II or III whose header starts at `header`. 0 if
/// there is no such header.
std::size_t mpegFrameBytes(std::span<const std::uint8_t> header)
{
    // ISO 11172-3, 2.4.2.3, and its extension to half and quarter sampling rates.
    static constexpr std::array<std::uint16_t, 15> layerTwoRates = {
        0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384};
    static constexpr std::array<std::uint16_t, 15> layerThreeRates = {
        0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    static constexpr std::array<std::uint16_t, 15> lowRates = {0,  8,  16, 24,  32,  40,  48, 56,
                                                               64, 80, 96, 112, 128, 144, 160};
    static constexpr std::array<std::uint32_t, 3> sampleRates = {44100, 48000, 32000};
    if (header.size() < 4 || header[0] != 0xff || (header[1] & 0xe0U) != 0xe0U)
        return 0;
    const unsigned version = header[1] >> 3 & 3U; // 0: quarter, 2: half, 3: full sampling rate
    const unsigned layer = header[1] >> 1 & 3U;   // 1: III, 2: II, 3: I
    const unsigned bitrate = header[2] >> 4;
    const unsigned rate = header[2] >> 2 & 3U;
    if (version == 1 || layer == 0 || layer == 3 || bitrate == 0 || bitrate == 15 || rate == 3)
        return 0;
    const bool full = version == 3;
    const std::uint32_t hertz = sampleRates[rate] >> (full ? 0U : version == 2 ? 1U : 2U);
    const auto &rates = !full ? lowRates : layer == 2 ? layerTwoRates : layerThreeRates;
    const std::uint32_t slots = !full && layer == 1 ? 72U : 144U;
    return slots * 1000U * rates[bitrate] / hertz + (header[2] >> 1 & 1U);
}

} // namespace

std::size_t mp3FrameBytes(std::span<const std::uint8_t> header)
{
    const bool isLayerThree = header.size() >= 4 && (header[1] & 0x06U) == 0x02U;
    return isLayerThree ? mpegFrameBytes(header) : 0;
}

bool hasMpegFramesInARow(std::span<const std::uint8_t> bytes)
{
    for (std::size_t start = 0; start < bytes.size(); ++start) {
        std::size_t offset = start;
        int frames = 0;
        while (frames < 3 && offset < bytes.size()) {
            const std::size_t frameBytes = mpegFrameBytes(bytes.subspan(offset));
            // Version, layer and sampling rate stay the same within a song.
            if (frameBytes == 0 || (bytes[offset + 1] ^ bytes[start + 1]) & 0x1eU ||
                (bytes[offset + 2] ^ bytes[start + 2]) & 0x0cU)
                break;
            offset += frameBytes;
            ++frames;
        }
        if (frames == 3)
            return true;
    }
    return false;
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

} // namespace lyrabox::decoding
