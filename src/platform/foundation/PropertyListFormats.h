#pragma once

#include "platform/foundation/PropertyList.h"

/// The two written forms of a property list; parsePropertyList() tells them apart.
namespace lyrabox {

/// Whether `data` begins as a binary property list.
bool isBinaryPropertyList(const QByteArray &data);

/// The XML property list in `data`, none when malformed or beyond the limits.
std::optional<PropertyList> parseXmlPropertyList(const QByteArray &data);

/// The binary property list in `data`, none when malformed or beyond the limits.
std::optional<PropertyList> parseBinaryPropertyList(const QByteArray &data);

} // namespace lyrabox
