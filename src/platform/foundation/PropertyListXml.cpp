#include "platform/foundation/PropertyListFormats.h"

#include <QBuffer>
#include <QStringDecoder>

#include <charconv>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {
namespace {

using Token = PropertyListReader::Token;

constexpr int indentWidth = 1;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

std::optional<double> parseReal(std::string_view text)
{
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size() || text.empty())
        return std::nullopt;
    if (error == std::errc::result_out_of_range)
        return std::numeric_limits<double>::quiet_NaN(); // a number outside the range of doubles
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

std::optional<PropertyList> parseInteger(std::string_view text)
{
    text = trimmed(text);
    std::string_view digits = text;
    const bool isNegative = digits.starts_with('-');
    if (isNegative || digits.starts_with('+'))
        digits.remove_prefix(1);
    const bool isHex = digits.starts_with("0x") || digits.starts_with("0X");
    if (isHex)
        digits.remove_prefix(2);
    quint64 magnitude = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), magnitude, isHex ? 16 : 10);
    if (digits.empty() || end != digits.data() + digits.size() ||
        error == std::errc::invalid_argument)
        return std::nullopt;
    constexpr quint64 limit = quint64{1} << 63U;
    if (error == std::errc() && (magnitude < limit || (isNegative && magnitude == limit)))
        return PropertyList(static_cast<qint64>(isNegative ? ~magnitude + 1 : magnitude));
    if (const std::optional<double> value =
            isHex ? static_cast<double>(magnitude) : parseReal(text))
        return PropertyList(*value);
    return std::nullopt;
}

/// Stores `value` where the next value belongs and returns a pointer to it.
PropertyList *place(PropertyList *container, PropertyList &root, const QString &key,
                    PropertyList value)
{
    if (!container) {
        root = std::move(value);
        return &root;
    }
    if (PropertyList::Array *const array = container->array())
        return &array->emplace_back(std::move(value));
    return &container->dictionary()->emplace_back(key, std::move(value)).second;
}

std::optional<PropertyList> parseXml(QIODevice &device)
{
    PropertyListReader reader(device);
    PropertyList root;
    std::vector<PropertyList *>
        open; // pointers stay valid: siblings come only after the end of a container
    QString key;
    for (;;) {
        const Token token = reader.next();
        PropertyList *const container = open.empty() ? nullptr : open.back();
        switch (token) {
        case Token::End:
            return root;
        case Token::Error:
            return std::nullopt;
        case Token::Key:
            key = propertyListText(reader.string());
            break;
        case Token::DictBegin:
            open.push_back(place(container, root, key, PropertyList::Dictionary()));
            break;
        case Token::ArrayBegin:
            open.push_back(place(container, root, key, PropertyList::Array()));
            break;
        case Token::DictEnd:
        case Token::ArrayEnd:
            open.pop_back();
            break;
        default:
            if (std::optional<PropertyList> value = propertyListScalar(reader, token))
                place(container, root, key, std::move(*value));
            else
                return std::nullopt;
        }
    }
}

QByteArray realText(double value)
{
    if (std::isnan(value))
        return "nan"_ba;
    if (std::isinf(value))
        return value > 0 ? "inf"_ba : "-inf"_ba;
    char digits[32];
    const auto [end, error] = std::to_chars(std::begin(digits), std::end(digits), value);
    QByteArray text(std::begin(digits), end - std::begin(digits));
    if (!text.contains('.') && !text.contains('e'))
        text += ".0";
    return text;
}

} // namespace

bool isUtf16PropertyList(const QByteArray &data)
{
    return data.startsWith("\xFE\xFF") || data.startsWith("\xFF\xFE");
}

std::optional<PropertyList> propertyListDate(const QDateTime &date)
{
    const QDateTime utc = date.toUTC();
    const int year = utc.date().year();
    return utc.isValid() && year >= 1 && year <= 9999 ? std::optional(PropertyList(utc))
                                                      : std::nullopt;
}

