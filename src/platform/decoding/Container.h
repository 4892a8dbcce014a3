#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/decoding/Input.h"

#include <optional>

namespace lyrabox::decoding {

/// In frames per second. Lower rates are refused: a few samples would play for hours.
constexpr int minimumFileRate = 1000;

/// An opened audio file: its container and the first audio stream that can be decoded. One thread
/// at a time.
class Container {
public:
    /// Opens the file at `path`. Returns the statuses of SongReader::open(). `waitHook` is called
    /// while the file is read, see SongReader::setWaitHook().
    Status open(const QString &path, std::function<void()> waitHook = {});

    /// Delivers the packets that the file stores, also those that an edit list of MP4 leaves out.
    /// Call it before open().
    void ignoreEditLists() { m_ignoresEditLists = true; }

    AVFormatContext *context() const { return m_context.get(); }
    AVStream *stream() const { return m_stream; }
    const AVCodec *decoder() const { return m_decoder; }
    Input &input() { return m_input; }

    /// The length in seconds. None if the container does not state it, or if the file is too small
    /// for the stated length.
    std::optional<double> duration() const;

    /// Whether the length was estimated from the file's size and the bit rate of its beginning.
    bool isDurationGuessed() const
    {
        return m_context->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE;
    }

private:
    Status probe(const QString &path);
    Status openContext();
    Status chooseStream();
    bool decodesAsAudio();
    bool isComplete() const;

    Input m_input;
    const AVInputFormat *m_format = nullptr;
    bool m_certain = false;
    bool m_ignoresEditLists = false;
    std::int64_t m_start = 0;             ///< Offset of the content after the ID3v2 tag.
    AvPointer<AVFormatContext> m_context; ///< Reads from m_input, so it must be destroyed first.
    AVStream *m_stream = nullptr;
    const AVCodec *m_decoder = nullptr;
};

/// Silences FFmpeg's log and limits the size of its allocations. Takes effect once per process. Any
/// thread.
void prepareFFmpeg();

} // namespace lyrabox::decoding
