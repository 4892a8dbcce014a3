#include "platform/ui/ApplicationStyle.h"

#include "platform/ui/Popover.h"
#include "platform/ui/Theme.h"

#include <QMainWindow>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace lyrabox {

namespace {

constexpr QColor menuBarBackground{0xF8, 0xF9, 0xFA};
constexpr QColor disabledBackground = Theme::sidebar;
constexpr QColor darkerLine{0x95, 0xA5, 0xA6};

/// The space around a field's text: its border and padding.
constexpr QMargins fieldMargins{6, 3, 6, 3};
constexpr QSize menuBarItemPadding{18, 10};
constexpr int menuBarGap = 6; // between items, and before the first one
constexpr int scrollBarWidth = 11;
constexpr int minimumHandleLength = 28;
constexpr int handleMargin = 2;
constexpr double handleRadius = 3.0;
constexpr int arrowSize = 12;

/// The style sheet of dialogs, menus, popovers and tool tips.
QString styleSheet()
{
    QString sheet =
        u"QPushButton { background: @surface; border: 1px solid @line; border-radius: 5px;"
        u" padding: 3px 14px; min-height: 18px; color: @text; }"
        u"QPushButton:hover { border-color: @hover; }"
        u"QPushButton:pressed { background: @pressed; }"
        u"QPushButton:focus { border: 2px solid @focus; padding: 2px 13px; }"
        u"QPushButton:default { background: @accent; border-color: @accent; color: @surface; }"
        u"QPushButton:default:pressed { background: #1B5A84; }"
        u"QPushButton:default:focus { border: 2px solid #153F5C; }"
        u"QPushButton:disabled { color: @dimmed; background: @sidebar; border-color: #D5DADD; }"
        u"QPushButton::menu-indicator { subcontrol-position: right center; right: 3px; }"
        // It draws its own ground.
        u"lyrabox--SearchField { background: transparent; border: none; }"
        u"QMenu { background: @surface; border: 1px solid @line; padding: 4px 0; color: @text; }"
        u"QMenu::item { padding: 5px 26px 5px 26px; }"
        u"QMenu::item:selected { background: @accent; color: @surface; }"
        u"QMenu::item:disabled { color: @dimmed; background: transparent; }"
        u"QMenu::separator { height: 1px; background: @hairline; margin: 4px 0; }"
        u"QToolTip { background: @surface; color: @text; border: 1px solid @line; padding: 3px; }"_s;
    const std::pair<QString, QColor> colors[] = {
        {u"@surface"_s, Theme::surface},     {u"@line"_s, Theme::lineGray},
        {u"@text"_s, Theme::text},           {u"@hover"_s, darkerLine},
        {u"@pressed"_s, Theme::pressed},     {u"@focus"_s, Theme::focusRing},
        {u"@accent"_s, Theme::strongAccent}, {u"@dimmed"_s, Theme::disabledText},
        {u"@sidebar"_s, Theme::sidebar},     {u"@hairline"_s, Theme::hairline},
    };
    for (const auto &[name, color] : colors)
        sheet.replace(name, color.name());
    return sheet;
}

void drawField(QPainter &painter, const QStyleOption &field)
{
    const bool focused = field.state.testFlag(QStyle::State_HasFocus);
    const double width = focused ? 2.0 : 1.0;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(field.state.testFlag(QStyle::State_Enabled) ? Theme::surface
                                                                 : disabledBackground);
    painter.setPen(QPen(focused ? Theme::focusRing : Theme::lineGray, width));
    const double inset = width / 2;
    painter.drawRoundedRect(QRectF(field.rect).adjusted(inset, inset, -inset, -inset),
                            Theme::radius - inset, Theme::radius - inset);
    painter.restore();
}

void drawMenuBarItem(QPainter &painter, const QStyleOptionMenuItem &item, const QStyle &style)
{
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    painter.fillRect(item.rect, selected ? Theme::strongAccent : menuBarBackground);
    const QColor enabledText = selected ? Theme::surface : Theme::text;
    painter.setPen(item.state.testFlag(QStyle::State_Enabled) ? enabledText : Theme::disabledText);
    const bool underlined = style.styleHint(QStyle::SH_UnderlineShortcut, &item) != 0;
    painter.drawText(item.rect,
                     int(Qt::AlignCenter) | Qt::TextDontClip | Qt::TextSingleLine |
                         (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic),
                     item.text);
}

void drawScrollBarHandle(QPainter &painter, const QRect &handle, bool underPointer)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(underPointer ? darkerLine : Theme::lineGray);
    painter.drawRoundedRect(
        handle.marginsRemoved({handleMargin, handleMargin, handleMargin, handleMargin}),
        handleRadius, handleRadius);
    painter.restore();
}