QString propertyListText(const QString &text)
{
    const auto isPair = [&text](qsizetype at) {
        return text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    };
    QString clean; // filled once a character must be replaced
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (isPair(i)) {
            ++i;
            continue;
        }
        const QChar c = text[i];
        const bool isControl = c.unicode() < 0x20 && c != u'\t' && c != u'\n' && c != u'\r';
        if (!isControl && !c.isSurrogate() && c.unicode() < 0xFFFE)
            continue;
        if (clean.isEmpty())
            clean = text;
        clean[i] = QChar::ReplacementCharacter;
    }
    return clean.isEmpty() ? text : clean;
}

std::optional<PropertyList> propertyListScalar(const PropertyListReader &reader, Token token)
{
    const std::string_view text = reader.text();
    switch (token) {
    case Token::String:
        return PropertyList(propertyListText(reader.string()));
    case Token::True:
        return PropertyList(true);
    case Token::False:
        return PropertyList(false);
    case Token::Integer:
        return parseInteger(text);
    case Token::Real:
        if (const std::optional<double> value = parseReal(text))
            return PropertyList(*value);
        return std::nullopt;
    case Token::Data:
        return PropertyList(
            QByteArray::fromBase64(QByteArray(text.data(), static_cast<qsizetype>(text.size()))));
    case Token::Date:
        return propertyListDate(
            QDateTime::fromString(QString::fromLatin1(trimmed(text)), Qt::ISODate));
    default:
        return std::nullopt;
    }
}

/// Appends values to the text of an XML property list.
class PropertyListXmlWriter {
public:
    QByteArray text;

    void write(const PropertyList &value, qsizetype level)
    {
        std::visit([&](const auto &held) { writeHeld(held, level); }, value.m_value);
    }

private:
    void writeHeld(std::monostate, qsizetype) {}
    void writeHeld(bool value, qsizetype level)
    {
        line(level, value ? "<true/>"_ba : "<false/>"_ba);
    }
    void writeHeld(qint64 value, qsizetype level)
    {
        element(level, "integer", QByteArray::number(value));
    }
    void writeHeld(double value, qsizetype level) { element(level, "real", realText(value)); }
    void writeHeld(const QString &value, qsizetype level)
    {
        element(level, "string", escaped(value));
    }
    void writeHeld(const QByteArray &value, qsizetype level)
    {
        element(level, "data", value.toBase64());
    }
    void writeHeld(const QDateTime &value, qsizetype level)
    {
        element(level, "date", value.toUTC().toString(u"yyyy-MM-ddTHH:mm:ssZ"_s).toLatin1());
    }

    void writeHeld(const PropertyList::Array &array, qsizetype level)
    {
        line(level, "<array>"_ba);
        for (const PropertyList &value : array)
            write(value, level + indentWidth);
        line(level, "</array>"_ba);
    }

    void writeHeld(const PropertyList::Dictionary &dictionary, qsizetype level)
    {
        line(level, "<dict>"_ba);
        for (const auto &[key, value] : dictionary) {
            if (value.isNull())
                continue;
            element(level + indentWidth, "key", escaped(key));
            write(value, level + indentWidth);
        }
        line(level, "</dict>"_ba);
    }

    void element(qsizetype level, const char *name, const QByteArray &content)
    {
        line(level, QByteArray("<") + name + '>' + content + "</" + name + '>');
    }

    void line(qsizetype level, const QByteArray &content)
    {
        text.append(level, '\t').append(content).append('\n');
    }

    static QByteArray escaped(const QString &value)
    {
        QByteArray bytes = propertyListText(value).toUtf8();
        return bytes.replace('&', "&amp;")
            .replace('<', "&lt;")
            .replace('>', "&gt;")
            .replace('\r', "&#13;");
    }
};

QByteArray propertyListXml(const PropertyList &value)
{
    PropertyListXmlWriter writer;
    writer.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                  "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                  "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                  "<plist version=\"1.0\">\n";
    writer.write(value, 0);
    return writer.text + "</plist>\n";
}

std::optional<PropertyList> parseXmlPropertyList(const QByteArray &data)
{
    QByteArray utf8 = data;
    if (isUtf16PropertyList(data))
        utf8 = QString(QStringDecoder(QStringDecoder::Utf16)(data)).toUtf8();
    QBuffer buffer(&utf8);
    buffer.open(QIODevice::ReadOnly);
    return parseXml(buffer);
}

} // namespace lyrabox
