#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

class QIODevice;

namespace lyrabox {

/// Decodes UTF-8. Malformed bytes become U+FFFD. Unlike QString::fromUtf8(), it keeps a byte-order
/// mark at the start as a character of the text.
QString utf8Text(std::string_view text);

/// Reads an XML property list as a stream of tokens. Memory holds only one piece of the file,
/// however large the file is. Call next() until it returns Token::End or Token::Error; after that
/// it keeps returning the same token. One thread at a time.
///
/// The reader checks that elements are properly nested and that keys are where keys belong. It
/// ignores the document type. The only entities it knows are the five of XML and numeric ones.
class PropertyListReader {
public:
    enum class Token {
        DictBegin,
        DictEnd,
        ArrayBegin,
        ArrayEnd,
        Key,     ///< text() is the key; the next token is its value
        String,  ///< text() is the string
        Integer, ///< text() is the number as written
        Real,    ///< text() is the number as written
        True,
        False,
        Data,  ///< text() is base64 as written
        Date,  ///< text() is the date as written
        End,   ///< the list is complete
        Error, ///< the file is not a property list, or it could not be read
    };

    /// `device` must be open for reading, hold UTF-8 and outlive the reader, which does not own it.
    explicit PropertyListReader(QIODevice &device);

    /// Reads the next token. May block on the device.
    Token next();

    /// The content of the last token in UTF-8, with entities decoded. Valid until next() or
    /// skipValue() is called.
    std::string_view text() const { return m_text; }

    /// text() as a string; malformed UTF-8 becomes U+FFFD.
    QString string() const;

    /// Skips the rest of the value that begins with `token`, which must be the last token read. A
    /// scalar has no rest. False on error.
    bool skipValue(Token token);

    /// How many arrays and dictionaries are open at the current place.
    int depth() const { return static_cast<int>(m_nesting.size()); }

private:
    struct Tag {
        std::string_view name; ///< points into the buffer
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
    std::string m_nesting; // 'd' or 'a' for each open container
    bool m_started = false;
    bool m_inPlist = false;
    bool m_hasRoot = false;
    bool m_keyPending = false; // a key was read, and its value is next
    bool m_endPending = false; // an empty container was opened, and its end is next
    std::optional<Token> m_final;
};

} // namespace lyrabox
