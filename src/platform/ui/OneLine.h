#pragma once

#include <QString>

namespace lyrabox {

/// `text` for a place that shows one line: line breaks, tabs and other control characters become
/// spaces. Names and tags may contain such characters, which would cut the text or show as boxes.
/// Any thread.
QString oneLine(QString text);

} // namespace lyrabox
