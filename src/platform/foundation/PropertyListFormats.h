#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListReader.h"

/// The two file formats of a property list, XML and binary. parsePropertyList() distinguishes them.
/// Any thread.
namespace lyrabox {

/// Whether `data` starts like a binary property list.
bool isBinaryPropertyList(const QByteArray &data);

/// Whether `data` starts with a byte-order mark of UTF-16. PropertyListReader cannot read UTF-16.
bool isUtf16PropertyList(const QByteArray &data);

/// Replaces every character that XML cannot hold with U+FFFD: control characters, halves of
/// surrogate pairs, U+FFFE and U+FFFF. Both readers and the writer use this function. So a text
/// compares and sorts the same before and after it is written.
QString propertyListText(const QString &text);

/// The value of the scalar that `reader` has just returned as `token`; none if it is malformed.
std::optional<PropertyList> propertyListScalar(const PropertyListReader &reader,
                                               PropertyListReader::Token token);

/// `date` as a value; none outside the years 1 to 9999, which cannot be written.
std::optional<PropertyList> propertyListDate(const QDateTime &date);

/// The XML property list in `data`; none if it is malformed or beyond propertyListLimit.
std::optional<PropertyList> parseXmlPropertyList(const QByteArray &data);

/// The binary property list in `data`; none if it is malformed or beyond propertyListLimit.
std::optional<PropertyList> parseBinaryPropertyList(const QByteArray &data);

} // namespace lyrabox
