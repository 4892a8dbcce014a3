#include "platform/foundation/PropertyListFormats.h"

#include <QStringDecoder>
#include <QTimeZone>

#include <bit>
#include <cmath>

namespace lyrabox {
namespace {

constexpr quint64 headerSize = 8;
constexpr quint64 trailerSize = 32;

/// Reads one binary list. An object is a marker byte and its content. The upper half of the marker
/// is the object's kind, the lower half its length. Containers refer to their elements by number. A
/// table holds the offset of each object; the trailer says where the table is.
class BinaryReader {
public:
    explicit BinaryReader(const QByteArray &data)
        : m_bytes(reinterpret_cast<const uchar *>(data.constData())),
          m_size(static_cast<quint64>(data.size())),
          m_valuesLeft(propertyListLimit::valuesPerByte * data.size())
    {}

    std::optional<PropertyList> read()
    {
        if (m_size < headerSize + trailerSize)
            return std::nullopt;
        const quint64 trailer = m_size - trailerSize;
        m_offsetSize = m_bytes[trailer + 6];
        m_referenceSize = m_bytes[trailer + 7];
        const quint64 count = number(trailer + 8, 8);
        const quint64 root = number(trailer + 16, 8);
        m_table = number(trailer + 24, 8);
        if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8 ||
            m_table < headerSize || m_table > trailer || count > (trailer - m_table) / m_offsetSize)
            return std::nullopt;
        m_shared.resize(count);
        return value(root, 0);
    }

private:
    /// The content of an object: where it begins and how many units long it is.
    struct Extent {
        quint64 begin = 0;
        quint64 count = 0;
    };

    quint64 number(quint64 at, quint64 size) const
    {
        quint64 result = 0;
        for (quint64 i = 0; i < size; ++i)
            result = result << 8U | m_bytes[at + i];
        return result;
    }

    /// The content after the marker at `at`, in units of `unitSize` bytes. None if it extends
    /// beyond the part of the file that holds objects.
    std::optional<Extent> extent(quint64 at, quint64 unitSize) const
    {
        Extent result{at + 1, m_bytes[at] & 0xFU};
        if (result.count == 0xF) { // the length follows as an integer object
            if (result.begin >= m_table || m_bytes[result.begin] >> 4U != 1)
                return std::nullopt;
            const quint64 size = quint64{1} << (m_bytes[result.begin++] & 0xFU);
            if (size > 8 || m_table - result.begin < size)
                return std::nullopt;
            result.count = number(result.begin, size);
            result.begin += size;
        }
        return result.count <= (m_table - result.begin) / unitSize ? std::optional(result)
                                                                   : std::nullopt;
    }

    std::optional<PropertyList> value(quint64 object, int depth)
    {
        if (object >= m_shared.size() || --m_valuesLeft < 0)
            return std::nullopt;
        if (!m_shared[object].isNull())
            return m_shared[object];
        const quint64 at = number(m_table + object * m_offsetSize, m_offsetSize);
        if (at < headerSize || at >= m_table)
            return std::nullopt;
        const uchar kind = m_bytes[at] >> 4U;
        if (kind == 0xA || kind == 0xB || kind == 0xC)
            return array(at, depth);
        if (kind == 0xD)
            return dictionary(at, depth);
        std::optional<PropertyList> result = scalar(at);
        if (result)
            m_shared[object] = *result; // a string with many references is held once
        return result;
    }

    std::optional<PropertyList> array(quint64 at, int depth)
    {
        const std::optional<Extent> references = extent(at, m_referenceSize);
        if (!references || depth >= propertyListLimit::depth)
            return std::nullopt;
        PropertyList::Array result;
        result.reserve(references->count);
        for (quint64 i = 0; i < references->count; ++i) {
            std::optional<PropertyList> element = referenced(references->begin, i, depth + 1);
            if (!element)
                return std::nullopt;
            result.push_back(std::move(*element));
        }
        return result;
    }

