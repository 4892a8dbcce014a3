#pragma once

#include <QProxyStyle>

namespace lyrabox {

/// The look of the toolkit's own widgets, based on Fusion. It draws the fields, scroll bars and
/// menu bars of the main windows. Other windows (menus, alerts, dialogs, popovers, tool tips) get a
/// style sheet when they are first shown. There is no style sheet for the whole application,
/// because the toolkit would match it against every widget before the first picture. Main thread.
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
