#pragma once

#include "platform/foundation/PropertyList.h"
#include "platform/foundation/PropertyListReader.h"

/// The two written forms of a property list; parsePropertyList() tells them apart.
namespace lyrabox {

/// Whether `data` begins as a binary property list.
bool isBinaryPropertyList(const QByteArray &data);

/// Whether `data` begins with the byte-order mark of UTF-16, which the streaming reader does not
/// read.
bool isUtf16PropertyList(const QByteArray &data);

/// `text` with U+FFFD in place of every character that XML cannot hold: control characters, halves
/// of surrogate pairs, U+FFFE and U+FFFF. Both readers and the writer pass texts through it, so
/// that what was read is compared and sorted as what will be written.
QString propertyListText(const QString &text);

/// The value of the scalar that `reader` has just given as `token`; none for one that is malformed.
std::optional<PropertyList> propertyListScalar(const PropertyListReader &reader,
                                               PropertyListReader::Token token);

/// `date` as a value; none for one outside the years 1 to 9999, which could not be written.
std::optional<PropertyList> propertyListDate(const QDateTime &date);

/// The XML property list in `data`, none when malformed or beyond the limits.
std::optional<PropertyList> parseXmlPropertyList(const QByteArray &data);

/// The binary property list in `data`, none when malformed or beyond the limits.
std::optional<PropertyList> parseBinaryPropertyList(const QByteArray &data);

} // namespace lyrabox
