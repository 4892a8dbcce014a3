#pragma once

#include "platform/decoding/FFmpeg.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Decides which files count as audio: lists the containers and codecs that FFmpeg may use here.
/// Any thread.
namespace lyrabox::decoding {

/// Comma-separated names of FFmpeg's demuxers for audio containers that hold their own data. The
/// list excludes everything that refers to other files or the network (playlists, concat, streaming
/// manifests), and pictures, text and headerless samples.
const char *audioContainers();

/// Comma-separated names of the decoders to use, one per codec. The list is our own, so that every
/// version of FFmpeg opens the same files. It also keeps FFmpeg from starting a picture or video
/// decoder while it analyses a file.
const char *audioDecoders();

/// Returns the decoder for a codec: one of audioDecoders(), or null.
const AVCodec *audioDecoder(AVCodecID codec);

/// Whether one of a demuxer's comma-separated names ("mov,mp4,m4a") is in audioContainers().
bool isAudioContainer(std::string_view demuxerNames);

/// Size in bytes of the ID3v2 tag that begins with `start`, including header and footer. `start`
/// must hold at least the first 10 bytes. 0 if there is no tag.
std::int64_t id3TagBytes(std::span<const std::uint8_t> start);

/// Size in bytes of the MPEG audio layer III frame whose four-byte header starts at `header`. 0 if
/// there is no such header.
std::size_t mp3FrameBytes(std::span<const std::uint8_t> header);

/// Whether three MPEG audio frames of layer II or III follow one another somewhere in `bytes`. In
/// programs, pictures and noise even two in a row are rare.
bool hasMpegFramesInARow(std::span<const std::uint8_t> bytes);

/// Returns the container if the first bytes after the ID3v2 tag identify it beyond doubt, otherwise
/// null. This recognises most songs at a fraction of the cost of asking every demuxer.
const AVInputFormat *containerBySignature(std::span<const std::uint8_t> bytes);

/// The result of probeContainer().
struct ProbeResult {
    const AVInputFormat *format = nullptr; ///< An audio container, or null.
    bool certain = false;                  ///< The content proves the format, not only the file
                                           ///< name.
    bool foreign = false;                  ///< The content is certainly not audio.
};

/// Determines the format of `bytes`, the beginning of a file after its ID3v2 tag. `extension`
/// ("mp3") only counts if the bytes leave the format open. AVPROBE_PADDING_SIZE zero bytes must
/// follow `bytes` in memory.
ProbeResult probeContainer(std::span<std::uint8_t> bytes, const std::string &extension);

} // namespace lyrabox::decoding
