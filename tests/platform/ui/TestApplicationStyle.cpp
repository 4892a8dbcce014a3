#include "platform/ui/ApplicationStyle.h"
#include "platform/ui/Popover.h"
#include "platform/ui/Theme.h"

#include <QImage>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QStyleOption>

#include <gtest/gtest.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QRgb untouched = 0xFF00FF00;

QImage canvas(const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(untouched);
    return image;
}

QStyleOptionFrame fieldOption(QStyle::State state, int lineWidth = 1)
{
    QStyleOptionFrame option;
    option.rect = QRect(0, 0, 80, 26);
    option.lineWidth = lineWidth;
    option.state = state;
    return option;
}

QImage drawnField(const QStyleOptionFrame &option)
{
    const ApplicationStyle style;
    QImage image = canvas(option.rect.size());
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, nullptr);
    return image;
}

QStyleOptionSlider scrollOption(int maximum, int pageStep, int position)
{
    QStyleOptionSlider option;
    option.rect = QRect(0, 0, 11, 400);
    option.orientation = Qt::Vertical;
    option.minimum = 0;
    option.maximum = maximum;
    option.pageStep = pageStep;
    option.sliderPosition = position;
    option.state = QStyle::State_Enabled;
    return option;
}

QRect scrollPart(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    return ApplicationStyle().subControlRect(QStyle::CC_ScrollBar, &option, part, nullptr);
}

} // namespace

TEST(ApplicationStyle, TheFieldWithTheKeyboardHasAThickerBorder)
{
    const QImage resting = drawnField(fieldOption(QStyle::State_Enabled));
    EXPECT_EQ(resting.pixelColor(0, 13), Theme::lineGray);
    EXPECT_EQ(resting.pixelColor(1, 13), Theme::surface);
    const QImage focused = drawnField(fieldOption(QStyle::State_Enabled | QStyle::State_HasFocus));
    EXPECT_EQ(focused.pixelColor(0, 13), Theme::focusRing);
    EXPECT_EQ(focused.pixelColor(1, 13), Theme::focusRing);
    EXPECT_EQ(focused.pixelColor(2, 13), Theme::surface);
}

TEST(ApplicationStyle, ADisabledFieldIsGray)
{
    EXPECT_EQ(drawnField(fieldOption(QStyle::State_None)).pixelColor(40, 13), Theme::sidebar);
}

TEST(ApplicationStyle, AFieldWithoutAFrameIsNotDrawn)
{
    const QImage image = drawnField(fieldOption(QStyle::State_Enabled, 0));
    EXPECT_EQ(image.pixel(0, 13), untouched);
    EXPECT_EQ(image.pixel(40, 13), untouched);
}

TEST(ApplicationStyle, AFieldReservesTheMarginsOfItsText)
{
    const ApplicationStyle style;
    QStyleOptionFrame option = fieldOption(QStyle::State_Enabled);
    const QSize text(40, 15);
    option.rect.setSize(style.sizeFromContents(QStyle::CT_LineEdit, &option, text, nullptr));
    EXPECT_EQ(style.subElementRect(QStyle::SE_LineEditContents, &option, nullptr).size(), text);
    EXPECT_EQ(option.rect.size(), QSize(52, 21));
}

TEST(ApplicationStyle, TheHandleMovesAlongTheWholeScrollBar)
{
    EXPECT_EQ(scrollPart(scrollOption(300, 100, 0), QStyle::SC_ScrollBarSlider),
              QRect(0, 0, 11, 100));
    EXPECT_EQ(scrollPart(scrollOption(300, 100, 300), QStyle::SC_ScrollBarSlider),
              QRect(0, 300, 11, 100));
    EXPECT_EQ(scrollPart(scrollOption(300, 100, 150), QStyle::SC_ScrollBarSubPage),
              QRect(0, 0, 11, 150));
    EXPECT_EQ(scrollPart(scrollOption(300, 100, 150), QStyle::SC_ScrollBarAddPage),
              QRect(0, 250, 11, 150));
    EXPECT_TRUE(scrollPart(scrollOption(300, 100, 0), QStyle::SC_ScrollBarAddLine).isEmpty());
}

TEST(ApplicationStyle, TheHandleHasAMinimumLength)
{
    EXPECT_EQ(scrollPart(scrollOption(2000000000, 400, 0), QStyle::SC_ScrollBarSlider).height(),
              28);
    EXPECT_EQ(scrollPart(scrollOption(0, 400, 0), QStyle::SC_ScrollBarSlider).height(), 400);
}

TEST(ApplicationStyle, AScrollBarWithNothingToScrollShowsNothing)
{
    const ApplicationStyle style;
    for (const int maximum : {0, 300}) {
        const QStyleOptionSlider option = scrollOption(maximum, 100, 0);
        QImage image = canvas(option.rect.size());
        QPainter painter(&image);
        style.drawComplexControl(QStyle::CC_ScrollBar, &option, &painter, nullptr);
        painter.end();
        EXPECT_EQ(image.pixelColor(5, 50) == Theme::lineGray, maximum > 0);
        EXPECT_EQ(image.pixel(5, 200), untouched) << "the background shows through";
    }
}

TEST(ApplicationStyle, AnOpenMenuIsMarkedInTheMenuBar)
{
    const ApplicationStyle style;
    QStyleOptionMenuItem option;
    option.rect = QRect(0, 0, 60, 28);
    option.state = QStyle::State_Enabled | QStyle::State_Selected;
    QImage image = canvas(option.rect.size());
    QPainter painter(&image);
    style.drawControl(QStyle::CE_MenuBarItem, &option, &painter, nullptr);
    EXPECT_EQ(image.pixelColor(2, 2), Theme::strongAccent);
    option.state = QStyle::State_Enabled;
    style.drawControl(QStyle::CE_MenuBarItem, &option, &painter, nullptr);
    EXPECT_NE(image.pixelColor(2, 2), Theme::strongAccent);
}

TEST(ApplicationStyle, AMenuBarThatIsTooNarrowShowsAnArrow)
{
    const QIcon icon = ApplicationStyle().standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton,
                                                       nullptr, nullptr);
    const QImage image = icon.pixmap(12, 12).toImage();
    EXPECT_GT(image.pixelColor(6, 7).alpha(), 128);
    EXPECT_EQ(image.pixelColor(6, 1).alpha(), 0);
}

TEST(ApplicationStyle, SecondaryWindowsGetTheStyleSheetWhenTheyAreShown)
{
    ApplicationStyle style;
    QMainWindow window;
    window.setStyle(&style);
    window.ensurePolished();
    EXPECT_TRUE(window.styleSheet().isEmpty());
    QLineEdit *const field = new QLineEdit(&window);
    field->setStyle(&style);
    field->ensurePolished();
    EXPECT_TRUE(field->styleSheet().isEmpty());

    QMenu menu;
    menu.setStyle(&style);
    EXPECT_TRUE(menu.styleSheet().isEmpty());
    menu.ensurePolished();
    EXPECT_TRUE(menu.styleSheet().contains("QMenu"_L1));

    Popover popover(&window);
    popover.setStyle(&style);
    popover.ensurePolished();
    EXPECT_TRUE(popover.styleSheet().contains("QPushButton:default"_L1))
        << "a popover is a child of a main window";

    QWidget own;
    own.setStyle(&style);
    own.setStyleSheet(u"color: red"_s);
    own.ensurePolished();
    EXPECT_EQ(own.styleSheet(), u"color: red"_s) << "a widget's own style sheet is kept";
}
