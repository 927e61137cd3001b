#include "platform/qt/controlColours.h"

#include "platform/qt/DeviceContext.h"
#include "platform/qt/Window.h"
#include "platform/qt/windowCalls.h"

#include <QApplication>

namespace {

// The context that a parent sets its colours on; nothing is drawn there.
class ColourContext {
public:
    ColourContext() : context_(std::make_shared<MemoryContext>(1)), handle_(DeviceContext::add(context_)) {}
    ~ColourContext() { DeviceContext::remove(handle_); }
    ColourContext(const ColourContext&) = delete;
    ColourContext& operator=(const ColourContext&) = delete;

    HDC handle() const { return handle_; }
    std::optional<QColor> text() const { return context_->state.textColour; }

private:
    std::shared_ptr<MemoryContext> context_;
    HDC handle_;
};

QColor readableOn(const QColor& background) { return background.lightness() < 128 ? Qt::white : Qt::black; }

// Black on white means the desktop's own paper and ink, which a dark desktop has the other way round.
QColor inkOnPaper(std::optional<QColor> wanted, const QPalette& palette) {
    return wanted && *wanted != Qt::black ? *wanted : palette.color(QPalette::Text);
}

} // namespace

ControlColours ControlColours::of(Window& control, UINT message, const ControlColours& usual) {
    Window* parent = control.parent();
    if (parent == nullptr) return usual;
    ColourContext context;
    LRESULT answer =
        parent->send(message, reinterpret_cast<WPARAM>(context.handle()), reinterpret_cast<LPARAM>(control.handle()));
    auto brush = reinterpret_cast<HGDIOBJ>(answer); // NOLINT
    const QPalette palette = QApplication::palette();
    if (brush == nullptr) return {usual.background, context.text().value_or(usual.text)};
    if (brush == qt::GetStockObject(WHITE_BRUSH))
        return {palette.brush(QPalette::Base), inkOnPaper(context.text(), palette)};
    auto wanted = gdiObjectAs<QBrush>(brush);
    if (!wanted || *wanted == usual.background) return {usual.background, context.text().value_or(usual.text)};
    return {*wanted,
            context.text().value_or(wanted->style() == Qt::NoBrush ? usual.text : readableOn(wanted->color()))};
}
