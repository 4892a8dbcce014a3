#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

class QIODevice;

namespace lyrabox {

/// `text` decoded. Malformed UTF-8 becomes U+FFFD; a byte-order mark in front, which QString would
/// drop, is a character of the text like every other.
QString utf8Text(std::string_view text);

/// Reads an XML property list as a stream of tokens, holding no more of it than one piece of the
/// file, however large it is. Read next() until it gives Token::End or Token::Error; after either
/// it stays there. Checks that elements are properly nested and keys stand where keys belong; knows
/// no document type and no entities but the five of XML and numeric ones.
class PropertyListReader {
public:
    enum class Token {
        DictBegin,
        DictEnd,
        ArrayBegin,
        ArrayEnd,
        Key,     ///< text() is the key; the next token is its value
        String,  ///< text()
        Integer, ///< text(), as written
        Real,    ///< text(), as written
        True,
        False,
        Data,  ///< text(), base64 as written
        Date,  ///< text(), as written
        End,   ///< the list was complete
        Error, ///< the file is no property list, or could not be read
    };

    /// `device` is open for reading, holds UTF-8 and outlives the reader.
    explicit PropertyListReader(QIODevice &device);

    Token next();

    /// The content of the last token as UTF-8, entities decoded. Valid until the next call.
    std::string_view text() const { return m_text; }

    /// The same as a string; malformed UTF-8 becomes U+FFFD.
    QString string() const;

    /// Reads on to the end of the value that the last token begins; at once when it is a scalar.
    /// False on error.
    bool skipValue(Token token);

    /// How many arrays and dictionaries are open.
    int depth() const { return static_cast<int>(m_nesting.size()); }

private:
    struct Tag {
        std::string_view name; ///< into the buffer
        bool closes = false;
        bool isEmpty = false;
    };

    bool ensure(std::size_t count);
    bool fill();
    std::optional<std::size_t> find(std::string_view what, std::size_t from);
    bool skipPast(std::string_view what, std::size_t from);
    bool skipMarkup();
    bool skipDoctype();
    std::optional<Tag> nextTag();
    bool readText(std::string_view element);
    Token open(Token token, bool isEmpty);
    Token close(std::string_view name);
    Token value(const Tag &tag);
    Token fail();

    std::string_view rest() const { return {m_buffer.data() + m_position, m_filled - m_position}; }

    QIODevice &m_device;
    std::string m_buffer;
    std::size_t m_position = 0; // of the next byte to look at
    std::size_t m_filled = 0;
    bool m_deviceEnded = false;

    std::string_view m_text;
    std::string m_decoded;
    std::string m_nesting; // for each open container 'd' or 'a'
    bool m_started = false;
    bool m_inPlist = false;
    bool m_hasRoot = false;
    bool m_keyPending = false; // a key was read, its value is next
    bool m_endPending = false; // an empty container was opened, its end is next
    std::optional<Token> m_final;
};

} // namespace lyrabox
