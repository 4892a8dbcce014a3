#include "app/shell/Languages.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {
const QString folder = u":/i18n"_s;

void install(QCoreApplication &application, const QString &file, const QString &where)
{
    auto *const translator = new QTranslator(&application);
    if (translator->load(file, where))
        QCoreApplication::installTranslator(translator);
    else
        delete translator; // the toolkit's own translations may not be installed
}
} // namespace

QStringList shippedLanguages()
{
    QStringList languages;
    for (QString name : QDir(folder).entryList({u"lyrabox_*.qm"_s}, QDir::Files, QDir::Name)) {
        name.remove(u"lyrabox_"_s).remove(u".qm"_s);
        languages << name;
    }
    return languages;
}

void installLanguage(QCoreApplication &application, const QLocale &locale)
{
    const QStringList shipped = shippedLanguages();
    for (const QString &wanted : locale.uiLanguages()) {
        const QString language = wanted.section(u'-', 0, 0);
        if (language == u"en"_s || language == u"C"_s)
            return;
        if (shipped.contains(language)) {
            install(application, u"qtbase_"_s + language,
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            install(application, u"lyrabox_"_s + language, folder);
            return;
        }
    }
}

} // namespace lyrabox
