#pragma once

#include "platform/decoding/FFmpeg.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Which files are taken for audio: the containers and codecs that the reader lets FFmpeg use.
namespace lyrabox::decoding {

/// Names of FFmpeg's demuxers, separated by commas: containers of audio that hold their own data.
/// What leads to other files or to the network (playlists, concat, streaming manifests), pictures,
/// text and headerless samples are not among them.
const char *audioContainers();

/// Names of the decoders that are used, separated by commas, one for each codec. The list is this
/// program's own, so that every version of FFmpeg opens the same files; and it keeps FFmpeg from
/// starting a picture or video decoder while it analyses a file.
const char *audioDecoders();

/// The decoder for a codec: one of audioDecoders(), or null.
const AVCodec *audioDecoder(AVCodecID codec);

/// Whether one of a demuxer's names ("mov,mp4,m4a") is among the audio containers.
bool isAudioContainer(std::string_view demuxerNames);

/// Bytes that an ID3v2 tag at the start of a file takes, header and footer included; 0 when `start`
/// (at least 10 bytes of the file) is none.
std::int64_t id3TagBytes(std::span<const std::uint8_t> start);

/// Bytes of the MPEG audio layer III frame whose four-byte header starts at `header`; 0 when it is
/// none.
std::size_t mp3FrameBytes(std::span<const std::uint8_t> header);

/// Whether three MPEG audio frames of layer II or III follow one upon the other somewhere in
/// `bytes`. In programs, pictures and noise even two hardly ever do.
bool hasMpegFramesInARow(std::span<const std::uint8_t> bytes);

/// The container that the first bytes of a file, after its ID3v2 tag, name beyond doubt; null when
/// another look is needed. Most songs are told by it, at a small part of the cost of asking every
/// demuxer.
const AVInputFormat *containerBySignature(std::span<const std::uint8_t> bytes);

/// What probeContainer() has found out.
struct ProbeResult {
    const AVInputFormat *format = nullptr; ///< an audio container, or null
    bool certain = false;                  ///< the content says so, not only the file's name
    bool foreign = false;                  ///< the content is certainly something else
};

/// Judges what `bytes`, the beginning of a file after its ID3v2 tag, are. `extension` ("mp3") only
/// counts where the bytes leave it open. `bytes` must be followed by AVPROBE_PADDING_SIZE zero
/// bytes.
ProbeResult probeContainer(std::span<std::uint8_t> bytes, const std::string &extension);

} // namespace lyrabox::decoding
