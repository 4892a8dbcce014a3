#pragma once

#include <QString>

namespace lyrabox {

/// `text` for a place that has one line: line breaks, tabulators and other control characters are
/// blanks. Names and tags may hold any of them, and would be cut at them or drawn with boxes.
QString oneLine(QString text);

} // namespace lyrabox
