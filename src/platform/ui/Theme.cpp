#include "platform/ui/Theme.h"

#include "platform/ui/ApplicationStyle.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
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

} // namespace

QFont uiFont(double points)
{
    static const QString family = uiFamily();
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(qMax(1, qRound(points)));
    return font;
}

double uiLineHeight(double points)
{
    return QFontMetricsF(uiFont(Theme::textSize)).height() * points / Theme::textSize;
}

void applyApplicationTheme()
{
    QApplication::setStyle(new ApplicationStyle);
    QApplication::setPalette(lightPalette());
    QApplication::setFont(uiFont(Theme::textSize));
    QToolTip::setPalette(lightPalette());

    // Selected text in fields is white, which needs a darker background.
    QPalette fields = lightPalette();
    fields.setColor(QPalette::Highlight, Theme::strongAccent);
    QApplication::setPalette(fields, "QLineEdit");
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
