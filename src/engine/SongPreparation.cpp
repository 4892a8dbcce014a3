#include "engine/SongPreparation.h"

#include "engine/SongDecoder.h"
#include "platform/foundation/DiskPatience.h"

#include <QScopeGuard>

#include <algorithm>
#include <utility>

namespace lyrabox::engine {

namespace {

using Clock = std::chrono::steady_clock;

/// What all songs together may still take if this one holds `taken` bytes already.
std::uint64_t remainingShare(const SongPreparation &order, std::uint64_t taken)
{
    const std::uint64_t available = order.availableMemory() / preparedShareOfMemory;
    const std::uint64_t share = available + (order.heldBytes + taken) / preparedShareOfMemory;
    const std::uint64_t all = order.heldBytes + taken;
    return share > all ? share - all : 0;
}

std::uint64_t longestSong(const AudioStreamBasicDescription &format)
{
    return static_cast<std::uint64_t>(longestPreparedSeconds * format.mSampleRate) *
           bytesPerFrameOf(format);
}

std::uint64_t roomFor(const SongPreparation &order, std::uint64_t taken)
{
    const std::uint64_t longest = longestSong(order.format);
    return std::min(remainingShare(order, taken), longest > taken ? longest - taken : 0);
}

/// A song of unknown length may begin. It is given up when it outgrows its room.
bool mayFit(const SongDecoder &decoder, const SongPreparation &order)
{
    const std::uint64_t frames = decoder.estimatedFrames().value_or(0);
    return frames <= roomFor(order, 0) / bytesPerFrameOf(order.format);
}

std::optional<PreparedSong> decodeSong(const SongPreparation &order, const std::stop_token &stop)
{
    const std::optional<files::FileIdentity> file = identityOf(order.path);
    if (!file || stop.stop_requested())
        return std::nullopt;
    std::atomic<std::uint64_t> &counted = order.count->bytes;
    std::uint64_t taken = 0;
    std::optional<PreparedSong> prepared;
    const auto discount = qScopeGuard([&] { counted -= taken; });
    {
        SongDecoder decoder(order.makeReader(), order.format,
                            {.room = [&](std::uint64_t bytes) { return roomFor(order, bytes); }});
        decoder.setStopToken(stop);
        if (decoder.open(order.path) != status::noError || !mayFit(decoder, order))
            return std::nullopt;
        const Status result = decoder.decode([&](std::uint64_t frames) {
            const std::uint64_t bytes = frames * bytesPerFrameOf(order.format);
            counted += bytes - std::exchange(taken, bytes);
        });
        if (result != status::noError)
            return std::nullopt;
        prepared = {.song = decoder.song(),
                    .artwork = decoder.artwork(),
                    .format = order.format,
                    .file = *file};
    }
    if (stop.stop_requested() || identityOf(order.path) != file)
        return std::nullopt;
    return prepared;
}

} // namespace

std::optional<files::FileIdentity> identityOf(const QString &path)
{
    return files::askPatiently<std::optional<files::FileIdentity>>(
               path, [path] { return files::fileIdentity(path); })
        .value_or(std::nullopt);
}

std::uint64_t PreparedSong::bytes() const
{
    return song->frames() * bytesPerFrameOf(format);
}

std::optional<PreparedSong> prepareSong(const SongPreparation &order, const std::stop_token &stop,
                                        std::chrono::milliseconds patience)
{
    if (order.count->threads >= mostBlockedPreparations)
        return std::nullopt;
    const auto prepared = std::make_shared<std::optional<PreparedSong>>();
    std::optional<Clock::time_point> stopped;
    ++order.count->threads;
    const bool isDone = files::runAbandonable(
        [order, stop, prepared] {
            *prepared = decodeSong(order, stop);
            --order.count->threads;
        },
        [&] {
            if (!stop.stop_requested())
                return true;
            if (!stopped)
                stopped = Clock::now();
            return Clock::now() - *stopped < patience;
        });
    return isDone ? std::move(*prepared) : std::nullopt;
}

} // namespace lyrabox::engine
