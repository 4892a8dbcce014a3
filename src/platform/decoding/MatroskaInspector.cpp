#include "platform/decoding/Inspector.h"

#include "platform/decoding/Input.h"

#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <optional>
#include <vector>

namespace lyrabox::decoding {

namespace {

constexpr std::size_t identifierBytes = 4;

/// An element that FFmpeg reads as a whole.
struct Master {
    std::uint32_t identifier = 0;
    std::int64_t maxElements = 0; ///< In this element and all others of its kind.
    std::int64_t maxBytes = 0;
};

constexpr std::int64_t megabyte = std::int64_t{1} << 20;
constexpr std::array<Master, 6> masters = {
    {{0x114d9b74, 10000, megabyte},        // Seek head.
     {0x1254c367, 10000, 8 * megabyte},    // Tags.
     {0x1043a770, 10000, 8 * megabyte},    // Chapters.
     {0x1941a469, 10000, 36 * megabyte},   // Attachments.
     {0x1654ae6b, 10000, 8 * megabyte},    // Tracks.
     {0x1c53bb6b, 200000, 8 * megabyte}}}; // Cues have five elements each.

/// Identifiers of elements within masters that contain elements themselves.
constexpr std::array<std::uint32_t, 22> nested = {
    0x7373, 0x63c0, 0x67c8, 0x45b9, 0xb6,   0x80,   0x8f, 0x6944, 0x61a7, 0xae, 0xe0,
    0xe1,   0x55b0, 0x6d80, 0x6240, 0x5034, 0x5035, 0xe2, 0xe3,   0xbb,   0xb7, 0x4dbb};

constexpr int maxDepth = 16; ///< FFmpeg goes no deeper.
constexpr std::size_t maxPatches = 1000;

struct Element {
    std::uint32_t identifier = 0;
    std::int64_t content = 0; ///< Offset of the content in the file.
    std::optional<std::int64_t> length;
};

/// Size of a part of the file.
struct Amount {
    std::int64_t elements = 0;
    std::int64_t bytes = 0; ///< Content of elements that contain no others.
};

/// Makes a header of `headerBytes` bytes that turns an element into padding: RFC 8794, section
/// 11.3.
std::vector<std::uint8_t> paddingHeader(std::size_t headerBytes, std::uint64_t length)
{
    std::vector<std::uint8_t> header;
    if (headerBytes > 9)
        header = {0xec, 0x81, 0}; // One header has at most nine bytes.
    const std::size_t sizeBytes = headerBytes - header.size() - 1;
    header.push_back(0xec);
    for (std::size_t i = sizeBytes; i-- > 0;)
        header.push_back(static_cast<std::uint8_t>(length >> (8 * i)));
    header[headerBytes - sizeBytes] |= static_cast<std::uint8_t>(0x80U >> (sizeBytes - 1));
    return header;
}

class MatroskaInspector : public Inspector {
public:
    explicit MatroskaInspector(const Input &input) : m_input(input) {}

    std::size_t inspect(std::int64_t offset, std::span<std::uint8_t> bytes) override;

private:
    void inspectMaster(std::int64_t offset, const Master &master, Amount &used);
    std::optional<Element> elementAt(std::int64_t offset, std::int64_t end);
    void count(std::int64_t offset, std::int64_t end, const Master &master, int depth,
               Amount &amount);

    const Input &m_input;
    std::array<Amount, masters.size()> m_used;
    std::map<std::int64_t, std::vector<std::uint8_t>> m_replacements; ///< Replacement bytes by file
                                                                      ///< offset.
    std::size_t m_patches = 0;
    std::optional<std::int64_t> m_end; ///< Where the file ends for FFmpeg.
    std::vector<std::uint8_t> m_window = std::vector<std::uint8_t>(4096);
    std::int64_t m_windowOffset = 0;
    std::size_t m_windowBytes = 0;
};

/// Searches for the identifiers of masters instead of following lengths, because FFmpeg also
/// searches for them after damage.
std::size_t MatroskaInspector::inspect(std::int64_t offset, std::span<std::uint8_t> bytes)
{
    const auto size = static_cast<std::int64_t>(bytes.size());
    std::array<std::uint8_t, identifierBytes - 1> next{};
    const std::size_t nextBytes = m_input.peek(offset + size, next);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] < 0x10 || bytes[i] > 0x1c) // All the identifiers begin with a byte in this
                                                // range.
            continue;
        std::uint32_t identifier = 0;
        for (std::size_t k = i; k < i + identifierBytes; ++k) {
            const std::size_t past = k - bytes.size();
            identifier = identifier << 8 | (k < bytes.size()   ? bytes[k]
                                            : past < nextBytes ? next[past]
                                                               : 0U);
        }
        for (std::size_t kind = 0; kind < masters.size(); ++kind) {
            if (identifier == masters[kind].identifier)
                inspectMaster(offset + static_cast<std::int64_t>(i), masters[kind], m_used[kind]);
        }
    }
    if (m_end && *m_end < offset + size)
        bytes = bytes.first(static_cast<std::size_t>(std::max<std::int64_t>(*m_end - offset, 0)));
    constexpr std::int64_t maxHeaderBytes = 12;
    for (auto patch = m_replacements.lower_bound(offset - maxHeaderBytes);
         patch != m_replacements.end() && patch->first < offset + size; ++patch) {
        for (std::size_t i = 0; i < patch->second.size(); ++i) {
            const std::int64_t at = patch->first + static_cast<std::int64_t>(i) - offset;
            if (at >= 0 && at < static_cast<std::int64_t>(bytes.size()))
                bytes[static_cast<std::size_t>(at)] = patch->second[i];
        }
    }
    return bytes.size();
}

