#include "platform/qt/DeviceContext.h"

#include "platform/posix/HandleTable.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>

#include <utility>

namespace {

auto& contexts() { return handleTable<HandleKind::deviceContext, DeviceContext, HDC>(); }

// What a memory context has selected at first: one pixel, of no use to anybody.
HGDIOBJ firstBitmap() {
    static HGDIOBJ bitmap = addStockObject({Bitmap(QSize(1, 1), 1)});
    return bitmap;
}

} // namespace

DeviceContext::DeviceContext() {
    state.brush = selected(qt::GetStockObject(WHITE_BRUSH));
    state.pen = selected(qt::GetStockObject(BLACK_PEN));
    state.font = selected(qt::GetStockObject(SYSTEM_FONT));
}

DeviceContext::~DeviceContext() = default;

std::shared_ptr<DeviceContext> DeviceContext::of(HDC dc) {
    auto context = contexts().lookUp(dc);
    if (context == nullptr) SetLastError(ERROR_INVALID_HANDLE);
    return context;
}

HDC DeviceContext::add(std::shared_ptr<DeviceContext> context) { return contexts().add(std::move(context)); }

std::shared_ptr<DeviceContext> DeviceContext::remove(HDC dc) {
    auto context = contexts().remove(dc);
    if (context == nullptr) SetLastError(ERROR_INVALID_HANDLE);
    return context;
}

std::size_t DeviceContext::count() { return contexts().size(); }

DeviceContext::Selected DeviceContext::selected(HGDIOBJ handle) { return {handle, gdiObject(handle)}; }

DeviceContext::Selected* DeviceContext::placeFor(const GdiObject& object) {
    if (std::holds_alternative<QBrush>(object.what)) return &state.brush;
    if (std::holds_alternative<QPen>(object.what)) return &state.pen;
    return std::holds_alternative<QFont>(object.what) ? &state.font : bitmapPlace();
}

HGDIOBJ DeviceContext::select(HGDIOBJ handle) {
    Selected wanted = selected(handle);
    if (wanted.object == nullptr) return nullptr;
    Selected* place = placeFor(*wanted.object);
    return place == nullptr ? nullptr : std::exchange(*place, std::move(wanted)).handle;
}

void DeviceContext::prepare(QPainter& painter) const {
    painter.setBrush(brush());
    painter.setPen(pen());
    painter.setFont(font());
}

WindowContext::WindowContext(QWidget* widget, const QRect& area) : widget_(widget), area_(area) {}

WindowContext::~WindowContext() {
    if (isTouched_ && widget_ != nullptr) widget_->update();
}

bool WindowContext::isPainting() const {
    return widget_ != nullptr && widget_->testAttribute(Qt::WA_WState_InPaintEvent);
}

qreal WindowContext::devicePixelRatio() const {
    return widget_ == nullptr ? qApp->devicePixelRatio() : widget_->devicePixelRatioF();
}

QColor WindowContext::ink() const {
    return widget_ == nullptr ? Qt::black : widget_->palette().color(QPalette::WindowText);
}

QPaintDevice* WindowContext::surface() {
    if (isPainting()) return widget_;
    if (widget_ == nullptr) return nullptr;
    isTouched_ = true;
    QSize size = (QSizeF(widget_->size()) * devicePixelRatio()).toSize();
    if (scratch_.isNull() && !size.isEmpty()) {
        scratch_ = QImage(size, QImage::Format_ARGB32_Premultiplied);
        scratch_.setDevicePixelRatio(devicePixelRatio());
        scratch_.fill(Qt::transparent);
    }
    return scratch_.isNull() ? nullptr : &scratch_;
}

void WindowContext::prepare(QPainter& painter) const {
    DeviceContext::prepare(painter);
    painter.setClipRect(area_);
    painter.translate(area_.topLeft());
}

MemoryContext::MemoryContext(qreal devicePixelRatio) : ratio_(devicePixelRatio), bitmap_(selected(firstBitmap())) {}

std::optional<Bitmap> MemoryContext::picture() const { return std::get<Bitmap>(bitmap_.object->what); }

QPaintDevice* MemoryContext::surface() { return &std::get<Bitmap>(bitmap_.object->what).canvas(); }
