#include "export/SongExport.h"

#include "export/PassReader.h"
#include "export/SongSource.h"
#include "platform/audio/ChannelStage.h"
#include "platform/audio/ClickMixer.h"
#include "platform/audio/DecodingModule.h"
#include "platform/audio/DenormalGuard.h"
#include "platform/audio/EncodingModule.h"
#include "platform/audio/GraphicEqualizer.h"
#include "platform/audio/OutputRenderer.h"
#include "platform/audio/TimePitch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <new>

namespace lyrabox {

namespace {

/// The stages are pulled as the output pulls them.
constexpr std::uint32_t chunkFrames = OutputRenderer::chunkFrames;
constexpr std::uint64_t framesPerReport = 8192;

bool isOneRate(const std::vector<ExportPass> &passes)
{
    return std::all_of(passes.begin(), passes.end(), [&passes](const ExportPass &pass) {
        return pass.rate == passes.front().rate;
    });
}

/// The stages of one export, from the song to the click mixer. The reader passes the song through
/// the channel tools.
class Stages {
public:
    Stages(const ExportRequest &request, SongSource &source)
        : m_reader(request, source, m_channels, m_clicks, m_timePitch),
          m_rate(request.passes.front().rate),
          m_isOneRate(isOneRate(request.passes))
    {}

    Status prepare(const ExportRequest &request);

    /// Renders up to chunkFrames frames. Returns how many there are; 0 at the end.
    std::uint32_t render();
    const float *channel(std::size_t index) const { return m_samples[index].data(); }

private:
    double heard() const;
    void takeRateChange();
    std::uint32_t framesToRender() const;
    double framesUntil(std::uint64_t place, double from) const;

    ClickSchedule m_clicks;
    ChannelStage m_channels;
    GraphicEqualizer m_equalizer;
    TimePitch m_timePitch;
    ClickMixer m_mixer;
    PassReader m_reader;
    std::array<std::array<float, chunkFrames>, 2> m_samples{};
    float m_rate;
    bool m_isOneRate;
    std::uint64_t m_rendered = 0;
};

Status Stages::prepare(const ExportRequest &request)
{
    try {
        m_channels.set(request.channels);
    } catch (const std::bad_alloc &) {
        return status::notEnoughMemory;
    }
    if (const Status status = m_equalizer.initialize())
        return status;
    for (std::uint32_t i = 0; i < request.levels.size(); ++i) {
        if (const Status status = m_equalizer.setParameter(i, request.levels[i]))
            return status;
    }
    if (const Status status = m_equalizer.setRenderCallback(PassReader::render, &m_reader))
        return status;
    if (const Status status = m_timePitch.initialize())
        return status;
    if (const Status status = m_timePitch.setParameter(parameter::rate, m_rate))
        return status;
    if (const Status status = m_timePitch.setParameter(parameter::pitch, request.pitchCents))
        return status;
    if (const Status status = m_timePitch.connect(&m_equalizer))
        return status;
    m_clicks.setTable(request.clicks);
    m_clicks.setSound(request.clickSound);
    if (const Status status = m_mixer.initialize())
        return status;
    return m_mixer.connect(&m_timePitch, &m_clicks);
}

/// The place in the stream that is rendered next.
double Stages::heard() const
{
    return static_cast<double>(m_reader.pulled()) - m_timePitch.account().held;
}

/// A pass takes its rate when its first frame is rendered, not when it is read ahead.
void Stages::takeRateChange()
{
    auto &changes = m_reader.rateChanges();
    while (!changes.empty() && heard() + 0.5 >= static_cast<double>(changes.front().at)) {
        m_rate = changes.front().rate;
        m_timePitch.setParameter(parameter::rate, m_rate);
        changes.pop_front();
    }
}

double Stages::framesUntil(std::uint64_t place, double from) const
{
    return std::ceil((static_cast<double>(place) - from) / soundingRate(m_rate) - 1e-6);
}

/// Ends with the last frame before the rate changes.
std::uint32_t Stages::framesToRender() const
{
    const auto &changes = m_reader.rateChanges();
    if (changes.empty())
        return chunkFrames;
    const double frames = framesUntil(changes.front().at, heard());
    return static_cast<std::uint32_t>(std::clamp(frames, 1.0, static_cast<double>(chunkFrames)));
}

std::uint32_t Stages::render()
{
    const DenormalGuard denormals; // as in the output, so that every sample is the same
    takeRateChange();
    const double before = heard();
    const std::uint32_t frames = framesToRender();
    AudioBufferList list;
    list.mNumberBuffers = 2;
    for (std::size_t i = 0; i < 2; ++i)
        list.mBuffers[i] = {1, frames * static_cast<std::uint32_t>(sizeof(float)),
                            m_samples[i].data()};
    m_mixer.render(frames, list);
    double left = frames;
    if (m_reader.hasEnded() && m_isOneRate)
        left = std::round(static_cast<double>(m_reader.length()) / soundingRate(m_rate)) -
               static_cast<double>(m_rendered);
    else if (m_reader.hasEnded())
        left = framesUntil(m_reader.length(), before);
    const auto count =
        static_cast<std::uint32_t>(std::clamp(left, 0.0, static_cast<double>(frames)));
    m_rendered += count;
    return count;
}

/// Whether the two paths lead to one file.
bool isSameFile(const QString &first, const QString &second)
{
    const auto one = files::fileStamp(first);
    const auto other = files::fileStamp(second);
    return one && other && one->device == other->device && one->inode == other->inode;
}

/// The export from the opened song to the complete file.
class Export {
public:
    Export(const ExportRequest &request, SongSource &source, SongWriter &writer,
           const std::stop_token &stop)
        : m_request(request), m_source(source), m_writer(writer), m_stop(stop)
    {}

