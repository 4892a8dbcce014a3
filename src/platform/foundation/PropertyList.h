#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>

#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace lyrabox {

/// One value of a property list: null, a scalar, or an array or dictionary of further values. A
/// copy is a copy of the whole tree. A dictionary keeps the order in which its keys were added, and
/// is written in that order. Integers are signed with 64 bits; a larger one in a file is read as a
/// real.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Member = std::pair<QString, PropertyList>;
    using Dictionary = std::vector<Member>;

    /// The null value, which represents a missing key. It is not written.
    PropertyList();
    PropertyList(const PropertyList &);
    PropertyList(PropertyList &&) noexcept;
    PropertyList &operator=(const PropertyList &);
    PropertyList &operator=(PropertyList &&) noexcept;
    ~PropertyList();

    PropertyList(bool value) : m_value(value) {}
    PropertyList(qint64 value) : m_value(value) {}
    PropertyList(int value) : m_value(static_cast<qint64>(value)) {}
    PropertyList(double value) : m_value(value) {}
    PropertyList(float value) : m_value(static_cast<double>(value)) {}
    PropertyList(QString value) : m_value(std::move(value)) {}
    PropertyList(QByteArray value) : m_value(std::move(value)) {}
    PropertyList(QDateTime value) : m_value(std::move(value)) {}
    PropertyList(Array value) : m_value(std::move(value)) {}
    PropertyList(Dictionary value) : m_value(std::move(value)) {}
    PropertyList(const char *) = delete; // it would become a bool
    PropertyList(const void *) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }

    /// Pointers to the value if it has that type, otherwise null. Valid until this object is
    /// changed or destroyed.
    const QString *string() const { return std::get_if<QString>(&m_value); }
    const QByteArray *data() const { return std::get_if<QByteArray>(&m_value); }
    const QDateTime *date() const { return std::get_if<QDateTime>(&m_value); }
    const Array *array() const { return std::get_if<Array>(&m_value); }
    Array *array() { return std::get_if<Array>(&m_value); }
    const Dictionary *dictionary() const { return std::get_if<Dictionary>(&m_value); }
    Dictionary *dictionary() { return std::get_if<Dictionary>(&m_value); }

    /// Conversions of a boolean, integer or real; none for every other type. integer() drops the
    /// fraction of a real, and is none if the rest does not fit into 64 bits.
    std::optional<bool> boolean() const;
    std::optional<qint64> integer() const;
    std::optional<double> real() const;

    /// The first value under `key`. The null value if there is none or this is not a dictionary.
    /// Valid until this object is changed or destroyed.
    const PropertyList &value(QStringView key) const;

    /// True for the same types, the same values and the same order of keys.
    bool operator==(const PropertyList &other) const { return m_value == other.m_value; }

private:
    friend class PropertyListXmlWriter;
    std::variant<std::monostate, bool, qint64, double, QString, QByteArray, QDateTime, Array,
                 Dictionary>
        m_value;
};

/// Limits of property lists. A larger list is rejected as malformed.
namespace propertyListLimit {

/// How deeply arrays and dictionaries may be nested.
inline constexpr int depth = 128;

/// The size of a file in bytes.
inline constexpr qint64 bytes = qint64{1} << 30;

/// The most values that a binary list may hold for each of its bytes. A binary list may refer to
/// one value many times. Without this limit a few hundred bytes could expand beyond any memory.
inline constexpr qint64 valuesPerByte = 4;

} // namespace propertyListLimit

/// The property list in `data`: XML (UTF-8, or UTF-16 with a byte-order mark) or binary. None if it
/// is malformed or beyond the limits. Any thread.
std::optional<PropertyList> parsePropertyList(const QByteArray &data);

/// The same for a file; also none if the file cannot be read.
std::optional<PropertyList> readPropertyList(const QString &path);

/// `value` as an XML property list in UTF-8. Reals are written in the fewest digits that read back
/// as the same number. Characters that XML cannot hold become U+FFFD, as they do when a list is
/// read.
QByteArray propertyListXml(const PropertyList &value);

/// Writes `value` to a file as XML, with files::replaceFile(): the file then is the old one or the
/// new one, whole. False, with the old file unchanged, if this fails.
bool writePropertyList(const PropertyList &value, const QString &path);

} // namespace lyrabox
