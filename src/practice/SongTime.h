#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <optional>

/// Places in a song as practice files write them. Any thread.
namespace lyrabox {

/// The unit of all places in a practice record: frames of the sound chain, per second.
constexpr std::uint64_t practiceRate = 44100;

/// The last place that a practice file can name: nearly 70 days.
constexpr std::uint64_t lastSongPlace = practiceRate * 60 * 99'999;

/// A place as minutes, seconds and five decimals: "0:12.40210". Two frames never have the same
/// text, and framesOfSongTime() of the text is the frame again.
QString songTimeText(std::uint64_t frames);

/// The frame next to a time such as "12:05", "0:12.4" or "1:02.123456789". None for any other text,
/// and beyond lastSongPlace.
std::optional<std::uint64_t> framesOfSongTime(QStringView text);

} // namespace lyrabox
