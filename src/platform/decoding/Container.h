#pragma once

#include "platform/decoding/FFmpeg.h"
#include "platform/decoding/Input.h"

#include <optional>

namespace lyrabox::decoding {

/// Fewer frames per second are no sound: a few of them would stand for hours.
constexpr int minimumFileRate = 1000;

/// One opened audio file: its container and its first audio stream that something here decodes.
class Container {
public:
    /// Statuses as AudioFileReader::open(). `waitHook` as SongReader::setWaitHook().
    Status open(const QString &path, std::function<void()> waitHook = {});

    AVFormatContext *context() const { return m_context.get(); }
    AVStream *stream() const { return m_stream; }
    const AVCodec *decoder() const { return m_decoder; }
    Input &input() { return m_input; }

    /// Length in seconds as far as the container tells; none when it does not, or tells what the
    /// file's size belies.
    std::optional<double> duration() const;

    /// Whether the length was reckoned from the file's size and the bit rate of its beginning.
    bool isDurationGuessed() const
    {
        return m_context->duration_estimation_method == AVFMT_DURATION_FROM_BITRATE;
    }

private:
    Status probe(const QString &path);
    Status openContext();
    Status chooseStream();
    bool soundsLikeAudio();
    bool isComplete() const;

    Input m_input;
    const AVInputFormat *m_format = nullptr;
    bool m_certain = false;
    std::int64_t m_start = 0;             ///< of the content, behind the tag
    AvPointer<AVFormatContext> m_context; ///< reads from m_input, so it goes first
    AVStream *m_stream = nullptr;
    const AVCodec *m_decoder = nullptr;
};

/// Silences FFmpeg and bounds a single allocation of it. Once per process, any thread.
void prepareFFmpeg();

} // namespace lyrabox::decoding
