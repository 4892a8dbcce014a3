#pragma once

#include "platform/decoding/AudioFileReader.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace lyrabox::test {

/// The result of decoding a file.
struct Decoded {
    Status status = status::noError; ///< Of open(), or of the read that ended decoding.
    std::vector<float> left;
    std::vector<float> right;
    std::vector<std::uint32_t> reads; ///< Number of frames that each read delivered.

    std::size_t frames() const { return left.size(); }
};

struct ReadOptions {
    std::uint32_t chunk = 8192;
    AudioStreamBasicDescription format = canonicalStreamFormat();
};

inline AudioBufferList bufferList(std::vector<float> &left, std::vector<float> &right)
{
    AudioBufferList list;
    list.mNumberBuffers = 2;
    list.mBuffers[0].mData = left.data();
    list.mBuffers[1].mData = right.data();
    return list;
}

inline Decoded readAll(AudioFileReader &reader, const ReadOptions &options = {})
{
    Decoded song;
    std::vector<float> left(options.chunk);
    std::vector<float> right(options.chunk);
    AudioBufferList list = bufferList(left, right);
    list.mNumberBuffers = options.format.mChannelsPerFrame;
    song.status = reader.setClientDataFormat(options.format);
    while (song.status == status::noError) {
        std::uint32_t frames = options.chunk;
        song.status = reader.read(frames, list);
        song.reads.push_back(frames);
        if (frames == 0)
            break;
        song.left.insert(song.left.end(), left.begin(), left.begin() + frames);
        song.right.insert(song.right.end(), right.begin(), right.begin() + frames);
    }
    return song;
}

inline Decoded readWholeFile(const QString &path, const ReadOptions &options = {})
{
    AudioFileReader reader;
    if (const Status status = reader.open(path); status != status::noError)
        return {.status = status, .left = {}, .right = {}, .reads = {}};
    return readAll(reader, options);
}

inline float peak(const std::vector<float> &samples)
{
    float most = 0.0F;
    for (const float sample : samples)
        most = std::max(most, std::abs(sample));
    return most;
}

} // namespace lyrabox::test
