#include "platform/decoding/Inspector.h"

#include "platform/decoding/Input.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace lyrabox::decoding {

namespace {

using namespace std::string_view_literals;

/// FFmpeg's time grows with the sum of the squares of the numbers of entries, and it reads comments
/// within the sound several times.
constexpr std::int64_t maxEntries = 3000;
constexpr std::int64_t maxWork = maxEntries * maxEntries;

/// FFmpeg holds up to seven copies of a packet at once.
constexpr std::int64_t maxPacketBytes = std::int64_t{8} << 20;

/// In a chain of more streams than this, the older ones count as ended.
constexpr std::size_t maxStreams = 1000;

/// Within this many packets from the start of a stream, one may hold comments without a signature.
constexpr int maxHeaders = 4;

/// Each page takes two. With every stream of a chain that has too many comments, FFmpeg's memory
/// gets more fragmented.
constexpr std::size_t maxPatches = 200;

constexpr std::size_t headBytes = 27;
constexpr std::size_t checksumOffset = 22;
constexpr std::size_t maxPageBytes = headBytes + 255 + 255 * std::size_t{255};

std::uint32_t little32(const std::uint8_t *at)
{
    return std::uint32_t{at[0]} | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16 |
           std::uint32_t{at[3]} << 24;
}

/// Checksum of a page. Its own checksum field counts as zero: RFC 3533, section 6.
std::uint32_t checksum(std::span<const std::uint8_t> page)
{
    static constexpr auto table = [] {
        std::array<std::uint32_t, 256> values{};
        for (std::uint32_t i = 0; i < values.size(); ++i) {
            std::uint32_t value = i << 24;
            for (int bit = 0; bit < 8; ++bit)
                value = value << 1 ^ ((value >> 31) != 0 ? 0x04c11db7U : 0U);
            values[i] = value;
        }
        return values;
    }();
    std::uint32_t sum = 0;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const bool isOwn = i >= checksumOffset && i < checksumOffset + 4;
        sum = sum << 8 ^ table[(sum >> 24) ^ (isOwn ? 0U : page[i])];
    }
    return sum;
}

