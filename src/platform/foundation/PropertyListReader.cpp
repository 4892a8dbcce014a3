#include "platform/foundation/PropertyListReader.h"

#include "platform/foundation/PropertyList.h"

#include <QIODevice>
#include <QStringDecoder>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace lyrabox {
namespace {

constexpr std::size_t pieceSize = std::size_t{256} * 1024;
constexpr std::string_view blanks = " \t\r\n";

bool isBlank(char c)
{
    return blanks.find(c) != std::string_view::npos;
}

void appendUtf8(std::string &out, std::uint32_t c)
{
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0U | (c >> 6U));
        out += static_cast<char>(0x80U | (c & 0x3FU));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0U | (c >> 12U));
        out += static_cast<char>(0x80U | ((c >> 6U) & 0x3FU));
        out += static_cast<char>(0x80U | (c & 0x3FU));
    } else {
        out += static_cast<char>(0xF0U | (c >> 18U));
        out += static_cast<char>(0x80U | ((c >> 12U) & 0x3FU));
        out += static_cast<char>(0x80U | ((c >> 6U) & 0x3FU));
        out += static_cast<char>(0x80U | (c & 0x3FU));
    }
}

/// Appends the text of an entity, given by its name between '&' and ';'. False if it is unknown.
bool appendEntity(std::string &out, std::string_view name)
{
    static constexpr std::pair<std::string_view, char> named[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (const auto &[known, character] : named) {
        if (name == known) {
            out += character;
            return true;
        }
    }
    if (name.size() < 2 || name.front() != '#')
        return false;
    const bool isHex = name[1] == 'x' || name[1] == 'X';
    const std::string_view digits = name.substr(isHex ? 2 : 1);
    std::uint32_t code = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size() || code == 0 ||
        code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return false;
    appendUtf8(out, code);
    return true;
}

/// Appends character data. Entities are decoded, and every line end becomes '\n'.
bool appendDecoded(std::string &out, std::string_view raw)
{
    while (!raw.empty()) {
        const std::size_t special = std::min(raw.find_first_of("&\r"), raw.size());
        out.append(raw.substr(0, special));
        raw.remove_prefix(special);
        if (raw.empty())
            break;
        if (raw.front() == '\r') {
            out += '\n';
            raw.remove_prefix(raw.size() > 1 && raw[1] == '\n' ? 2 : 1);
            continue;
        }
        const std::size_t end = raw.substr(0, 16).find(';');
        if (end == std::string_view::npos || !appendEntity(out, raw.substr(1, end - 1)))
            return false;
        raw.remove_prefix(end + 1);
    }
    return true;
}

bool needsDecoding(std::string_view raw)
{
    return std::memchr(raw.data(), '&', raw.size()) || std::memchr(raw.data(), '\r', raw.size());
}

} // namespace

QString utf8Text(std::string_view text)
{
    const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
    if (!text.starts_with("\xEF\xBB\xBF"))
        return QString::fromUtf8(bytes);
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless)(bytes);
}

PropertyListReader::PropertyListReader(QIODevice &device) : m_device(device) {}

QString PropertyListReader::string() const
{
    return utf8Text(m_text);
}

PropertyListReader::Token PropertyListReader::fail()
{
    m_text = {};
    m_final = Token::Error;
    return Token::Error;
}

/// Drops the part of the buffer that was read and appends the next piece of the file. If a single
/// token fills the buffer, the buffer grows.
bool PropertyListReader::fill()
{
    if (m_deviceEnded)
        return false;
    if (m_position > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_position, m_filled - m_position);
        m_filled -= m_position;
        m_position = 0;
    }
    if (m_filled == m_buffer.size())
        m_buffer.resize(std::max(pieceSize, m_buffer.size() * 2));
    const qint64 count =
        m_device.read(m_buffer.data() + m_filled, static_cast<qint64>(m_buffer.size() - m_filled));
    m_deviceEnded = count <= 0;
    m_filled += static_cast<std::size_t>(std::max<qint64>(count, 0));
    return !m_deviceEnded;
}

