#include "platform/foundation/TextOrder.h"

#include <QLocale>

namespace lyrabox {

QCollator textCollator()
{
    QCollator collator; // the system may sort by another language than the one it speaks
    // Without a language the toolkit compares bytes, and neither of the settings below works.
    if (collator.locale().language() == QLocale::C)
        collator.setLocale(QLocale(QLocale::English));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

} // namespace lyrabox
