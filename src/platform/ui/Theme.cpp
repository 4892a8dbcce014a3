#include "platform/ui/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

QString uiFamily()
{
    const QStringList families = {u"Helvetica"_s,      u"Helvetica Neue"_s,  u"Nimbus Sans"_s,
                                  u"TeX Gyre Heros"_s, u"Liberation Sans"_s, u"Arial"_s};
    for (const QString &family : families) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
}

QPalette lightPalette()
{
    QPalette palette(Theme::text, Theme::window);
    const auto set = [&](QPalette::ColorRole role, const QColor &colour) {
        palette.setColor(role, colour);
    };
    set(QPalette::Window, Theme::window);
    set(QPalette::WindowText, Theme::text);
    set(QPalette::Base, Theme::surface);
    set(QPalette::AlternateBase, Theme::sidebar);
    set(QPalette::Text, Theme::text);
    set(QPalette::Button, Theme::surface);
    set(QPalette::ButtonText, Theme::text);
    set(QPalette::BrightText, Theme::surface);
    set(QPalette::ToolTipBase, Theme::surface);
    set(QPalette::ToolTipText, Theme::text);
    set(QPalette::PlaceholderText, Theme::secondaryText);
    set(QPalette::Highlight, Theme::accent);
    set(QPalette::HighlightedText, Theme::surface);
    set(QPalette::Link, Theme::focusRing);
    set(QPalette::LinkVisited, Theme::focusRing);
    set(QPalette::Light, Theme::surface);
    set(QPalette::Midlight, Theme::hairline);
    set(QPalette::Mid, Theme::lineGray);
    set(QPalette::Dark, Theme::lineGray.darker(120));
    set(QPalette::Shadow, Theme::lineGray.darker(150));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Theme::disabledText);
    return palette;
}

/// What the palette alone cannot say. The colours are those of the palette above.
QString styleSheet()
{
    return u"QPushButton { background: #FFFFFF; border: 1px solid #BDC3C7; border-radius: 5px;"
           u" padding: 3px 14px; min-height: 18px; color: #2C3E50; }"
           u"QPushButton:hover { border-color: #95A5A6; }"
           u"QPushButton:pressed { background: #E2E7EA; }"
           u"QPushButton:focus { border: 2px solid #1B6CA8; padding: 2px 13px; }"
           u"QPushButton:default { background: #2471A3; border-color: #2471A3; color: #FFFFFF; }"
           u"QPushButton:default:pressed { background: #1B5A84; }"
           u"QPushButton:default:focus { border: 2px solid #153F5C; }"
           u"QPushButton:disabled { color: #95A0A8; background: #F4F6F8; border-color: #D5DADD; }"
           u"QLineEdit { background: #FFFFFF; border: 1px solid #BDC3C7; border-radius: 5px;"
           u" padding: 2px 5px; color: #2C3E50; selection-background-color: #2471A3;"
           u" selection-color: #FFFFFF; }"
           u"QLineEdit:focus { border: 2px solid #1B6CA8; padding: 1px 4px; }"
           u"QLineEdit:disabled { color: #95A0A8; background: #F4F6F8; }"
           u"QMenuBar { background: #F8F9FA; color: #2C3E50; border-bottom: 1px solid #E4E8EA; }"
           u"QMenuBar::item { padding: 5px 9px; background: transparent; }"
           u"QMenuBar::item:selected { background: #2471A3; color: #FFFFFF; }"
           u"QMenu { background: #FFFFFF; border: 1px solid #BDC3C7; padding: 4px 0; color: "
           u"#2C3E50; }"
           u"QMenu::item { padding: 5px 26px 5px 26px; }"
           u"QMenu::item:selected { background: #2471A3; color: #FFFFFF; }"
           u"QMenu::item:disabled { color: #95A0A8; background: transparent; }"
           u"QMenu::separator { height: 1px; background: #E4E8EA; margin: 4px 0; }"
           u"QToolTip { background: #FFFFFF; color: #2C3E50; border: 1px solid #BDC3C7; padding: "
           u"3px; }"
           u"QScrollBar { background: transparent; border: none; margin: 0; }"
           u"QScrollBar:vertical { width: 11px; }"
           u"QScrollBar:horizontal { height: 11px; }"
           u"QScrollBar::handle { background: #BDC3C7; border-radius: 3px; margin: 2px; }"
           u"QScrollBar::handle:vertical { min-height: 28px; }"
           u"QScrollBar::handle:horizontal { min-width: 28px; }"
           u"QScrollBar::handle:hover { background: #95A5A6; }"
           u"QScrollBar::add-line, QScrollBar::sub-line { width: 0; height: 0; }"
           u"QScrollBar::add-page, QScrollBar::sub-page { background: transparent; }"
           u"QSplitter::handle { background: #D5DADD; }"_s;
}

/// Fusion without the desktop's icons on the buttons of alerts.
class ApplicationStyle : public QProxyStyle {
public:
    ApplicationStyle() : QProxyStyle(u"Fusion"_s) {}
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
};

} // namespace

QFont uiFont(double points)
{
    static const QString family = uiFamily();
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(qMax(1, qRound(points)));
    return font;
}

void applyApplicationTheme(QApplication &application)
{
    QApplication::setStyle(new ApplicationStyle);
    QApplication::setPalette(lightPalette());
    QApplication::setFont(uiFont(Theme::textSize));
    QToolTip::setPalette(lightPalette());
    application.setStyleSheet(styleSheet());
}

void drawFocusRing(QPainter &painter, const QRectF &rect, double radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Theme::focusRing, 2.0));
    painter.drawRoundedRect(rect.adjusted(1.0, 1.0, -1.0, -1.0), radius, radius);
    painter.restore();
}

void drawControlBox(QPainter &painter, const QRectF &rect, double radius, bool pressed)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(pressed ? Theme::pressed : Theme::surface);
    painter.setPen(QPen(Theme::lineGray, 1.0));
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
    painter.restore();
}

} // namespace lyrabox