    std::optional<PropertyList> dictionary(quint64 at, int depth)
    {
        const std::optional<Extent> members =
            extent(at, m_referenceSize * 2); // first all keys, then all values
        if (!members || depth >= propertyListLimit::depth)
            return std::nullopt;
        PropertyList::Dictionary result;
        result.reserve(members->count);
        for (quint64 i = 0; i < members->count; ++i) {
            const std::optional<PropertyList> key = referenced(members->begin, i, depth + 1);
            std::optional<PropertyList> element =
                referenced(members->begin, members->count + i, depth + 1);
            if (!key || !key->string() || !element)
                return std::nullopt;
            result.emplace_back(*key->string(), std::move(*element));
        }
        return result;
    }

    std::optional<PropertyList> referenced(quint64 begin, quint64 index, int depth)
    {
        return value(number(begin + index * m_referenceSize, m_referenceSize), depth);
    }

    std::optional<PropertyList> scalar(quint64 at) const
    {
        const uchar marker = m_bytes[at];
        switch (marker >> 4U) {
        case 0x0:
            if (marker == 0x08 || marker == 0x09)
                return PropertyList(marker == 0x09);
            return marker == 0x00 ? std::optional(PropertyList()) : std::nullopt;
        case 0x1:
            return integer(at);
        case 0x2:
        case 0x3:
            return real(at);
        case 0x4:
            if (const std::optional<Extent> bytes = extent(at, 1))
                return PropertyList(QByteArray(text(*bytes), static_cast<qsizetype>(bytes->count)));
            return std::nullopt;
        case 0x5:
        case 0x7:
            if (const std::optional<Extent> bytes = extent(at, 1))
                return PropertyList(propertyListText(
                    utf8Text({text(*bytes), static_cast<std::size_t>(bytes->count)})));
            return std::nullopt;
        case 0x6:
            if (const std::optional<Extent> units = extent(at, 2)) {
                QStringDecoder decode(QStringDecoder::Utf16BE,
                                      QStringDecoder::Flag::ConvertInitialBom);
                return PropertyList(propertyListText(decode(
                    QByteArrayView(text(*units), static_cast<qsizetype>(units->count * 2)))));
            }
            return std::nullopt;
        default:
            return std::nullopt;
        }
    }

    const char *text(const Extent &extent) const
    {
        return reinterpret_cast<const char *>(m_bytes) + extent.begin;
    }

    std::optional<PropertyList> integer(quint64 at) const
    {
        const quint64 size = quint64{1} << (m_bytes[at] & 0xFU);
        if (size > 16 || m_table - at - 1 < size)
            return std::nullopt;
        if (size < 16)
            return PropertyList(static_cast<qint64>(number(at + 1, size)));
        const quint64 upper = number(at + 1, 8);
        const quint64 lower = number(at + 9, 8);
        const bool isSigned = upper == (lower >> 63U ? ~quint64{0} : 0);
        if (isSigned)
            return PropertyList(static_cast<qint64>(lower));
        return PropertyList(static_cast<double>(static_cast<qint64>(upper)) * 0x1p64 +
                            static_cast<double>(lower));
    }

    std::optional<PropertyList> real(quint64 at) const
    {
        const bool isDate = m_bytes[at] >> 4U == 3;
        const quint64 size = quint64{1} << (m_bytes[at] & 0xFU);
        if ((size != 8 && (size != 4 || isDate)) || m_table - at - 1 < size)
            return std::nullopt;
        const quint64 bits = number(at + 1, size);
        const double number = size == 8 ? std::bit_cast<double>(bits)
                                        : std::bit_cast<float>(static_cast<std::uint32_t>(bits));
        if (!isDate)
            return PropertyList(number);
        constexpr double furthest = 1e12; // seconds; fits into 64 bits as milliseconds
        if (!(std::abs(number) < furthest))
            return std::nullopt;
        const QDateTime epoch(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
        return propertyListDate(epoch.addMSecs(std::llround(number * 1000.0)));
    }

    const uchar *m_bytes;
    quint64 m_size;
    qint64 m_valuesLeft;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_table = 0;
    std::vector<PropertyList> m_shared; // the scalars read so far, by object number
};

} // namespace

bool isBinaryPropertyList(const QByteArray &data)
{
    return data.startsWith("bplist0");
}

std::optional<PropertyList> parseBinaryPropertyList(const QByteArray &data)
{
    return BinaryReader(data).read();
}

} // namespace lyrabox
