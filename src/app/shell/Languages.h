#pragma once

#include <QLocale>
#include <QStringList>

class QCoreApplication;

namespace lyrabox {

/// The languages of the program besides English, as ISO 639 codes: "de", "es" and so on.
QStringList shippedLanguages();

/// Translates the program, and the toolkit's own texts, into the first of the user's languages that
/// is shipped. The texts stay English if there is none, or if English comes first. Call it once,
/// before the first window is built. `application` owns the translators. Main thread.
void installLanguage(QCoreApplication &application, const QLocale &locale = QLocale());

} // namespace lyrabox
