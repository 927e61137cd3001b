// A slider whose tick marks are seen on a light window and on a dark one.
#pragma once

#include <QSlider>

class TickedSlider : public QSlider {
public:
    using QSlider::QSlider;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawTicks(QPainter& painter) const;
    // Where the handle's middle is at the value, along the slider.
    int placeOf(int value) const;
};
