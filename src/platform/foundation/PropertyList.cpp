#include "platform/foundation/PropertyList.h"

#include "platform/foundation/FileReplacement.h"
#include "platform/foundation/PropertyListFormats.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace lyrabox {
namespace {

/// The integer part of `value`; none if it does not fit into 64 bits.
std::optional<qint64> integerPart(double value)
{
    constexpr double limit = 9223372036854775808.0;
    if (!(value >= -limit && value < limit))
        return std::nullopt;
    return static_cast<qint64>(value);
}

} // namespace

PropertyList::PropertyList() = default;
PropertyList::PropertyList(const PropertyList &) = default;
PropertyList::PropertyList(PropertyList &&) noexcept = default;
PropertyList &PropertyList::operator=(const PropertyList &) = default;
PropertyList &PropertyList::operator=(PropertyList &&) noexcept = default;
PropertyList::~PropertyList() = default;

std::optional<bool> PropertyList::boolean() const
{
    if (const bool *const value = std::get_if<bool>(&m_value))
        return *value;
    if (const std::optional<double> number = real())
        return *number != 0.0;
    return std::nullopt;
}

std::optional<qint64> PropertyList::integer() const
{
    if (const qint64 *const value = std::get_if<qint64>(&m_value))
        return *value;
    if (const bool *const value = std::get_if<bool>(&m_value))
        return *value ? 1 : 0;
    if (const double *const value = std::get_if<double>(&m_value))
        return integerPart(*value);
    return std::nullopt;
}

std::optional<double> PropertyList::real() const
{
    if (const double *const value = std::get_if<double>(&m_value))
        return *value;
    if (const std::optional<qint64> value = integer())
        return static_cast<double>(*value);
    return std::nullopt;
}

const PropertyList &PropertyList::value(QStringView key) const
{
    static const PropertyList none;
    const Dictionary *const members = dictionary();
    if (!members)
        return none;
    const auto found = std::find_if(members->begin(), members->end(),
                                    [key](const Member &m) { return m.first == key; });
    return found == members->end() ? none : found->second;
}

std::optional<PropertyList> parsePropertyList(const QByteArray &data)
{
    if (data.size() > propertyListLimit::bytes)
        return std::nullopt;
    return isBinaryPropertyList(data) ? parseBinaryPropertyList(data) : parseXmlPropertyList(data);
}

std::optional<PropertyList> readPropertyList(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.isSequential() ||
        file.size() > propertyListLimit::bytes)
        return std::nullopt;
    const QByteArray data = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return parsePropertyList(data);
}

bool writePropertyList(const PropertyList &value, const QString &path)
{
    return files::replaceFile(path, propertyListXml(value));
}

} // namespace lyrabox
