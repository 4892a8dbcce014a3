#include "app/shell/Languages.h"

#include "WholeProgram.h"
#include "library/TrackCountTextTransformer.h"
#include "platform/ui/SegmentedControl.h"
#include "platform/ui/Theme.h"

#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMenuBar>
#include <QProcess>
#include <QRegularExpression>
#include <QTableView>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gmock/gmock.h>

using namespace Qt::Literals::StringLiterals;
using namespace lyrabox;

namespace {

void speakEnglish()
{
    for (QTranslator *translator : qApp->findChildren<QTranslator *>(Qt::FindDirectChildrenOnly)) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

/// Runs a test in one language, then switches back to English.
class EveryLanguage : public testing::TestWithParam<const char *> {
protected:
    EveryLanguage() { installLanguage(*qApp, QLocale(QLatin1String(GetParam()))); }
    ~EveryLanguage() override { speakEnglish(); }
};

class EveryTranslation : public testing::TestWithParam<const char *> {};

const auto named = [](const auto &language) { return std::string(language.param); };

struct Text {
    QString source;
    QStringList translations;
};

std::vector<Text> textsOf(const QString &language)
{
    QFile file(QLatin1String(LYRABOX_SOURCE_DIR) +
               u"/resources/translations/lyrabox_%1.ts"_s.arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    std::vector<Text> texts;
    bool isPlural = false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"message"_s)
            isPlural = xml.attributes().hasAttribute(u"numerus"_s);
        else if (xml.name() == u"source"_s)
            texts.push_back({xml.readElementText(), {}});
        else if (xml.name() == u"numerusform"_s)
            texts.back().translations << xml.readElementText();
        else if (xml.name() == u"translation"_s && !xml.attributes().hasAttribute(u"type"_s) &&
                 !isPlural)
            texts.back().translations
                << xml.readElementText(QXmlStreamReader::IncludeChildElements);
    }
    return texts;
}

QStringList placeholders(const QString &text)
{
    QStringList found;
    static const QRegularExpression pattern(u"%(\\d|n)"_s);
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
        found << match.captured();
    found.sort();
    return found;
}

QString mnemonic(const QString &text)
{
    static const QRegularExpression pattern(u"&(\\w)"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return pattern.match(text).captured(1).toLower();
}

void expectOwnMnemonics(const QWidget *menu, const QString &title)
{
    QStringList used;
    for (const QAction *action : menu->actions()) {
        if (action->isSeparator())
            continue;
        const QString letter = mnemonic(action->text());
        EXPECT_FALSE(letter.isEmpty()) << qPrintable(action->text());
        EXPECT_FALSE(used.contains(letter))
            << qPrintable(title) << ": " << qPrintable(action->text());
        used << letter;
        if (action->menu() != nullptr)
            expectOwnMnemonics(action->menu(), action->text());
    }
}

} // namespace

TEST(Languages, GermanSpanishFrenchAndJapaneseShip)
{
    EXPECT_EQ(shippedLanguages(), (QStringList{u"de"_s, u"es"_s, u"fr"_s, u"ja"_s}));
}

TEST(Languages, TheFilesContainEveryTextOfTheSources)
{
    QProcess check;
    check.start(QLatin1String(LYRABOX_SOURCE_DIR) + u"/scripts/translations"_s, {u"--check"_s});
    ASSERT_TRUE(check.waitForFinished(60000));
    EXPECT_EQ(check.exitCode(), 0) << "run scripts/translations\n"
                                   << check.readAllStandardOutput().toStdString()
                                   << check.readAllStandardError().toStdString();
}

TEST(Languages, ALanguageWithoutATranslationStaysEnglish)
{
    installLanguage(*qApp, QLocale(QLocale::Finnish));
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(12), u"12 songs"_s);
    EXPECT_TRUE(qApp->findChildren<QTranslator *>().isEmpty());
}

TEST(Languages, ARegionalVariantUsesItsLanguage)
{
    installLanguage(*qApp, QLocale(QLocale::German, QLocale::Austria));
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(12), u"12 Titel"_s);
    speakEnglish();
}

TEST(Languages, FrenchUsesItsOwnPluralForms)
{
    installLanguage(*qApp, QLocale(QLocale::French));
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(1), u"1 morceau"_s);
    EXPECT_EQ(TrackCountTextTransformer::transformedValue(2), u"2 morceaux"_s);
    speakEnglish();
}

TEST_P(EveryTranslation, HasATextForEveryText)
{
    const std::vector<Text> texts = textsOf(QLatin1String(GetParam()));
    EXPECT_GT(texts.size(), 150U);
    for (const Text &text : texts) {
        EXPECT_FALSE(text.translations.isEmpty()) << qPrintable(text.source);
        for (const QString &translation : text.translations) {
            EXPECT_FALSE(translation.isEmpty()) << qPrintable(text.source);
            EXPECT_EQ(placeholders(translation), placeholders(text.source))
                << qPrintable(text.source);
        }
    }
}

TEST_P(EveryLanguage, EveryMenuItemHasItsOwnMnemonic)
{
    const test::WholeProgram program;
    expectOwnMnemonics(test::WholeProgram::window(u"MainWindow"_s)->menuBar(), u"menu bar"_s);
}

TEST_P(EveryLanguage, NoTextIsCutAtTheMinimumWindowSize)
{
    const test::WholeProgram program;
    program.composition->launch();
    int seen = 0;
    for (const QString &name : {u"MainWindow"_s, u"EqualizerWindow"_s}) {
        QMainWindow *const window = test::WholeProgram::window(name);
        ASSERT_NE(window, nullptr) << qPrintable(name);
        window->resize(window->minimumSizeHint());
        window->show();
        for (const QLabel *label : window->findChildren<QLabel *>()) {
            if (label->text().isEmpty() || !label->isVisible() || label->wordWrap())
                continue;
            ++seen;
            EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()),
                      label->contentsRect().width() - std::max(0, label->indent()))
                << qPrintable(label->text());
        }
        for (const SegmentedControl *control : window->findChildren<SegmentedControl *>()) {
            for (int i = 0; i < control->segments().size(); ++i) {
                ++seen;
                EXPECT_LE(control->fontMetrics().horizontalAdvance(control->segments().at(i)),
                          control->segmentRect(i).width() - 8)
                    << qPrintable(control->segments().at(i));
            }
        }
        for (const QTableView *table : window->findChildren<QTableView *>()) {
            const QHeaderView *header = table->horizontalHeader();
            for (int i = 0; header->isVisible() && i < header->count(); ++i) {
                const QString title = table->model()->headerData(i, Qt::Horizontal).toString();
                ++seen;
                EXPECT_LE(header->fontMetrics().horizontalAdvance(title), header->sectionSize(i))
                    << qPrintable(title);
            }
        }
        window->hide();
    }
    EXPECT_GT(seen, 15);
}

INSTANTIATE_TEST_SUITE_P(Languages, EveryTranslation, testing::Values("de", "es", "fr", "ja"),
                         named);
INSTANTIATE_TEST_SUITE_P(Languages, EveryLanguage, testing::Values("en", "de", "es", "fr", "ja"),
                         named);
