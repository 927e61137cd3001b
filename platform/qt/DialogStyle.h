// The look of dialogs that come from templates, which place every control to the pixel.
#pragma once

#include <QProxyStyle>

class DialogStyle : public QProxyStyle {
public:
    DialogStyle();

    // A group's frame goes through the middle of its title and keeps to the rectangle of the template.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    // Edges are seen in the dark too, and do not fall between the pixels of a screen at 150 %.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};
