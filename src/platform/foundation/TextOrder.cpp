#include "platform/foundation/TextOrder.h"

#include <QLocale>

namespace lyrabox {

QCollator textCollator()
{
    QCollator collator; // the locale for sorting, which may differ from the language of texts
    // With the locale "C" the toolkit compares bytes and ignores the settings below.
    if (collator.locale().language() == QLocale::C)
        collator.setLocale(QLocale(QLocale::English));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    return collator;
}

} // namespace lyrabox
