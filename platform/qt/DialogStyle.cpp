#include "platform/qt/DialogStyle.h"

#include <QPainter>
#include <QStyleOptionGroupBox>

namespace {

constexpr int titleIndent = 7;
constexpr int titleGap = 3;
constexpr qreal cornerRadius = 2.5;
constexpr int darkest = 128; // the lightness below which a ground counts as dark

QSize titleSize(const QStyleOptionGroupBox& box) {
    return box.text.isEmpty() ? QSize() : box.fontMetrics.size(Qt::TextShowMnemonic, box.text);
}

QRect titleRect(const QStyleOptionGroupBox& box) {
    QRect title(box.rect.topLeft() + QPoint(titleIndent + titleGap, 0), titleSize(box));
    return title.intersected(box.rect);
}

QRect frameRect(const QStyleOptionGroupBox& box) { return box.rect.adjusted(0, titleSize(box).height() / 2, 0, 0); }

// A line that is seen on the ground and does not shout, in light and dark.
QColor frameColour(const QPalette& palette) {
    constexpr int strength = 90;
    QColor colour = palette.color(QPalette::WindowText);
    colour.setAlpha(strength);
    return colour;
}

bool isDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() < darkest; }

QRectF insideOf(const QRect& area) { return QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5); }

void drawEdge(const QStyleOption& option, QPainter& painter, bool isRound) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    bool hasFocus = option.state.testFlag(QStyle::State_HasFocus);
    painter.setPen(hasFocus ? option.palette.color(QPalette::Highlight) : frameColour(option.palette));
    painter.setBrush(Qt::NoBrush);
    if (isRound)
        painter.drawEllipse(insideOf(option.rect));
    else
        painter.drawRoundedRect(insideOf(option.rect), cornerRadius, cornerRadius);
    painter.restore();
}

// The elements whose edge the style beneath draws darker than the ground.
bool needsEdge(QStyle::PrimitiveElement element, const QStyleOption& option) {
    switch (element) {
    case QStyle::PE_FrameLineEdit:
        return isDark(option.palette) && !option.state.testFlag(QStyle::State_HasFocus);
    case QStyle::PE_IndicatorCheckBox:
    case QStyle::PE_IndicatorRadioButton:
        return isDark(option.palette);
    default:
        return false;
    }
}

void drawGroup(const QStyleOptionGroupBox& box, QPainter& painter, const QStyle& style) {
    QRect title = titleRect(box);
    painter.save();
    if (!title.isEmpty())
        painter.setClipRegion(QRegion(box.rect).subtracted(title.adjusted(-titleGap, 0, titleGap, 0)));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(frameColour(box.palette));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(insideOf(frameRect(box)), cornerRadius, cornerRadius);
    painter.restore();
    style.drawItemText(&painter, title, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, box.palette,
                       box.state.testFlag(QStyle::State_Enabled), box.text, QPalette::WindowText);
}

} // namespace

DialogStyle::DialogStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void DialogStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                     const QWidget* widget) const {
    const auto* box = control == CC_GroupBox ? qstyleoption_cast<const QStyleOptionGroupBox*>(option) : nullptr;
    if (box != nullptr)
        drawGroup(*box, *painter, *this);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void DialogStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const {
    if (element == PE_Frame) return drawEdge(*option, *painter, false);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (needsEdge(element, *option)) drawEdge(*option, *painter, element == PE_IndicatorRadioButton);
}

QRect DialogStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const {
    const auto* box = control == CC_GroupBox ? qstyleoption_cast<const QStyleOptionGroupBox*>(option) : nullptr;
    if (box == nullptr) return QProxyStyle::subControlRect(control, option, part, widget);
    return part == SC_GroupBoxLabel ? titleRect(*box) : frameRect(*box);
}

int DialogStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* data) const {
    // Marked letters are always shown: the keys are there without trying them.
    if (hint == SH_UnderlineShortcut) return 1;
    // A list drops under its box and does not cover it.
    if (hint == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}
