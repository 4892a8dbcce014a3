#pragma once

#include "practice/PracticeText.h"

#include <QByteArray>

#include <optional>

/// Label tracks: the text files in which editors of sound keep labels. A line has a start and an
/// end in seconds and a name, with tabs between them. Any thread.
namespace lyrabox {

/// Reads any bytes as a label track: a label with an extent is a loop, one without is a marker.
/// None if the text has no label, or is larger than a practice file may be.
///
/// Points and commas separate decimals. A label whose end comes before its start is turned round.
/// Blank lines and lines with the frequencies of a label, which begin with a backslash, mean
/// nothing. Other lines that are no labels, and labels beyond the limits of a record, are left out;
/// isWhole is false then.
std::optional<PracticeReading> readLabelTrack(const QByteArray &text);

/// The loops and markers of a record as a label track, in the order of their places. Reading it
/// gives the same places and names.
QByteArray labelTrackText(const PracticeRecord &record);

} // namespace lyrabox