bool PropertyListReader::ensure(std::size_t count)
{
    while (m_filled - m_position < count) {
        if (!fill())
            return false;
    }
    return true;
}

/// Finds `what` at or after `from`. Both offsets count from the current position.
std::optional<std::size_t> PropertyListReader::find(std::string_view what, std::size_t from)
{
    for (;;) {
        const std::size_t found = rest().find(what, from);
        if (found != std::string_view::npos)
            return found;
        const std::size_t seen = rest().size();
        from = std::max(from, seen >= what.size() ? seen - what.size() + 1 : 0);
        if (!fill())
            return std::nullopt;
    }
}

bool PropertyListReader::skipPast(std::string_view what, std::size_t from)
{
    const std::optional<std::size_t> found = find(what, from);
    if (found)
        m_position += *found + what.size();
    return found.has_value();
}

bool PropertyListReader::skipDoctype()
{
    bool isSubset = false;
    for (std::size_t i = 0; ensure(i + 1); ++i) {
        const char c = rest()[i];
        if (c == '[') {
            isSubset = true;
        } else if (c == ']') {
            isSubset = false;
        } else if (c == '>' && !isSubset) {
            m_position += i + 1;
            return true;
        }
    }
    return false;
}

/// Skips the markup that begins with "<?" or "<!" at the current position.
bool PropertyListReader::skipMarkup()
{
    if (rest()[1] == '?')
        return skipPast("?>", 2);
    if (ensure(4) && rest().substr(0, 4) == "<!--")
        return skipPast("-->", 4);
    if (ensure(9) && rest().substr(0, 9) == "<!DOCTYPE")
        return skipDoctype();
    return false;
}

std::optional<PropertyListReader::Tag> PropertyListReader::nextTag()
{
    for (;;) {
        while (m_position < m_filled && isBlank(m_buffer[m_position]))
            ++m_position;
        if (m_position == m_filled) {
            if (!fill())
                return std::nullopt;
            continue;
        }
        if (rest().front() != '<' || !ensure(2))
            return std::nullopt;
        if (rest()[1] != '!' && rest()[1] != '?')
            break;
        if (!skipMarkup())
            return std::nullopt;
    }

    const std::optional<std::size_t> end = find(">", 1);
    if (!end)
        return std::nullopt;
    Tag tag;
    std::string_view inside = rest().substr(1, *end - 1);
    m_position += *end + 1;
    if (!inside.empty() && inside.front() == '/') {
        tag.closes = true;
        inside.remove_prefix(1);
    } else if (!inside.empty() && inside.back() == '/') {
        tag.isEmpty = true;
        inside.remove_suffix(1);
    }
    tag.name = inside.substr(0, inside.find_first_of(blanks));
    return tag;
}

/// Reads the character data of `element` and its closing tag.
bool PropertyListReader::readText(std::string_view element)
{
    std::size_t begin = 0;
    bool isWhole = true; // the text can be used straight from the buffer
    m_decoded.clear();
    for (;;) {
        const std::optional<std::size_t> mark = find("<", begin);
        if (!mark)
            return false;
        if (!ensure(*mark + element.size() + 3) && !ensure(*mark + 3))
            return false;
        std::string_view raw = rest().substr(begin, *mark - begin);
        const std::string_view after = rest().substr(*mark);
        if (after.starts_with("</")) {
            const std::optional<std::size_t> end = find(">", *mark);
            if (!end)
                return false;
            std::string_view name = rest().substr(*mark + 2, *end - *mark - 2);
            name = name.substr(0, name.find_first_of(blanks));
            raw = rest().substr(begin, *mark - begin);
            if (name != element)
                return false;
            if (isWhole && !needsDecoding(raw)) {
                m_text = raw;
            } else {
                if (!appendDecoded(m_decoded, raw))
                    return false;
                m_text = m_decoded;
            }
            m_position += *end + 1;
            return true;
        }
        isWhole = false;
        if (!appendDecoded(m_decoded, raw))
            return false;
        const bool isComment = ensure(*mark + 4) && rest().substr(*mark, 4) == "<!--";
        const bool isCData =
            !isComment && ensure(*mark + 9) && rest().substr(*mark, 9) == "<![CDATA[";
        if (!isComment && !isCData)
            return false;
        const std::optional<std::size_t> end =
            find(isComment ? "-->" : "]]>", *mark + (isComment ? 4 : 9));
        if (!end)
            return false;
        if (isCData)
            m_decoded.append(rest().substr(*mark + 9, *end - *mark - 9));
        begin = *end + 3;
    }
}

