#include "platform/decoding/AudioFileReaderCrowds.h"

#include "platform/decoding/AudioFileReaderFormats.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace lyrabox {

namespace {

using namespace std::string_view_literals;

constexpr std::int64_t mostEntries = 10000;

/// Shorter ones have no room for so many that they matter.
constexpr std::int64_t shortTag = std::int64_t{256} << 10;
constexpr std::int64_t shortComments = std::int64_t{64} << 10;

/// Blocks or chunks of a file that are looked at.
constexpr int mostBlocks = 1000;

std::uint64_t number(std::span<const std::uint8_t> bytes, bool isLittle)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value = value << 8 | bytes[isLittle ? bytes.size() - 1 - i : i];
    return value;
}

bool isFrameCharacter(std::uint8_t c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether the name of an ID3v2 frame may begin here. In a picture, one byte in ten thousand looks
/// so.
bool looksLikeFrame(const std::uint8_t *at)
{
    const std::string_view name(reinterpret_cast<const char *>(at), 4);
    switch (*at) {
    case 'T':
        return isFrameCharacter(at[1]) && isFrameCharacter(at[2]);
    case 'A':
        return name == "APIC"sv;
    case 'C':
        return name == "CHAP"sv || name == "CTOC"sv || name == "COMM"sv;
    case 'G':
        return name == "GEOB"sv;
    case 'P':
        return name == "PRIV"sv;
    case 'U':
        return name == "USLT"sv;
    case 'W':
        return name == "WXXX"sv;
    default:
        return false;
    }
}

/// Names are looked for instead of following the frames' lengths: a tag may be scrambled, and its
/// frames may hold frames.
bool isCrowdedId3(const AudioFileReaderInput &input, FilePart part)
{
    constexpr std::int64_t overlap = 3;
    if (part.length < shortTag)
        return false;
    std::vector<std::uint8_t> bytes(std::size_t{64} << 10);
    std::int64_t entries = 0;
    for (std::int64_t done = 0; done < part.length && entries <= mostEntries;) {
        const auto wanted = std::min(part.length - done, static_cast<std::int64_t>(bytes.size()));
        const auto got = static_cast<std::int64_t>(input.peek(
            part.offset + done, std::span(bytes.data(), static_cast<std::size_t>(wanted))));
        for (std::int64_t i = 0; i + overlap < got; ++i)
            entries += looksLikeFrame(bytes.data() + i) ? 1 : 0;
        if (got <= overlap)
            break;
        done += got - overlap;
    }
    return entries > mostEntries;
}

/// All ID3v2 tags that follow one another at `offset`, without the first one's header.
FilePart id3TagsAt(const AudioFileReaderInput &input, std::int64_t offset)
{
    std::int64_t end = offset;
    for (int tag = 0; tag < mostBlocks; ++tag) {
        std::array<std::uint8_t, 10> start{};
        const std::int64_t bytes = id3TagBytes(std::span(start.data(), input.peek(end, start)));
        if (bytes == 0)
            break;
        end += bytes;
    }
    end = std::min(end, input.size());
    return {offset + 10, std::max<std::int64_t>(end - offset - 10, 0)};
}

void findInFlac(const AudioFileReaderInput &input, std::int64_t offset,
                std::vector<FilePart> &found)
{
    std::array<std::uint8_t, 4> head{};
    for (int block = 0; block < mostBlocks && input.peek(offset, head) == head.size(); ++block) {
        constexpr unsigned comments = 4;
        const FilePart content{
            offset + 4, static_cast<std::int64_t>(number(std::span(head).subspan(1), false))};
        if ((head[0] & 0x7fU) == comments && content.length >= shortComments) {
            std::array<std::uint8_t, 4> field{};
            input.peek(content.offset, field);
            const auto maker = static_cast<std::int64_t>(number(field, true));
            input.peek(content.offset + 4 + maker, field);
            if (static_cast<std::int64_t>(number(field, true)) > mostEntries)
                found.push_back(content);
        }
        if ((head[0] & 0x80U) != 0)
            break;
        offset = content.offset + content.length;
    }
}

void findInChunks(const AudioFileReaderInput &input, bool isLittle, std::vector<FilePart> &found)
{
    std::array<std::uint8_t, 8> head{};
    std::int64_t offset = 12;
    for (int chunk = 0; chunk < mostBlocks && input.peek(offset, head) == head.size(); ++chunk) {
        const auto length = static_cast<std::int64_t>(number(std::span(head).subspan(4), isLittle));
        const std::string_view name(reinterpret_cast<const char *>(head.data()), 4);
        if (name == "ID3 "sv || name == "id3 "sv) {
            const FilePart content{offset + 8, std::min(length, input.size() - offset - 8)};
            if (isCrowdedId3(input, content))
                found.push_back(content);
        }
        offset += 8 + length + (length & 1);
    }
}

} // namespace

std::vector<FilePart> crowdedTags(const AudioFileReaderInput &input)
{
    std::vector<FilePart> found;
    std::array<std::uint8_t, 12> start{};
    if (input.peek(0, start) != start.size())
        return found;
    std::int64_t song = 0;
    if (id3TagBytes(start) > 0) {
        const FilePart tags = id3TagsAt(input, 0);
        if (isCrowdedId3(input, tags))
            found.push_back(tags);
        song = tags.offset + tags.length;
        input.peek(song, start);
    }
    const std::string_view name(reinterpret_cast<const char *>(start.data()), 4);
    if (name == "fLaC"sv)
        findInFlac(input, song + 4, found);
    else if (song == 0 && (name == "RIFF"sv || name == "FORM"sv))
        findInChunks(input, name == "RIFF"sv, found);
    return found;
}

} // namespace lyrabox
