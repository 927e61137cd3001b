#include "platform/qt/TickedSlider.h"

#include <QKeyEvent>
#include <QStyleOptionSlider>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr int faint = 110;
constexpr int tickLength = 4;
// Nearer than that, marks are a grey bar.
constexpr int leastDistance = 3;

} // namespace

void TickedSlider::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return triggerAction(SliderSingleStepSub);
    case Qt::Key_Down:
        return triggerAction(SliderSingleStepAdd);
    case Qt::Key_PageUp:
        return triggerAction(SliderPageStepSub);
    case Qt::Key_PageDown:
        return triggerAction(SliderPageStepAdd);
    default:
        return QSlider::keyPressEvent(event);
    }
}

void TickedSlider::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    if (isSliderDown()) {
        option.activeSubControls = QStyle::SC_SliderHandle;
        option.state |= QStyle::State_Sunken;
    } else if (underMouse()) {
        option.activeSubControls = QStyle::SC_SliderHandle;
    }
    painter.drawComplexControl(QStyle::CC_Slider, option);
    if (tickPosition() != NoTicks) drawTicks(painter);
}

int TickedSlider::placeOf(int value) const {
    bool isAcross = orientation() == Qt::Horizontal;
    int handle = style()->pixelMetric(QStyle::PM_SliderLength, nullptr, this);
    int room = (isAcross ? width() : height()) - handle;
    return QStyle::sliderPositionFromValue(minimum(), maximum(), value, room) + handle / 2;
}

void TickedSlider::drawTicks(QPainter& painter) const {
    QColor colour = palette().color(QPalette::WindowText);
    colour.setAlpha(faint);
    bool isAcross = orientation() == Qt::Horizontal;
    int end = (isAcross ? height() : width()) - tickLength;
    auto mark = [&](int place, int from) {
        painter.fillRect(isAcross ? QRect(place, from, 1, tickLength) : QRect(from, place, tickLength, 1), colour);
    };
    long long range = static_cast<long long>(maximum()) - minimum();
    long long step = tickInterval() > 0 ? tickInterval() : std::max(1, pageStep());
    while (range / step > std::max(1, (isAcross ? width() : height()) / leastDistance))
        step *= 2;
    for (long long value = minimum(); value <= maximum(); value += step) {
        int place = placeOf(static_cast<int>(value));
        if ((tickPosition() & TicksAbove) != 0) mark(place, 0);
        if ((tickPosition() & TicksBelow) != 0) mark(place, end);
    }
}