void MatroskaInspector::inspectMaster(std::int64_t offset, const Master &master, Amount &used)
{
    const auto element = elementAt(offset, m_input.size());
    if (!element)
        return;
    const auto [replacement, isNew] = m_replacements.try_emplace(offset);
    if (!isNew)
        return;
    const std::int64_t end = element->length
                                 ? std::min(element->content + *element->length, m_input.size())
                                 : m_input.size();
    Amount amount = used;
    amount.elements += 1;
    count(element->content, end, master, 0, amount);
    if (amount.elements <= master.maxElements && amount.bytes <= master.maxBytes) {
        used = amount;
        return;
    }
    if (element->length && ++m_patches <= maxPatches)
        replacement->second = paddingHeader(static_cast<std::size_t>(element->content - offset),
                                            static_cast<std::uint64_t>(*element->length));
    else
        m_end = std::min(offset, m_end.value_or(offset));
}

std::optional<Element> MatroskaInspector::elementAt(std::int64_t offset, std::int64_t end)
{
    constexpr std::int64_t maxHeaderBytes = 12;
    std::int64_t skipped = offset - m_windowOffset;
    if (skipped < 0 || skipped + maxHeaderBytes > static_cast<std::int64_t>(m_windowBytes)) {
        m_windowOffset = offset;
        m_windowBytes = m_input.peek(offset, m_window);
        skipped = 0;
    }
    const auto bytes =
        std::span(m_window).first(m_windowBytes).subspan(static_cast<std::size_t>(skipped));
    if (bytes.empty())
        return std::nullopt;
    const auto idBytes = static_cast<std::size_t>(std::countl_zero(bytes[0])) + 1;
    if (idBytes > identifierBytes || bytes.size() <= idBytes)
        return std::nullopt;
    const auto sizeBytes = static_cast<std::size_t>(std::countl_zero(bytes[idBytes])) + 1;
    if (sizeBytes > 8 || bytes.size() < idBytes + sizeBytes)
        return std::nullopt;
    Element element;
    for (std::size_t i = 0; i < idBytes; ++i)
        element.identifier = element.identifier << 8 | bytes[i];
    const std::uint64_t unknown = (std::uint64_t{1} << (7 * sizeBytes)) - 1;
    std::uint64_t length = bytes[idBytes] & (0xffU >> sizeBytes);
    for (std::size_t i = idBytes + 1; i < idBytes + sizeBytes; ++i)
        length = length << 8 | bytes[i];
    if (length != unknown)
        element.length = static_cast<std::int64_t>(length);
    element.content = offset + static_cast<std::int64_t>(idBytes + sizeBytes);
    return element.content <= end ? std::optional(element) : std::nullopt;
}

/// Stops where FFmpeg does: at bytes that cannot be an element. Also stops once the master's limit
/// is exceeded.
void MatroskaInspector::count(std::int64_t offset, std::int64_t end, const Master &master,
                              int depth, Amount &amount)
{
    while (offset < end && amount.elements <= master.maxElements &&
           amount.bytes <= master.maxBytes) {
        const auto element = elementAt(offset, end);
        if (!element || element->length.value_or(0) > end - element->content)
            return;
        const std::int64_t next = element->length ? element->content + *element->length : end;
        ++amount.elements;
        if (std::find(nested.begin(), nested.end(), element->identifier) == nested.end())
            amount.bytes += next - element->content;
        else if (depth < maxDepth)
            count(element->content, next, master, depth + 1, amount);
        offset = next;
    }
}

} // namespace

std::unique_ptr<Inspector> makeMatroskaInspector(const Input &input)
{
    return std::make_unique<MatroskaInspector>(input);
}

} // namespace lyrabox::decoding
