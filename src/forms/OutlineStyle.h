// Gives controls an outline where the toolkit's style "fusion" shows none: it draws frames in a
// darker shade of the window's colour, and a black window has none. For those who need white on
// black.
#pragma once

#include <QProxyStyle>

class TOutlineStyle : public QProxyStyle {
    Q_OBJECT
public:
    TOutlineStyle() : QProxyStyle("fusion") {}

    /// Whether the frames of the toolkit's style can hardly be seen in these colours.
    static bool IsNeededFor(const QPalette &palette);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
};
