#include "platform/ui/OneLine.h"

namespace lyrabox {

QString oneLine(QString text)
{
    for (QChar &character : text) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = QChar::Space;
    }
    return text;
}

} // namespace lyrabox