PropertyListReader::Token PropertyListReader::open(Token token, bool isEmpty)
{
    if (m_nesting.size() >= static_cast<std::size_t>(propertyListLimit::depth))
        return fail();
    m_nesting += token == Token::DictBegin ? 'd' : 'a';
    m_endPending = isEmpty;
    return token;
}

PropertyListReader::Token PropertyListReader::close(std::string_view name)
{
    if (m_nesting.empty()) {
        if (!m_inPlist || name != "plist" || !m_hasRoot)
            return fail();
        m_final = Token::End;
        return Token::End;
    }
    const char kind = m_nesting.back();
    if (m_keyPending || name != (kind == 'd' ? "dict" : "array"))
        return fail();
    m_nesting.pop_back();
    return kind == 'd' ? Token::DictEnd : Token::ArrayEnd;
}

PropertyListReader::Token PropertyListReader::value(const Tag &tag)
{
    static constexpr std::pair<std::string_view, Token> scalars[] = {
        {"string", Token::String}, {"integer", Token::Integer}, {"true", Token::True},
        {"false", Token::False},   {"real", Token::Real},       {"date", Token::Date},
        {"data", Token::Data}};

    if (m_nesting.empty() ? m_hasRoot : m_nesting.back() == 'd' && !m_keyPending)
        return fail();
    m_hasRoot = true;
    m_keyPending = false;
    if (tag.name == "dict")
        return open(Token::DictBegin, tag.isEmpty);
    if (tag.name == "array")
        return open(Token::ArrayBegin, tag.isEmpty);
    for (const auto &[name, token] : scalars) {
        if (tag.name == name)
            return tag.isEmpty || readText(name) ? token : fail();
    }
    return fail();
}

PropertyListReader::Token PropertyListReader::next()
{
    if (m_final)
        return *m_final;
    m_text = {};
    if (m_endPending) {
        m_endPending = false;
        const char kind = m_nesting.back();
        m_nesting.pop_back();
        return kind == 'd' ? Token::DictEnd : Token::ArrayEnd;
    }
    if (!m_started) {
        m_started = true;
        if (ensure(3) && rest().starts_with("\xEF\xBB\xBF"))
            m_position += 3;
    }
    std::optional<Tag> tag = nextTag();
    if (tag && !m_inPlist && !m_hasRoot && tag->name == "plist" && !tag->closes && !tag->isEmpty) {
        m_inPlist = true;
        tag = nextTag();
    }
    if (!tag) {
        if (!m_inPlist && m_hasRoot && m_nesting.empty() && m_deviceEnded && rest().empty()) {
            m_final = Token::End; // a value without a <plist> is accepted, too
            return Token::End;
        }
        return fail();
    }
    if (tag->closes)
        return close(tag->name);
    if (tag->name != "key")
        return value(*tag);
    if (m_nesting.empty() || m_nesting.back() != 'd' || m_keyPending ||
        !(tag->isEmpty || readText("key")))
        return fail();
    m_keyPending = true;
    return Token::Key;
}

bool PropertyListReader::skipValue(Token token)
{
    if (token == Token::DictBegin || token == Token::ArrayBegin) {
        const int outside = depth() - 1;
        while (depth() > outside) {
            const Token inner = next();
            if (inner == Token::Error || inner == Token::End)
                return false;
        }
    }
    return token != Token::Error && token != Token::End;
}

} // namespace lyrabox
