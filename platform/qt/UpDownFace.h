// The two arrows of an up-down: what the mouse does on them, and how they look.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include <functional>

class UpDownFace : public QWidget {
public:
    UpDownFace(Qt::Orientation orientation, QWidget* parent);

    // 1 for up and right, -1 for down and left; `size` grows while the button is held.
    std::function<void(int direction, int size)> stepped;
    std::function<void()> released;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    QRect arrowArea(int direction) const;
    int directionAt(const QPoint& place) const;
    void step();
    void drawArrow(QPainter& painter, int direction) const;

    Qt::Orientation orientation_;
    // 0 where there is none.
    int pressed_ = 0;
    int hovered_ = 0;
    QBasicTimer repeat_;
    QElapsedTimer held_;
};
