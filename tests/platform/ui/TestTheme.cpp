#include "platform/ui/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>

#include <gtest/gtest.h>

#include <cmath>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

double luminance(const QColor &colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double contrast(const QColor &a, const QColor &b)
{
    const double lighter = std::max(luminance(a), luminance(b));
    const double darker = std::min(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

TEST(Theme, SharedColours)
{
    EXPECT_NEAR(Theme::accent.redF(), 0.2039F, 1e-4F);
    EXPECT_NEAR(Theme::accent.greenF(), 0.5961F, 1e-4F);
    EXPECT_NEAR(Theme::accent.blueF(), 0.8588F, 1e-4F);
    EXPECT_NEAR(Theme::lineGray.redF(), 0.7412F, 1e-4F);
    EXPECT_NEAR(Theme::lineGray.greenF(), 0.7647F, 1e-4F);
    EXPECT_NEAR(Theme::lineGray.blueF(), 0.7804F, 1e-4F);
}

TEST(Theme, TextIsReadableOnEveryBackground)
{
    for (const QColor &ground : {Theme::window, Theme::surface, Theme::sidebar}) {
        EXPECT_GE(contrast(Theme::text, ground), 4.5);
        EXPECT_GE(contrast(Theme::secondaryText, ground), 4.5);
    }
    EXPECT_GE(contrast(Theme::text, Theme::lineGray), 4.5) << "an unemphasized selected row";
    EXPECT_GE(contrast(Theme::focusRing, Theme::window), 3.0);
}

TEST(Theme, TextSizesAreInPointsOfTheInterface)
{
    EXPECT_EQ(uiFont(22.0).pixelSize(), 22);
    EXPECT_EQ(uiFont(16.0).pixelSize(), 16);
    EXPECT_EQ(uiFont(12.0).pixelSize(), 12);
}

TEST(Theme, TheLineHeightIsCloseToThatOfTheFont)
{
    for (const double points : {11.0, 13.0, 16.0, 22.0})
        EXPECT_NEAR(uiLineHeight(points), QFontMetricsF(uiFont(points)).height(), 2.0) << points;
}

TEST(Theme, TypefaceIsHelveticaOrAnInstalledRelative)
{
    const QString family = uiFont(12.0).family();
    if (QFontDatabase::hasFamily(u"Helvetica"_s))
        EXPECT_EQ(family, u"Helvetica"_s);
    else
        EXPECT_TRUE(QFontDatabase::hasFamily(family) ||
                    family == QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
}

TEST(Theme, LooksTheSameUnderADarkDesktop)
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, Qt::black));
    applyApplicationTheme();
    QLabel label(u"Speed"_s);
    label.resize(80, 30);
    EXPECT_EQ(label.grab().toImage().pixelColor(79, 29), Theme::window);
    EXPECT_EQ(label.palette().color(QPalette::WindowText), Theme::text);
    QLineEdit field;
    field.resize(80, 26);
    EXPECT_EQ(field.grab().toImage().pixelColor(40, 4), Theme::surface);
    QApplication::setPalette(before);
}

} // namespace
