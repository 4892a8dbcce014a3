#pragma once

#include "pedals/PedalMap.h"

#include <QByteArray>

#include <optional>

/// The file of pedals and keys as text. docs/pedals.md describes it.
namespace lyrabox {

/// The version of the format that this program writes.
constexpr int pedalsVersion = 1;

/// What a file of pedals contains.
struct PedalReading {
    PedalMap map;
    bool isNewer = false; ///< written in a later version of the format: use it, never write it
    bool isWhole = true;  ///< false if something in it was dropped because it is no valid value, is
                          ///< there twice, or is beyond a limit
};

/// Reads any bytes. None if they are no such file: not JSON, larger than the limit, or without a
/// version.
std::optional<PedalReading> readPedals(const QByteArray &text);

/// The text of a map, with one line for each entry. Reading it gives the same map.
QByteArray pedalsText(const PedalMap &map);

} // namespace lyrabox
