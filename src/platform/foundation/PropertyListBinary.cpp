#include "platform/foundation/PropertyListFormats.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

namespace lyrabox {
namespace {

constexpr qint64 trailerSize = 32;

/// The object table of a binary list, as far as its containers are concerned.
class ObjectTable {
public:
    /// False when the trailer names no table inside the data.
    bool open(const QByteArray &data)
    {
        m_bytes = reinterpret_cast<const uchar *>(data.constData());
        if (data.size() < 8 + trailerSize)
            return false;
        const quint64 end = static_cast<quint64>(data.size()) - trailerSize;
        const uchar *const trailer = m_bytes + end;
        m_offsetSize = trailer[6];
        m_referenceSize = trailer[7];
        m_count = number(end + 8, 8);
        m_root = number(end + 16, 8);
        m_table = number(end + 24, 8);
        return m_offsetSize >= 1 && m_offsetSize <= 8 && m_referenceSize >= 1 &&
               m_referenceSize <= 8 && m_table >= 8 && m_table <= end &&
               m_count <= (end - m_table) / m_offsetSize && m_root < m_count;
    }

    quint64 count() const { return m_count; }
    quint64 root() const { return m_root; }

    struct Container {
        quint64 firstReference = 0; ///< offset of the first
        quint64 references = 0;     ///< none for a scalar
    };

    /// The object's references; none when the object does not lie inside the data.
    std::optional<Container> container(quint64 object) const
    {
        quint64 at = number(m_table + object * m_offsetSize, m_offsetSize);
        if (at < 8 || at >= m_table)
            return std::nullopt;
        const uchar marker = m_bytes[at++];
        const uchar kind = marker >> 4U;
        if (kind != 0xA && kind != 0xB && kind != 0xC && kind != 0xD)
            return Container();
        quint64 length = marker & 0xFU;
        if (length == 0xF) {
            if (at >= m_table || (m_bytes[at] >> 4U) != 1)
                return std::nullopt;
            const quint64 size = quint64{1} << (m_bytes[at] & 0xFU);
            ++at;
            if (size > 8 || m_table - at < size)
                return std::nullopt;
            length = number(at, size);
            at += size;
        }
        if (length > (m_table - at) / m_referenceSize / (kind == 0xD ? 2 : 1))
            return std::nullopt;
        return Container{at, kind == 0xD ? length * 2 : length};
    }

    quint64 reference(const Container &container, quint64 index) const
    {
        return number(container.firstReference + index * m_referenceSize, m_referenceSize);
    }

private:
    quint64 number(quint64 at, quint64 size) const
    {
        quint64 value = 0;
        for (quint64 i = 0; i < size; ++i)
            value = value << 8U | m_bytes[at + i];
        return value;
    }

    const uchar *m_bytes = nullptr;
    quint64 m_offsetSize = 0;
    quint64 m_referenceSize = 0;
    quint64 m_count = 0;
    quint64 m_root = 0;
    quint64 m_table = 0;
};

struct PlistDeleter {
    void operator()(void *node) const { plist_free(node); }
};
using PlistNode = std::unique_ptr<void, PlistDeleter>;

QString textOf(const char *text, quint64 length)
{
    return QString::fromUtf8(text, static_cast<qsizetype>(length));
}

PropertyList converted(plist_t node);

PropertyList convertedArray(plist_t node)
{
    PropertyList::Array array;
    const std::uint32_t count = plist_array_get_size(node);
    array.reserve(count);
    plist_array_iter iterator = nullptr;
    plist_array_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> guard(iterator, std::free);
    for (std::uint32_t i = 0; i < count; ++i) {
        plist_t item = nullptr;
        plist_array_next_item(node, iterator, &item);
        array.push_back(converted(item));
    }
    return array;
}

PropertyList convertedDictionary(plist_t node)
{
    PropertyList::Dictionary dictionary;
    dictionary.reserve(plist_dict_get_size(node));
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(node, &iterator);
    const std::unique_ptr<void, decltype(&std::free)> guard(iterator, std::free);
    for (;;) {
        char *key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, iterator, &key, &item);
        const std::unique_ptr<char, decltype(&std::free)> keyGuard(key, std::free);
        if (!item)
            break;
        dictionary.emplace_back(QString::fromUtf8(key), converted(item));
    }
    return dictionary;
}

PropertyList converted(plist_t node)
{
    std::uint64_t length = 0;
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT:
        plist_get_uint_val(node, &length);
        return static_cast<qint64>(length);
    case PLIST_REAL: {
        double value = 0.0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        const char *const text = plist_get_string_ptr(node, &length);
        return textOf(text, length);
    }
    case PLIST_DATA: {
        const char *const bytes = plist_get_data_ptr(node, &length);
        return QByteArray(bytes, static_cast<qsizetype>(length));
    }
    case PLIST_DATE: {
        std::int32_t seconds = 0;
        std::int32_t microseconds = 0;
        plist_get_date_val(node, &seconds, &microseconds);
        static const QDateTime epoch(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
        return epoch.addSecs(seconds);
    }
    case PLIST_ARRAY:
        return convertedArray(node);
    case PLIST_DICT:
        return convertedDictionary(node);
    default:
        return {};
    }
}

} // namespace

bool isBinaryPropertyList(const QByteArray &data)
{
    return data.startsWith("bplist0");
}

bool isBoundedBinaryPropertyList(const QByteArray &data)
{
    ObjectTable table;
    if (!table.open(data))
        return false;

    // Weights of finished objects (values below and with them) and their heights; a weight of 0 is
    // not finished, a negative one is being worked on.
    struct Measure {
        qint64 weight = 0;
        int height = 0;
    };
    struct Visit {
        quint64 object;
        ObjectTable::Container container;
        quint64 nextReference = 0;
    };
    std::vector<Measure> measures(table.count());
    std::vector<Visit> path;
    quint64 object = table.root();
    for (;;) {
        if (measures[object].weight < 0)
            return false; // holds itself
        if (measures[object].weight == 0) {
            const auto container = table.container(object);
            if (!container || path.size() > static_cast<std::size_t>(propertyListLimit::depth))
                return false;
            measures[object].weight = -1;
            path.push_back({object, *container, 0});
        }
        // Finish what has no reference left, up to a container that has one.
        for (;;) {
            if (path.empty())
                return true;
            Visit &visit = path.back();
            if (visit.nextReference < visit.container.references) {
                object = table.reference(visit.container, visit.nextReference++);
                break;
            }
            Measure total{1, 0};
            for (quint64 i = 0; i < visit.container.references; ++i) {
                const Measure &inner = measures[table.reference(visit.container, i)];
                total.weight += inner.weight;
                total.height = std::max(total.height, inner.height);
                if (total.weight > propertyListLimit::binaryValues)
                    return false;
            }
            total.height += visit.container.references > 0 ? 1 : 0;
            if (total.height > propertyListLimit::depth)
                return false;
            measures[visit.object] = total;
            path.pop_back();
        }
        if (object >= table.count())
            return false;
    }
}

std::optional<PropertyList> parseBinaryPropertyList(const QByteArray &data)
{
    if (data.size() > std::numeric_limits<std::int32_t>::max() ||
        !isBoundedBinaryPropertyList(data))
        return std::nullopt;
    plist_t parsed = nullptr;
    plist_from_bin(data.constData(), static_cast<std::uint32_t>(data.size()), &parsed);
    const PlistNode node(parsed);
    if (!node)
        return std::nullopt;
    return converted(node.get());
}

} // namespace lyrabox