    Status run(const std::function<void(double)> &advanced);

private:
    Status openWriter();

    const ExportRequest &m_request;
    SongSource &m_source;
    SongWriter &m_writer;
    const std::stop_token &m_stop;
    std::uint64_t m_expected = 0; ///< frames
};

Status Export::openWriter()
{
    SongDetails details = m_request.details;
    m_expected = exportedFrames(m_request.passes, m_source.estimatedFrames());
    details.frames = m_expected;
    return m_writer.open(m_request.target, m_request.format, details);
}

Status Export::run(const std::function<void(double)> &advanced)
{
    const auto stages = std::make_unique<Stages>(m_request, m_source);
    if (const Status status = stages->prepare(m_request))
        return status;
    if (const Status status = openWriter())
        return status;
    std::uint64_t written = 0;
    while (!m_stop.stop_requested()) {
        const std::uint32_t frames = stages->render();
        if (const Status status = m_source.error())
            return status;
        if (frames == 0)
            break;
        if (const Status status = m_writer.write(stages->channel(0), stages->channel(1), frames))
            return status;
        if (written / framesPerReport != (written + frames) / framesPerReport)
            advanced(
                std::min(1.0, static_cast<double>(written) /
                                  static_cast<double>(std::max<std::uint64_t>(m_expected, 1))));
        written += frames;
    }
    if (m_stop.stop_requested())
        return status::cancelled;
    return written > 0 ? status::noError : status::nothingToWrite;
}

} // namespace

ExportTools platformExportTools()
{
    return {.reader = [] { return decodingModule().makeSongReader(); },
            .writer = [] { return encodingModule().makeSongWriter(); }};
}

Status exportSong(const ExportRequest &request, const ExportTools &tools,
                  const std::stop_token &stop, const std::function<void(double)> &advanced)
{
    if (request.passes.empty())
        return status::nothingToWrite;
    if (!std::all_of(request.passes.begin(), request.passes.end(),
                     [](const ExportPass &pass) { return std::isfinite(pass.rate); }))
        return status::invalidParameter;
    if (isSameFile(request.source, request.target))
        return status::notWritable;
    const std::optional<files::FileStamp> stamp = files::fileStamp(request.source);
    if (request.sourceStamp && stamp && stamp != request.sourceStamp)
        return status::songChanged;

    SongSource source(tools.reader(), stop);
    if (const Status status = source.open(request.source))
        return stop.stop_requested() ? status::cancelled : status;
    const std::unique_ptr<SongWriter> writer = tools.writer();
    if (const Status status = Export(request, source, *writer, stop).run(advanced))
        return stop.stop_requested() ? status::cancelled : status;
    // What was read before and after a change would not be one song.
    if (files::fileStamp(request.source) != stamp)
        return status::songChanged;
    const Status status = writer->finish();
    if (status == status::noError)
        advanced(1.0);
    return status;
}

} // namespace lyrabox