/// The rectangle of one part of a scroll bar. The bar has no buttons, so the handle can use its
/// whole length.
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part)
{
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const QRect whole = bar.rect;
    const int length = isHorizontal ? whole.width() : whole.height();
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    const int handle =
        range > 0 ? qMin(length, qMax(minimumHandleLength,
                                      int(qint64(bar.pageStep) * length / (range + bar.pageStep))))
                  : length;
    const int begin = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - handle, bar.upsideDown);
    const auto stretch = [&](int from, int size) {
        return isHorizontal ? QRect(whole.x() + from, whole.y(), size, whole.height())
                            : QRect(whole.x(), whole.y() + from, whole.width(), size);
    };
    switch (part) {
    case QStyle::SC_ScrollBarGroove:
        return whole;
    case QStyle::SC_ScrollBarSlider:
        return stretch(begin, handle);
    case QStyle::SC_ScrollBarSubPage:
        return stretch(0, begin);
    case QStyle::SC_ScrollBarAddPage:
        return stretch(begin + handle, length - begin - handle);
    default:
        return {};
    }
}

/// The arrow at the end of a menu bar whose items do not all fit.
QIcon extensionIcon()
{
    QPixmap image(arrowSize, arrowSize);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::text, 1.5));
    painter.drawPolyline(QPolygonF{{2.5, 4.0}, {6.0, 7.5}, {9.5, 4.0}});
    return image;
}

} // namespace

ApplicationStyle::ApplicationStyle() : QProxyStyle(u"Fusion"_s) {}

void ApplicationStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QScrollBar *>(widget)) {
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false); // the view's background shows through
        widget->setAttribute(Qt::WA_Hover);
    }
    const bool needsStyleSheet =
        (widget->isWindow() && !qobject_cast<QMainWindow *>(widget)) ||
        qobject_cast<Popover *>(widget); // a popover is a child of a main window
    if (needsStyleSheet && widget->styleSheet().isEmpty())
        widget->setStyleSheet(styleSheet());
}

void ApplicationStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                     QPainter *painter, const QWidget *widget) const
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    if (element == PE_PanelLineEdit && frame) {
        if (frame->lineWidth > 0)
            drawField(*painter, *frame);
        return;
    }
    if (element == PE_PanelButtonTool && option->state.testFlag(State_AutoRaise))
        return; // flat: only the icon is drawn
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ApplicationStyle::drawControl(ControlElement element, const QStyleOption *option,
                                   QPainter *painter, const QWidget *widget) const
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_MenuBarItem && item) {
        drawMenuBarItem(*painter, *item, *this);
        return;
    }
    if (element == CE_MenuBarEmptyArea) {
        const QRect all = option->rect;
        painter->fillRect(all, menuBarBackground);
        painter->fillRect(QRect(all.left(), all.bottom(), all.width(), 1), Theme::hairline);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ApplicationStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                          QPainter *painter, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum)
        return;
    const bool underPointer =
        bar->state.testFlag(State_MouseOver) && bar->activeSubControls.testFlag(SC_ScrollBarSlider);
    drawScrollBarHandle(*painter, scrollBarPart(*bar, SC_ScrollBarSlider), underPointer);
}

QRect ApplicationStyle::subElementRect(SubElement element, const QStyleOption *option,
                                       const QWidget *widget) const
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    if (element == SE_LineEditContents && frame && frame->lineWidth > 0)
        return frame->rect.marginsRemoved(fieldMargins);
    return QProxyStyle::subElementRect(element, option, widget);
}

QRect ApplicationStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                       SubControl part, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ScrollBar && bar)
        return visualRect(bar->direction, bar->rect, scrollBarPart(*bar, part));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize ApplicationStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                         const QSize &contents, const QWidget *widget) const
{
    switch (type) {
    case CT_LineEdit:
        if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
            frame && frame->lineWidth > 0)
            return contents.grownBy(fieldMargins);
        break;
    case CT_MenuBarItem:
        return contents + menuBarItemPadding;
    case CT_MenuBar:
        return contents + QSize(0, 1); // for the line below the bar
    default:
        break;
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

int ApplicationStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                  const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarWidth;
    case PM_ScrollBarSliderMin:
        return minimumHandleLength;
    case PM_MenuBarItemSpacing:
    case PM_MenuBarHMargin:
        return menuBarGap;
    case PM_MenuBarVMargin:
    case PM_MenuBarPanelWidth:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ApplicationStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                                QStyleHintReturn *returnData) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

QIcon ApplicationStyle::standardIcon(StandardPixmap image, const QStyleOption *option,
                                     const QWidget *widget) const
{
    // Every menu bar asks for this icon, but only one that is too narrow shows it. Fusion would
    // read it from a file.
    if (image == SP_ToolBarHorizontalExtensionButton)
        return extensionIcon();
    return QProxyStyle::standardIcon(image, option, widget);
}

} // namespace lyrabox
