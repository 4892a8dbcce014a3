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

/// Whether a binary list keeps to the limits: every reference points inside, no container holds
/// itself, and what the references name, each as often as it is named, is neither too deep nor too
/// much. A few hundred bytes can otherwise name more values than a memory holds.
bool isBoundedBinaryPropertyList(const QByteArray &data);

} // namespace lyrabox
