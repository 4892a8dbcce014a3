#include "engine/Artwork.h"
#include "fuzz/targets/FuzzTargets.h"
#include "platform/decoding/AudioFileReader.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <stop_token>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox::fuzz {

namespace {

/// Frames to decode at most. Decoding more costs time and finds nothing.
constexpr std::uint64_t maxFrames = 44100 * 20;

/// The file name can decide if the content is ambiguous. The first byte chooses the name, so the
/// fuzzer controls it.
QString songName(Bytes bytes)
{
    static const std::array names = {"song"_L1,      "song.mp3"_L1, "song.m4a"_L1, "song.aac"_L1,
                                     "song.flac"_L1, "song.ogg"_L1, "song.wav"_L1, "song.ac3"_L1,
                                     "song.ape"_L1,  "song.mka"_L1, "song.amr"_L1, "song.dts"_L1};
    return names[bytes.empty() ? 0 : bytes.back() % names.size()];
}

bool isReadersStatus(Status status)
{
    constexpr std::array known = {status::noError,
                                  status::notEnoughMemory,
                                  status::unsupportedFileType,
                                  status::unsupportedDataFormat,
                                  status::invalidFile,
                                  status::unspecified};
    return std::find(known.begin(), known.end(), status) != known.end();
}

void noteSong(const AudioFileReader &reader, Status status, std::uint64_t frames)
{
    AudioStreamBasicDescription format{};
    reader.fileDataFormat(format);
    std::size_t kind = static_cast<std::size_t>(static_cast<std::uint32_t>(status));
    kind = kind * 31 + static_cast<std::size_t>(std::bit_width(frames));
    kind = kind * 31 + format.mChannelsPerFrame;
    kind = kind * 31 + format.mBitsPerChannel;
    kind = kind * 31 +
           static_cast<std::size_t>(std::bit_width(static_cast<std::uint32_t>(format.mSampleRate)));
    noteBehaviour(kind);
}

} // namespace

void audio(Bytes bytes)
{
    AudioFileReader reader;
    Status result = reader.open(writtenFile(songName(bytes), bytes));
    require(isReadersStatus(result), "opening answers with a status of its contract");
    if (result != status::noError) {
        noteBehaviour(static_cast<std::uint32_t>(result));
        return;
    }
    require(reader.setClientDataFormat(canonicalStreamFormat()) == status::noError,
            "every song is converted to the canonical format");
    constexpr std::uint32_t chunk = 8192;
    static std::vector<float> left(chunk);
    static std::vector<float> right(chunk);
    AudioBufferList list;
    list.mNumberBuffers = 2;
    std::uint64_t total = 0;
    while (total < maxFrames) {
        list.mBuffers[0].mData = left.data();
        list.mBuffers[1].mData = right.data();
        std::uint32_t frames = chunk;
        result = reader.read(frames, list);
        require(frames <= chunk, "no more is delivered than was asked for");
        require(isReadersStatus(result), "reading answers with a status of its contract");
        const auto isFinite = [](float sample) { return std::isfinite(sample); };
        require(std::all_of(left.begin(), left.begin() + frames, isFinite) &&
                    std::all_of(right.begin(), right.begin() + frames, isFinite),
                "samples are numbers");
        total += frames;
        if (frames == 0 || result != status::noError)
            break;
    }
    noteSong(reader, result, total);
}

void identity(Bytes bytes)
{
    const QString song = writtenFile(songName(bytes), bytes);
    const AudioFileReader reader;
    const auto hash = reader.payloadHash(song, {});
    noteBehaviour(hash ? 2 : 1);
    require(reader.payloadHash(song, {}) == hash, "a song has one hash");
    if (!hash)
        return;
    require(hash->size() == 40 && QByteArray::fromHex(*hash).toHex() == *hash,
            "a hash has 40 digits");
    std::stop_source source;
    source.request_stop();
    require(!reader.payloadHash(song, source.get_token()), "hashing can be stopped");
    AudioFileReader opened;
    require(opened.open(song, AudioFileReader::Depth::Tags) == status::noError,
            "what has a hash can be opened");
}

void tags(Bytes bytes)
{
    AudioFileReader reader;
    const Status result =
        reader.open(writtenFile(songName(bytes), bytes), AudioFileReader::Depth::Tags);
    require(isReadersStatus(result), "opening answers with a status of its contract");
    const QMap<QString, QString> info = reader.infoDictionary();
    std::size_t kind = static_cast<std::uint32_t>(result);
    for (auto entry = info.begin(); entry != info.end(); ++entry) {
        require(!entry.value().isEmpty() && entry.value().size() <= (64 << 10),
                "tags are neither empty nor endless");
        kind = kind * 31 + qHash(entry.key());
        kind = kind * 31 + static_cast<std::size_t>(
                               std::bit_width(static_cast<std::size_t>(entry.value().size())));
    }
    const QByteArray picture = reader.albumArtwork();
    kind = kind * 31 +
           static_cast<std::size_t>(std::bit_width(static_cast<std::size_t>(picture.size())));
    noteBehaviour(kind);
    const QImage image = decodedArtwork(picture);
    require(image.width() <= maximumArtworkSide && image.height() <= maximumArtworkSide,
            "artwork keeps its limit");
}

void artwork(Bytes bytes)
{
    const QImage image = decodedArtwork(byteArray(bytes));
    require(image.width() <= maximumArtworkSide && image.height() <= maximumArtworkSide,
            "artwork keeps its limit");
    std::size_t kind = static_cast<std::size_t>(image.format());
    kind =
        kind * 31 + static_cast<std::size_t>(std::bit_width(static_cast<unsigned>(image.width())));
    kind =
        kind * 31 + static_cast<std::size_t>(std::bit_width(static_cast<unsigned>(image.height())));
    noteBehaviour(kind);
}

} // namespace lyrabox::fuzz
