// A slider whose tick marks are seen on a light window and on a dark one, and whose keys are the published ones: up and
// Page Up go where left goes, to the lower numbers.
#pragma once

#include <QSlider>

class TickedSlider : public QSlider {
public:
    using QSlider::QSlider;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void drawTicks(QPainter& painter) const;
    // Where the handle's middle is at the value, along the slider.
    int placeOf(int value) const;
};
