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

/// One value of a property list: a copyable tree. Dictionaries keep the order in which their keys
/// were added, so that a file is written as it was built. Integers are 64-bit signed; one that does
/// not fit was read as a real.
class PropertyList {
public:
    using Array = std::vector<PropertyList>;
    using Member = std::pair<QString, PropertyList>;
    using Dictionary = std::vector<Member>;

    /// Nothing: what a missing key gives. It is not written.
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
    PropertyList(const char *) = delete; // would be taken for a bool
    PropertyList(const void *) = delete;

    bool isNull() const { return std::holds_alternative<std::monostate>(m_value); }

    /// The value where it is of that type, else nothing.
    const QString *string() const { return std::get_if<QString>(&m_value); }
    const QByteArray *data() const { return std::get_if<QByteArray>(&m_value); }
    const QDateTime *date() const { return std::get_if<QDateTime>(&m_value); }
    const Array *array() const { return std::get_if<Array>(&m_value); }
    Array *array() { return std::get_if<Array>(&m_value); }
    const Dictionary *dictionary() const { return std::get_if<Dictionary>(&m_value); }
    Dictionary *dictionary() { return std::get_if<Dictionary>(&m_value); }

    /// A number or a boolean as another number would be converted; none for everything else. An
    /// integer is none where a real has no integer part in the range.
    std::optional<bool> boolean() const;
    std::optional<qint64> integer() const;
    std::optional<double> real() const;

    /// The first member of that key of a dictionary; a null value when there is none or this is no
    /// dictionary.
    const PropertyList &value(QStringView key) const;

    /// Same types, same values, same order of keys.
    bool operator==(const PropertyList &other) const { return m_value == other.m_value; }

private:
    friend class PropertyListXmlWriter;
    std::variant<std::monostate, bool, qint64, double, QString, QByteArray, QDateTime, Array,
                 Dictionary>
        m_value;
};

/// What a property list may be at most; whatever goes beyond is not a property list to this
/// program.
namespace propertyListLimit {

/// How many arrays and dictionaries may lie inside one another.
inline constexpr int depth = 128;

/// The size of a file in bytes.
inline constexpr qint64 bytes = qint64{1} << 30;

/// How many values a binary list may hold for each of its bytes. It may name one value many times,
/// so that a few hundred bytes could otherwise stand for more than a memory holds.
inline constexpr qint64 valuesPerByte = 4;

} // namespace propertyListLimit

/// The property list in `data`, XML (UTF-8, or UTF-16 with a byte-order mark) or binary; none when
/// it is malformed or beyond the limits.
std::optional<PropertyList> parsePropertyList(const QByteArray &data);

/// The same for a file; none also when it cannot be read.
std::optional<PropertyList> readPropertyList(const QString &path);

/// `value` as an XML property list. Reals are written in the fewest digits that read back as the
/// same number. Characters that XML cannot hold are replaced by U+FFFD, as they are when a list is
/// read.
QByteArray propertyListXml(const PropertyList &value);

/// Writes `value` as XML, the whole file or none: into a temporary file beside it, flushed to the
/// disk and moved over the old one, whose permissions it takes. False, with the old file untouched,
/// when any of that fails.
bool writePropertyList(const PropertyList &value, const QString &path);

} // namespace lyrabox
