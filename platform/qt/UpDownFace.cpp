#include "platform/qt/UpDownFace.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>

#include <utility>

namespace {

struct Pace {
    int afterMilliseconds;
    int size;
};

// Who holds the button for long wants to get far.
constexpr Pace paces[] = {{5000, 20}, {2000, 5}, {0, 1}};

int sizeAfter(qint64 milliseconds) {
    for (const Pace& pace : paces)
        if (milliseconds >= pace.afterMilliseconds) return pace.size;
    return 1;
}

} // namespace

UpDownFace::UpDownFace(Qt::Orientation orientation, QWidget* parent) : QWidget(parent), orientation_(orientation) {
    setFocusPolicy(Qt::NoFocus);
    setMouseTracking(true);
}

QRect UpDownFace::arrowArea(int direction) const {
    QRect area = rect();
    if (orientation_ == Qt::Vertical) {
        int middle = height() / 2;
        return direction > 0 ? area.adjusted(0, 0, 0, middle - height()) : area.adjusted(0, middle, 0, 0);
    }
    int middle = width() / 2;
    return direction > 0 ? area.adjusted(middle, 0, 0, 0) : area.adjusted(0, 0, middle - width(), 0);
}

int UpDownFace::directionAt(const QPoint& place) const {
    for (int direction : {1, -1})
        if (arrowArea(direction).contains(place)) return direction;
    return 0;
}

bool UpDownFace::event(QEvent* event) {
    if (event->type() == QEvent::Leave || event->type() == QEvent::EnabledChange) {
        hovered_ = 0;
        update();
    }
    return QWidget::event(event);
}

void UpDownFace::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    pressed_ = directionAt(event->position().toPoint());
    held_.start();
    repeat_.start(style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatThreshold), this);
    update();
    step();
}

void UpDownFace::mouseMoveEvent(QMouseEvent* event) {
    int before = std::exchange(hovered_, directionAt(event->position().toPoint()));
    if (before != hovered_) update();
}

void UpDownFace::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || pressed_ == 0) return;
    repeat_.stop();
    pressed_ = 0;
    update();
    if (released) released();
}

// Off the arrow the button waits for the mouse to come back.
void UpDownFace::timerEvent(QTimerEvent* event) {
    if (event->timerId() != repeat_.timerId()) return QWidget::timerEvent(event);
    if (!isEnabled() || !isVisible()) return repeat_.stop();
    repeat_.start(style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate), this);
    if (hovered_ == pressed_) step();
}

void UpDownFace::step() {
    if (stepped && pressed_ != 0) stepped(pressed_, sizeAfter(held_.elapsed()));
}

void UpDownFace::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    for (int direction : {1, -1})
        drawArrow(painter, direction);
}

void UpDownFace::drawArrow(QPainter& painter, int direction) const {
    QStyleOptionButton option;
    option.initFrom(this);
    option.rect = arrowArea(direction);
    option.state.setFlag(QStyle::State_MouseOver, hovered_ == direction && isEnabled());
    option.state |= pressed_ == direction ? QStyle::State_Sunken : QStyle::State_Raised;
    style()->drawPrimitive(QStyle::PE_PanelButtonCommand, &option, &painter, this);
    bool isVertical = orientation_ == Qt::Vertical;
    auto arrow = isVertical ? (direction > 0 ? QStyle::PE_IndicatorArrowUp : QStyle::PE_IndicatorArrowDown)
                            : (direction > 0 ? QStyle::PE_IndicatorArrowRight : QStyle::PE_IndicatorArrowLeft);
    int side = std::min({option.rect.width(), option.rect.height(), 11}) - 2;
    option.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, QSize(side, side), option.rect);
    style()->drawPrimitive(arrow, &option, &painter, this);
}
