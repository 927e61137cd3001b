// The trackbar class.
#include "platform/controls.h"
#include "platform/qt/TickedSlider.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"

#include <QSlider>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int usualPages = 5;

QSlider::TickPosition ticksOf(DWORD style) {
    if ((style & TBS_NOTICKS) != 0) return QSlider::NoTicks;
    if ((style & TBS_BOTH) != 0) return QSlider::TicksBothSides;
    return (style & TBS_TOP) != 0 ? QSlider::TicksAbove : QSlider::TicksBelow;
}

// What the user did, as WM_HSCROLL says it.
WORD codeOf(int action, bool isDragged) {
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        return TB_LINEDOWN;
    case QAbstractSlider::SliderSingleStepSub:
        return TB_LINEUP;
    case QAbstractSlider::SliderPageStepAdd:
        return TB_PAGEDOWN;
    case QAbstractSlider::SliderPageStepSub:
        return TB_PAGEUP;
    case QAbstractSlider::SliderToMinimum:
        return TB_TOP;
    case QAbstractSlider::SliderToMaximum:
        return TB_BOTTOM;
    default:
        return isDragged ? TB_THUMBTRACK : TB_THUMBPOSITION;
    }
}

class Trackbar : public Window {
public:
    Trackbar(std::unique_ptr<QSlider> slider, const WindowTraits& traits);

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD before, DWORD extendedBefore) override;

protected:
    bool translate(QEvent& event) override;

private:
    QSlider* slider() const { return static_cast<QSlider*>(widget()); }
    LRESULT answerTrackbar(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT setRange(int minimum, int maximum);
    LRESULT setPosition(int position);
    LRESULT setPageSize(int size);
    LRESULT endAction(UINT message, WPARAM wParam, LPARAM lParam);
    void acted(int action);
    void released();
    void tell(WORD code);

    // Told by the program; otherwise a part of the range.
    bool hasPageSize_ = false;
    bool isMoving_ = false;
};

Trackbar::Trackbar(std::unique_ptr<QSlider> slider, const WindowTraits& traits) : Window(std::move(slider), traits) {
    this->slider()->setTickPosition(ticksOf(traits.style));
    // An upright one has its lowest number at the top.
    this->slider()->setInvertedAppearance((traits.style & TBS_VERT) != 0);
    if ((traits.style & TBS_AUTOTICKS) != 0) this->slider()->setTickInterval(1);
    setRange(0, 100);
    connect(this->slider(), &QSlider::actionTriggered, this, [this](int action) { acted(action); });
    connect(this->slider(), &QSlider::sliderReleased, this, [this] { released(); });
}

LRESULT Trackbar::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    // Before the widget has told anybody of it, sliderPosition is where the user has put it already.
    case TBM_GETPOS:
        return slider()->sliderPosition();
    case TBM_SETPOS:
        return setPosition(static_cast<int>(lParam));
    case TBM_GETRANGEMIN:
        return slider()->minimum();
    case TBM_GETRANGEMAX:
        return slider()->maximum();
    case TBM_SETRANGE:
        return setRange(static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam)));
    case TBM_SETRANGEMIN:
        return setRange(static_cast<int>(lParam), slider()->maximum());
    case TBM_SETRANGEMAX:
        return setRange(slider()->minimum(), static_cast<int>(lParam));
    case WM_KEYUP:
    case WM_LBUTTONUP:
        return endAction(message, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    default:
        return answerTrackbar(message, wParam, lParam);
    }
}

LRESULT Trackbar::answerTrackbar(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TBM_SETTICFREQ:
        return slider()->setTickInterval(static_cast<int>(wParam)), 0;
    case TBM_SETTIC:
        return TRUE;
    case TBM_CLEARTICS:
        return slider()->setTickInterval(slider()->maximum() - slider()->minimum()), 0;
    case TBM_GETNUMTICS:
        return 2 + (slider()->maximum() - slider()->minimum() - 1) / std::max(1, slider()->tickInterval());
    case TBM_SETPAGESIZE:
        return setPageSize(static_cast<int>(lParam));
    case TBM_GETPAGESIZE:
        return slider()->pageStep();
    case TBM_SETLINESIZE: {
        int before = slider()->singleStep();
        return slider()->setSingleStep(std::max(1, static_cast<int>(lParam))), before;
    }
    case TBM_GETLINESIZE:
        return slider()->singleStep();
    default:
        return Window::answer(message, wParam, lParam);
    }
}

// Nobody is told of what the program sets; the position stays inside.
LRESULT Trackbar::setRange(int minimum, int maximum) {
    slider()->setRange(minimum, std::max(minimum, maximum));
    long long length = static_cast<long long>(slider()->maximum()) - minimum;
    if (!hasPageSize_) slider()->setPageStep(std::max(1, static_cast<int>(length / usualPages)));
    return 0;
}

LRESULT Trackbar::setPosition(int position) {
    slider()->setValue(position);
    return 0;
}

// -1 goes back to the usual size.
LRESULT Trackbar::setPageSize(int size) {
    int before = slider()->pageStep();
    hasPageSize_ = size > 0;
    if (hasPageSize_)
        slider()->setPageStep(size);
    else
        setRange(slider()->minimum(), slider()->maximum());
    return before;
}

void Trackbar::acted(int action) {
    isMoving_ = true;
    tell(codeOf(action, slider()->isSliderDown()));
}

void Trackbar::released() { tell(TB_THUMBPOSITION); }

LRESULT Trackbar::endAction(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = Window::answer(message, wParam, lParam);
    if (std::exchange(isMoving_, false)) tell(TB_ENDTRACK);
    return result;
}

void Trackbar::tell(WORD code) {
    if (parent() == nullptr) return;
    bool hasPosition = code == TB_THUMBPOSITION || code == TB_THUMBTRACK;
    parent()->send((style() & TBS_VERT) != 0 ? WM_VSCROLL : WM_HSCROLL,
                   MAKEWPARAM(code, hasPosition ? slider()->sliderPosition() : 0), reinterpret_cast<LPARAM>(handle()));
}

void Trackbar::styleChanged(DWORD before, DWORD extendedBefore) {
    slider()->setTickPosition(ticksOf(style()));
    Window::styleChanged(before, extendedBefore);
}

// The wheel is for the control that has the focus: who only scrolls past changes nothing.
bool Trackbar::translate(QEvent& event) {
    if (event.type() != QEvent::Wheel || widget()->hasFocus()) return Window::translate(event);
    event.ignore();
    return true;
}

} // namespace

std::unique_ptr<Window> makeTrackbar(const WindowTraits& traits, QWidget* parent) {
    bool isVertical = (traits.style & TBS_VERT) != 0;
    return std::make_unique<Trackbar>(
        std::make_unique<TickedSlider>(isVertical ? Qt::Vertical : Qt::Horizontal, parent), traits);
}
