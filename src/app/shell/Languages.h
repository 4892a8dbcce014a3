#pragma once

#include <QLocale>
#include <QStringList>

class QCoreApplication;

namespace lyrabox {

/// The languages that the program speaks beside English, as ISO 639 codes: "de", "es" and so on.
QStringList shippedLanguages();

/// Lets `application` speak the first of the user's languages that is shipped, in the toolkit's own
/// texts as well; English when none is, or when English comes first. Call it once, before the first
/// window is built; main thread. The translators belong to `application`.
void installLanguage(QCoreApplication &application, const QLocale &locale = QLocale());

} // namespace lyrabox
