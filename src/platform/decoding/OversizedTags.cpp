#include "platform/decoding/OversizedTags.h"

#include "platform/decoding/Formats.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace lyrabox::decoding {

namespace {

using namespace std::string_view_literals;

constexpr std::int64_t maxEntries = 10000;

/// In bytes. Shorter tags have no room for a harmful number of entries.
constexpr std::int64_t shortTag = std::int64_t{256} << 10;
constexpr std::int64_t shortComments = std::int64_t{64} << 10;

/// How many blocks or chunks of a file are checked.
constexpr int maxBlocks = 1000;

enum class ByteOrder { Big, Little };

std::uint64_t number(std::span<const std::uint8_t> bytes, ByteOrder order)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        value = value << 8 | bytes[order == ByteOrder::Little ? bytes.size() - 1 - i : i];
    return value;
}

bool isFrameCharacter(std::uint8_t c)
{
    return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

/// Whether the name of an ID3v2 frame may begin here. In a picture, one byte in ten thousand
/// matches by chance.
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

/// Searches for frame names instead of following the frames' lengths, because a tag may be
/// scrambled and frames may contain frames.
bool hasTooManyId3Frames(const Input &input, FilePart part)
{
    constexpr std::int64_t overlap = 3;
    if (part.length < shortTag)
        return false;
    std::vector<std::uint8_t> bytes(std::size_t{64} << 10);
    std::int64_t entries = 0;
    for (std::int64_t done = 0; done < part.length && entries <= maxEntries;) {
        const auto wanted = std::min(part.length - done, static_cast<std::int64_t>(bytes.size()));
        const auto got = static_cast<std::int64_t>(input.peek(
            part.offset + done, std::span(bytes.data(), static_cast<std::size_t>(wanted))));
        for (std::int64_t i = 0; i + overlap < got; ++i)
            entries += looksLikeFrame(bytes.data() + i) ? 1 : 0;
        if (got <= overlap)
            break;
        done += got - overlap;
    }
    return entries > maxEntries;
}

/// The range of all consecutive ID3v2 tags at `offset`, without the first header.
FilePart id3TagsAt(const Input &input, std::int64_t offset)
{
    std::int64_t end = offset;
    for (int tag = 0; tag < maxBlocks; ++tag) {
        std::array<std::uint8_t, 10> start{};
        const std::int64_t bytes = id3TagBytes(std::span(start.data(), input.peek(end, start)));
        if (bytes == 0)
            break;
        end += bytes;
    }
    end = std::min(end, input.size());
    return {offset + 10, std::max<std::int64_t>(end - offset - 10, 0)};
}

void findInFlac(const Input &input, std::int64_t offset, std::vector<FilePart> &found)
{
    std::array<std::uint8_t, 4> head{};
    for (int block = 0; block < maxBlocks && input.peek(offset, head) == head.size(); ++block) {
        constexpr unsigned comments = 4;
        const FilePart content{offset + 4, static_cast<std::int64_t>(
                                               number(std::span(head).subspan(1), ByteOrder::Big))};
        if ((head[0] & 0x7fU) == comments && content.length >= shortComments) {
            std::array<std::uint8_t, 4> field{};
            input.peek(content.offset, field);
            const auto vendor = static_cast<std::int64_t>(number(field, ByteOrder::Little));
            input.peek(content.offset + 4 + vendor, field);
            if (static_cast<std::int64_t>(number(field, ByteOrder::Little)) > maxEntries)
                found.push_back(content);
        }
        if ((head[0] & 0x80U) != 0)
            break;
        offset = content.offset + content.length;
    }
}

void findInChunks(const Input &input, ByteOrder order, std::vector<FilePart> &found)
{
    std::array<std::uint8_t, 8> head{};
    std::int64_t offset = 12;
    for (int chunk = 0; chunk < maxBlocks && input.peek(offset, head) == head.size(); ++chunk) {
        const auto length = static_cast<std::int64_t>(number(std::span(head).subspan(4), order));
        const std::string_view name(reinterpret_cast<const char *>(head.data()), 4);
        if (name == "ID3 "sv || name == "id3 "sv) {
            const FilePart content{offset + 8, std::min(length, input.size() - offset - 8)};
            if (hasTooManyId3Frames(input, content))
                found.push_back(content);
        }
        offset += 8 + length + (length & 1);
    }
}

/// Adds up the sizes of the text tags of an MP4 file. FFmpeg keeps up to three copies of them.
class AtomWalker {
public:
    AtomWalker(const Input &input, std::vector<FilePart> &found) : m_input(input), m_found(found) {}

    void walk(std::int64_t offset, std::int64_t end, bool isTags = false, int depth = 0)
    {
        std::array<std::uint8_t, 16> head{};
        while (end - offset >= 8 && m_input.peek(offset, std::span(head).first(8)) == 8) {
            if (depth > 0 && ++m_atoms > maxEntries) {
                m_found.push_back({offset, end - offset});
                return;
            }
            auto length =
                static_cast<std::int64_t>(number(std::span(head).first(4), ByteOrder::Big));
            std::int64_t headBytes = 8;
            if (length == 1 && m_input.peek(offset, head) == head.size()) {
                headBytes = 16;
                length =
                    static_cast<std::int64_t>(number(std::span(head).subspan(8), ByteOrder::Big));
            } else if (length == 0) {
                length = end - offset;
            }
            if (length < headBytes || length > end - offset)
                length = end - offset;
            const std::string_view name(reinterpret_cast<const char *>(head.data()) + 4, 4);
            examine(name, {offset + headBytes, length - headBytes}, isTags, depth);
            m_hasHeader |= depth == 0 && name == "moov"sv;
            m_hasSound |= depth == 0 && name == "mdat"sv;
            if (depth == 0 && m_hasHeader && m_hasSound)
                return; // FFmpeg stops here, too. Thousands of fragments may follow.
            offset += length;
        }
    }

private:
    void examine(std::string_view name, FilePart content, bool isTags, int depth)
    {
        static constexpr std::array structure = {"moov"sv, "trak"sv, "mdia"sv, "minf"sv};
        static constexpr std::array tags = {"udta"sv, "meta"sv, "ilst"sv};
        constexpr int maxDepth = 10;
        const auto isAmong = [name](const auto &names) {
            return std::find(names.begin(), names.end(), name) != names.end();
        };
        if (depth < maxDepth && (isAmong(structure) || isAmong(tags))) {
            // A version field of four bytes usually comes first.
            std::array<std::uint8_t, 4> first{};
            const bool hasVersion = name == "meta"sv && m_input.peek(content.offset, first) == 4 &&
                                    number(first, ByteOrder::Big) == 0;
            walk(content.offset + (hasVersion ? 4 : 0), content.offset + content.length,
                 isAmong(tags), depth + 1);
        } else if (isTags) {
            const bool isCover = name == "covr"sv;
            (isCover ? m_covers : m_textBytes) += isCover ? 1 : content.length;
            if (isCover ? m_covers > maxCovers : m_textBytes > maxTextBytes)
                m_found.push_back(content);
        }
    }

    static constexpr std::int64_t maxTextBytes = std::int64_t{8} << 20;
    static constexpr std::int64_t maxCovers = 32; ///< Each one is a stream, and 64 streams are
                                                  ///< allowed.

    const Input &m_input;
    std::vector<FilePart> &m_found;
    std::int64_t m_atoms = 0;
    std::int64_t m_textBytes = 0;
    std::int64_t m_covers = 0;
    bool m_hasHeader = false;
    bool m_hasSound = false;
};

} // namespace

std::vector<FilePart> oversizedTags(const Input &input)
{
    std::vector<FilePart> found;
    std::array<std::uint8_t, 12> start{};
    if (input.peek(0, start) != start.size())
        return found;
    std::int64_t song = 0;
    if (id3TagBytes(start) > 0) {
        const FilePart tags = id3TagsAt(input, 0);
        if (hasTooManyId3Frames(input, tags))
            found.push_back(tags);
        song = tags.offset + tags.length;
        input.peek(song, start);
    }
    const std::string_view name(reinterpret_cast<const char *>(start.data()), 4);
    if (name == "fLaC"sv)
        findInFlac(input, song + 4, found);
    else if (song == 0 && (name == "RIFF"sv || name == "FORM"sv))
        findInChunks(input, name == "RIFF"sv ? ByteOrder::Little : ByteOrder::Big, found);
    else if (song == 0 && std::memcmp(start.data() + 4, "ftyp", 4) == 0)
        AtomWalker(input, found).walk(0, input.size());
    return found;
}

} // namespace lyrabox::decoding