std::string_view textOf(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

/// What a stream holds, according to its first packet. FFmpeg recognises comments by it.
enum class Kind { Unknown, Flac, Bare, Ogm };

Kind kindOf(std::span<const std::uint8_t> packet)
{
    const std::string_view text = textOf(packet);
    if (text.starts_with("\x7f"
                         "FLAC"sv))
        return Kind::Flac;
    if (text.starts_with("Speex   "sv) || text.starts_with("CELT    "sv))
        return Kind::Bare;
    return text.starts_with("\x01"sv) ? Kind::Ogm : Kind::Unknown;
}

/// Offset of the comments in a packet, after the signature. None if the packet holds no comments.
std::optional<std::size_t> commentsIn(std::span<const std::uint8_t> packet, Kind kind)
{
    const std::string_view text = textOf(packet);
    if (text.starts_with("\x03vorbis"sv) || text.starts_with("\x81theora"sv) ||
        text.starts_with("OVP80\x02 "sv) || (kind == Kind::Ogm && text.starts_with('\x03')))
        return 7;
    if (text.starts_with("OpusTags"sv))
        return 8;
    if (kind == Kind::Flac && (text.starts_with('\x04') || text.starts_with('\x84')))
        return 4;
    if (kind == Kind::Bare)
        return 0;
    return std::nullopt;
}

class OggInspector : public Inspector {
public:
    explicit OggInspector(const Input &input) : m_input(input) {}

    std::size_t inspect(std::int64_t offset, std::span<std::uint8_t> bytes) override
    {
        const auto size = static_cast<std::int64_t>(bytes.size());
        // When FFmpeg jumps ahead it only reads the time of a page there.
        if (offset <= m_inspected) {
            while (m_inspected < offset + size && !m_end)
                inspectPage();
        }
        if (m_end && *m_end < offset + size)
            return static_cast<std::size_t>(std::max<std::int64_t>(*m_end - offset, 0));
        for (auto patch = m_patches.lower_bound(offset - 3);
             patch != m_patches.end() && patch->first < offset + size; ++patch) {
            for (std::size_t i = 0; i < patch->second.size(); ++i) {
                const std::int64_t at = patch->first + static_cast<std::int64_t>(i) - offset;
                if (at >= 0 && at < size)
                    bytes[static_cast<std::size_t>(at)] = patch->second[i];
            }
        }
        return bytes.size();
    }

private:
    struct Stream {
        Kind kind = Kind::Unknown;
        int packets = 0;              ///< Packets begun since the stream's first page.
        std::int64_t packetBytes = 0; ///< Bytes so far of the packet that continues on the next
                                      ///< page.
    };
    void inspectPage();
    void inspectPackets(std::span<std::uint8_t> page);
    void inspectPacket(std::span<std::uint8_t> page, std::size_t start, std::size_t length,
                       bool continues, Kind kind);
    std::span<std::uint8_t> ahead(std::size_t bytes);

    const Input &m_input;
    std::int64_t m_inspected = 0;      ///< Offset up to which the file has been inspected.
    std::optional<std::int64_t> m_end; ///< Where the file ends for FFmpeg.
    std::map<std::uint32_t, Stream> m_streams;
    std::map<std::int64_t, std::array<std::uint8_t, 4>> m_patches; ///< Keyed by file offset.
    std::int64_t m_work = 0;

    std::vector<std::uint8_t> m_window = std::vector<std::uint8_t>(maxPageBytes);
    std::int64_t m_windowOffset = 0;
    std::size_t m_windowBytes = 0;
};

/// Returns at least `bytes` bytes, starting at m_inspected, unless the file ends earlier.
std::span<std::uint8_t> OggInspector::ahead(std::size_t bytes)
{
    constexpr std::size_t usual = std::size_t{32} << 10;
    auto skipped = static_cast<std::size_t>(m_inspected - m_windowOffset);
    if (skipped > m_windowBytes || m_windowBytes - skipped < bytes) {
        m_windowOffset = m_inspected;
        m_windowBytes =
            m_input.peek(m_inspected, std::span(m_window).first(std::max(bytes, usual)));
        skipped = 0;
    }
    return std::span(m_window).subspan(skipped, m_windowBytes - skipped);
}

void OggInspector::inspectPage()
{
    std::span<std::uint8_t> page = ahead(headBytes + 255);
    if (!textOf(page).starts_with("OggS"sv)) {
        // FFmpeg also searches for the next page.
        page = ahead(maxPageBytes);
        const std::size_t begin =
            textOf(page).find("OggS"sv, std::min<std::size_t>(page.size(), 1));
        m_inspected +=
            static_cast<std::int64_t>(std::min(begin, std::max<std::size_t>(page.size(), 4) - 3));
        return;
    }
    std::size_t length = headBytes;
    if (page.size() >= headBytes) {
        const std::size_t segments = std::min(std::size_t{page[26]}, page.size() - headBytes);
        length += segments;
        for (std::size_t i = headBytes; i < headBytes + segments; ++i)
            length += page[i];
    }
    page = ahead(length);
    if (page.size() < length) {
        m_inspected +=
            static_cast<std::int64_t>(page.size()); // The end of the file cuts the page off.
        return;
    }
    page = page.first(length);
    // FFmpeg drops a page with a wrong checksum and searches inside it. The inspector must do the
    // same.
    if (textOf(page.subspan(1)).find("OggS"sv) != std::string_view::npos &&
        checksum(page) != little32(page.data() + checksumOffset)) {
        m_inspected += 1;
        return;
    }
    inspectPackets(page);
    m_inspected += static_cast<std::int64_t>(length);
}

void OggInspector::inspectPackets(std::span<std::uint8_t> page)
{
    constexpr unsigned isContinued = 1;
    constexpr unsigned isFirst = 2;
    if (m_streams.size() > maxStreams)
        m_streams.clear();
    Stream &stream = m_streams[little32(page.data() + 14)];
    if ((page[5] & isFirst) != 0)
        stream = {};
    if ((page[5] & isContinued) == 0)
        stream.packetBytes = 0;
    const std::size_t segments = page[26];
    std::size_t start = headBytes + segments;
    std::size_t length = 0;
    for (std::size_t i = 0; i < segments && !m_end; ++i) {
        const std::uint8_t lace = page[headBytes + i];
        length += lace;
        const bool ends = lace < 255;
        if (!ends && i + 1 < segments)
            continue;
        const bool begins = stream.packetBytes == 0;
        if (begins && stream.packets++ == 0)
            stream.kind = kindOf(page.subspan(start, length));
        if (stream.packets > maxHeaders && stream.kind == Kind::Ogm)
            stream.kind = Kind::Unknown;
        stream.packetBytes += static_cast<std::int64_t>(length);
        if (stream.packetBytes > maxPacketBytes)
            m_end = m_inspected;
        else if (begins)
            inspectPacket(page, start, length, !ends, stream.kind);
        if (ends)
            stream.packetBytes = 0;
        start += length;
        length = 0;
    }
}

/// The packet begins at `start` and has `length` bytes in this page.
void OggInspector::inspectPacket(std::span<std::uint8_t> page, std::size_t start,
                                 std::size_t length, bool continues, Kind kind)
{
    constexpr std::size_t minCommentBytes = 4 * std::size_t{100}; // Shorter comments cannot be told
                                                                  // from sound.
    const std::span<std::uint8_t> packet = page.subspan(start, length);
    if (length < minCommentBytes && !continues)
        return;
    const std::optional<std::size_t> comments = commentsIn(packet, kind);
    if (!comments)
        return;
    // Too few bytes of the packet are in this page to inspect it.
    if (packet.size() < *comments + 4) {
        m_end = m_inspected;
        return;
    }
    const std::uint32_t vendor = little32(packet.data() + *comments);
    const std::size_t field = *comments + 4 + vendor;
    const bool hasCount = field + 4 <= packet.size();
    std::int64_t entries = 0;
    if (hasCount) {
        entries = little32(packet.data() + field);
        if (!continues)
            entries = std::min(entries, static_cast<std::int64_t>(packet.size() / 4));
    } else if (continues) {
        entries = maxWork; // The count is on another page. No real vendor name is that long.
    }
    const std::int64_t work = entries > maxEntries ? maxWork + 1 : entries * entries;
    if (m_work + work <= maxWork) {
        m_work += work;
        return;
    }
    // Write a count of zero, or a vendor name longer than the packet, which makes the comments
    // unreadable.
    const std::size_t at = start + (hasCount ? field : *comments);
    std::array<std::uint8_t, 4> number{};
    number.fill(hasCount ? 0x00 : 0xff);
    std::copy(number.begin(), number.end(), page.begin() + static_cast<std::ptrdiff_t>(at));
    const std::uint32_t sum = checksum(page);
    std::array<std::uint8_t, 4> sumBytes{};
    for (std::size_t i = 0; i < 4; ++i) {
        sumBytes[i] = static_cast<std::uint8_t>(sum >> (8 * i));
        page[checksumOffset + i] = sumBytes[i];
    }
    m_patches[m_inspected + static_cast<std::int64_t>(checksumOffset)] = sumBytes;
    m_patches[m_inspected + static_cast<std::int64_t>(at)] = number;
    if (m_patches.size() > maxPatches)
        m_end = m_inspected;
}

} // namespace

std::unique_ptr<Inspector> makeOggInspector(const Input &input)
{
    return std::make_unique<OggInspector>(input);
}

} // namespace lyrabox::decoding
