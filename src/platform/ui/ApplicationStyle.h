#pragma once

#include <QProxyStyle>

namespace lyrabox {

/// The look of the toolkit's own widgets, over Fusion. It draws what both main windows hold:
/// fields, scroll bars and the menu bar. The windows that come later (menus, alerts, dialogs,
/// popovers, tool tips) get a style sheet when they are first shown: one for the whole application
/// would be matched against every widget before there is a picture.
class ApplicationStyle : public QProxyStyle {
    Q_OBJECT

public:
    ApplicationStyle();

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option,
                         const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;
    QIcon standardIcon(StandardPixmap image, const QStyleOption *option,
                       const QWidget *widget) const override;
};

} // namespace lyrabox
