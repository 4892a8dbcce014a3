#include "platform/decoding/Inspector.h"

#include "platform/decoding/Input.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace lyrabox::decoding {

namespace {

using namespace std::string_view_literals;

/// FFmpeg's time grows with the sum of the squares of the comments' numbers of entries, and it goes
/// over those within the sound several times.
constexpr std::int64_t maxEntries = 3000;
constexpr std::int64_t maxWork = maxEntries * maxEntries;

/// FFmpeg has up to seven copies of a packet at once.
constexpr std::int64_t longestPacket = std::int64_t{8} << 20;

/// A chain of more streams than these is looked at as if the others had ended.
constexpr std::size_t maxStreams = 1000;

/// Packets from a stream's beginning that may be comments without saying so.
constexpr int maxHeaders = 4;

/// Two for each page; memory gets fragmented with each stream of a chain that has crowded comments.
constexpr std::size_t maxPatches = 200;

constexpr std::size_t headBytes = 27;
constexpr std::size_t checksumOffset = 22;
constexpr std::size_t largestPage = headBytes + 255 + 255 * std::size_t{255};

std::uint32_t little32(const std::uint8_t *at)
{
    return std::uint32_t{at[0]} | std::uint32_t{at[1]} << 8 | std::uint32_t{at[2]} << 16 |
           std::uint32_t{at[3]} << 24;
}

/// A page's checksum, for which its own field counts as zero: RFC 3533, section 6.
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

/// What a stream holds, as its first packet tells: FFmpeg tells comments apart by it.
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

/// Where the comments of a packet begin, behind what tells that they are some.
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
        // FFmpeg only looks for a page's time where it jumps ahead.
        if (offset <= m_seen) {
            while (m_seen < offset + size && !m_end)
                lookAtPage();
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
        int packets = 0;              ///< begun since its first page
        std::int64_t packetBytes = 0; ///< of the one that goes on in the next page
    };
    void lookAtPage();
    void lookAtPackets(std::span<std::uint8_t> page);
    void lookAtPacket(std::span<std::uint8_t> page, std::size_t start, std::size_t length,
                      bool goesOn, Kind kind);
    std::span<std::uint8_t> ahead(std::size_t bytes);

    const Input &m_input;
    std::int64_t m_seen = 0;           ///< bytes from the file's beginning that were looked at
    std::optional<std::int64_t> m_end; ///< of what FFmpeg may see
    std::map<std::uint32_t, Stream> m_streams;
    std::map<std::int64_t, std::array<std::uint8_t, 4>> m_patches; ///< by their offsets
    std::int64_t m_work = 0;

    std::vector<std::uint8_t> m_window = std::vector<std::uint8_t>(largestPage);
    std::int64_t m_windowOffset = 0;
    std::size_t m_windowBytes = 0;
};

/// At least that many bytes from m_seen on, unless the file ends before.
std::span<std::uint8_t> OggInspector::ahead(std::size_t bytes)
{
    constexpr std::size_t usual = std::size_t{32} << 10;
    auto gone = static_cast<std::size_t>(m_seen - m_windowOffset);
    if (gone > m_windowBytes || m_windowBytes - gone < bytes) {
        m_windowOffset = m_seen;
        m_windowBytes = m_input.peek(m_seen, std::span(m_window).first(std::max(bytes, usual)));
        gone = 0;
    }
    return std::span(m_window).subspan(gone, m_windowBytes - gone);
}

void OggInspector::lookAtPage()
{
    std::span<std::uint8_t> page = ahead(headBytes + 255);
    if (!textOf(page).starts_with("OggS"sv)) {
        // FFmpeg, too, finds the next page wherever it begins.
        page = ahead(largestPage);
        const std::size_t begin =
            textOf(page).find("OggS"sv, std::min<std::size_t>(page.size(), 1));
        m_seen +=
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
        m_seen += static_cast<std::int64_t>(page.size()); // cut off by the end of the file
        return;
    }
    page = page.first(length);
    // What FFmpeg would find in a page that it drops for its checksum must not hide there.
    if (textOf(page.subspan(1)).find("OggS"sv) != std::string_view::npos &&
        checksum(page) != little32(page.data() + checksumOffset)) {
        m_seen += 1;
        return;
    }
    lookAtPackets(page);
    m_seen += static_cast<std::int64_t>(length);
}

void OggInspector::lookAtPackets(std::span<std::uint8_t> page)
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
        if (stream.packetBytes > longestPacket)
            m_end = m_seen;
        else if (begins)
            lookAtPacket(page, start, length, !ends, stream.kind);
        if (ends)
            stream.packetBytes = 0;
        start += length;
        length = 0;
    }
}

/// The packet begins at `start` of the page and has `length` bytes in it.
void OggInspector::lookAtPacket(std::span<std::uint8_t> page, std::size_t start, std::size_t length,
                                bool goesOn, Kind kind)
{
    constexpr std::size_t fewest = 4 * std::size_t{100}; // entries cannot be told from sound
    const std::span<std::uint8_t> packet = page.subspan(start, length);
    if (length < fewest && !goesOn)
        return;
    const std::optional<std::size_t> comments = commentsIn(packet, kind);
    if (!comments)
        return;
    // A packet that begins in the last bytes of a page gives nothing to go by.
    if (packet.size() < *comments + 4) {
        m_end = m_seen;
        return;
    }
    const std::uint32_t maker = little32(packet.data() + *comments);
    const std::size_t field = *comments + 4 + maker;
    const bool isTold = field + 4 <= packet.size();
    std::int64_t entries = 0;
    if (isTold) {
        entries = little32(packet.data() + field);
        if (!goesOn)
            entries = std::min(entries, static_cast<std::int64_t>(packet.size() / 4));
    } else if (goesOn) {
        entries = maxWork; // the number stands on another page: nobody's name is that long
    }
    const std::int64_t work = entries > maxEntries ? maxWork + 1 : entries * entries;
    if (m_work + work <= maxWork) {
        m_work += work;
        return;
    }
    // No entries, or a maker's name longer than the packet, which makes it unreadable.
    const std::size_t at = start + (isTold ? field : *comments);
    std::array<std::uint8_t, 4> number{};
    number.fill(isTold ? 0x00 : 0xff);
    std::copy(number.begin(), number.end(), page.begin() + static_cast<std::ptrdiff_t>(at));
    const std::uint32_t sum = checksum(page);
    std::array<std::uint8_t, 4> sumBytes{};
    for (std::size_t i = 0; i < 4; ++i) {
        sumBytes[i] = static_cast<std::uint8_t>(sum >> (8 * i));
        page[checksumOffset + i] = sumBytes[i];
    }
    m_patches[m_seen + static_cast<std::int64_t>(checksumOffset)] = sumBytes;
    m_patches[m_seen + static_cast<std::int64_t>(at)] = number;
    if (m_patches.size() > maxPatches)
        m_end = m_seen;
}

} // namespace

std::unique_ptr<Inspector> makeOggInspector(const Input &input)
{
    return std::make_unique<OggInspector>(input);
}

} // namespace lyrabox::decoding
