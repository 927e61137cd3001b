// The Static class: labels, pictures, lines and frames.
#include "platform/controls.h"
#include "platform/gdi.h"
#include "platform/modules.h"
#include "platform/qt/PictureIcon.h"
#include "platform/qt/Window.h"
#include "platform/qt/controlClasses.h"
#include "platform/qt/controlColours.h"
#include "platform/qt/ownerDraw.h"
#include "platform/qt/readerNames.h"
#include "platform/qt/windowCalls.h"

#include <QLabel>
#include <QPainter>
#include <QStyle>

#include <functional>
#include <utility>

namespace {

DWORD kindOf(DWORD style) { return style & SS_TYPEMASK; }

bool isText(DWORD kind) { return kind <= SS_RIGHT || kind == SS_SIMPLE || kind == SS_LEFTNOWORDWRAP; }
bool isPicture(DWORD kind) { return kind == SS_ICON || kind == SS_BITMAP; }

// The frame that a style puts round the client area, by its width in pixels. Programs mark what is chosen by a sunken
// edge and what lies under the mouse by a raised one.
enum Edge { noEdge = 0, line = 1, sunken = 2, raised = 3 };

Edge edgeOf(DWORD style, DWORD extendedStyle) {
    if ((extendedStyle & WS_EX_DLGMODALFRAME) != 0) return raised;
    if ((extendedStyle & WS_EX_CLIENTEDGE) != 0) return sunken;
    bool hasLine = (extendedStyle & WS_EX_STATICEDGE) != 0 || (style & (SS_SUNKEN | WS_BORDER)) != 0;
    return hasLine ? line : noEdge;
}

// Of thin lines: seen on a light window and on a dark one.
QColor lineColour(const QPalette& palette) {
    constexpr int faint = 90;
    QColor colour = palette.color(QPalette::WindowText);
    colour.setAlpha(faint);
    return colour;
}

void drawEdge(QPainter& painter, const QRect& area, Edge edge, const QPalette& palette) {
    constexpr qreal roundness = 3;
    constexpr int tint = 40;
    QColor colour = edge == line ? lineColour(palette) : palette.color(QPalette::Highlight);
    qreal width = edge == sunken ? sunken : line;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, edge != line);
    painter.setPen(QPen(colour, width));
    if (edge == sunken) {
        colour.setAlpha(tint);
        painter.setBrush(colour);
    }
    qreal inset = width / 2;
    QRectF frame = QRectF(area).adjusted(inset, inset, -inset, -inset);
    painter.drawRoundedRect(frame, edge == line ? 0 : roundness, edge == line ? 0 : roundness);
    painter.restore();
}

// A label keeps the text and tells it to who cannot see; how it looks is the window's business.
class Label : public QLabel {
public:
    explicit Label(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

    std::function<void()> draw;

protected:
    void paintEvent(QPaintEvent* /*event*/) override {
        if (draw) draw();
    }
};

class Static : public Window {
public:
    Static(std::unique_ptr<QWidget> widget, const WindowTraits& traits);
    ~Static() override;

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    void styleChanged(DWORD before, DWORD extendedBefore) override;
    void place(const QRect& area) override;
    QRect clientArea() const override { return widget()->contentsRect(); }

private:
    Label* label() const { return static_cast<Label*>(widget()); }
    void loadImage(const WindowTraits& traits);
    LRESULT setText(const QString& text);
    LRESULT setImage(WPARAM type, LPARAM image);
    LRESULT pressed(UINT message, WPARAM wParam, LPARAM lParam);
    void followStyle();
    void draw();
    void drawText(QPainter& painter, const QRect& area, const QColor& colour) const;
    void drawPicture(QPainter& painter, const QRect& area) const;
    void drawShape(QPainter& painter, const QRect& area) const;
    int textFlags() const;

    PictureIcon picture_;
    LRESULT image_ = 0;
    // A bitmap that the template names is this window's to delete.
    HBITMAP own_ = nullptr;
};

Static::Static(std::unique_ptr<QWidget> widget, const WindowTraits& traits) : Window(std::move(widget), traits) {
    setText(QString::fromStdU16String(traits.text));
    followStyle();
    label()->draw = [this] { draw(); };
    if (traits.imageId != 0) loadImage(traits);
}

Static::~Static() {
    if (own_ != nullptr) qt::DeleteObject(own_);
}

void Static::loadImage(const WindowTraits& traits) {
    LPCWSTR name = MAKEINTRESOURCEW(traits.imageId);
    if (kindOf(traits.style) == SS_ICON) {
        setImage(IMAGE_ICON, reinterpret_cast<LPARAM>(LoadIconW(traits.instance, name)));
    } else if (kindOf(traits.style) == SS_BITMAP) {
        own_ = qt::LoadBitmapW(traits.instance, name);
        setImage(IMAGE_BITMAP, reinterpret_cast<LPARAM>(own_));
    }
}

LRESULT Static::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SETTEXT:
        return setText(textFrom(lParam));
    case WM_GETTEXT:
        return copyText(label()->text(), wParam, lParam);
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(label()->text().size());
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return pressed(message, wParam, lParam);
    case STM_SETIMAGE:
        return setImage(wParam, lParam);
    case STM_GETIMAGE:
    case STM_GETICON:
        return image_;
    case STM_SETICON:
        return setImage(IMAGE_ICON, static_cast<LPARAM>(wParam));
    default:
        return Window::answer(message, wParam, lParam);
    }
}

LRESULT Static::setText(const QString& text) {
    const bool isOther = text != label()->text();
    label()->setText(text);
    label()->update();
    if (isOther) renameForReaders(*this);
    return TRUE;
}

// A picture gives its size to the window, unless the style says that it is centred in it.
LRESULT Static::setImage(WPARAM type, LPARAM image) {
    LRESULT before = std::exchange(image_, image);
    picture_ = PictureIcon::of(type, image);
    bool isFixed = (style() & (SS_CENTERIMAGE | SS_REALSIZECONTROL)) != 0;
    if (isPicture(kindOf(style())) && !isFixed && !picture_.icon.isNull()) {
        QSize frame = widget()->size() - clientArea().size();
        widget()->resize(picture_.size + frame);
    }
    widget()->update();
    return before;
}

// A template may leave the size to the picture.
void Static::place(const QRect& area) {
    Window::place(area.isEmpty() && !picture_.icon.isNull() ? QRect(area.topLeft(), widget()->size()) : area);
}

LRESULT Static::pressed(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = Window::answer(message, wParam, lParam);
    if ((style() & SS_NOTIFY) != 0) notifyCommand(message == WM_LBUTTONDOWN ? STN_CLICKED : STN_DBLCLK);
    return result;
}

// Without SS_NOTIFY the mouse is for the window below, and with it for this one alone.
void Static::followStyle() {
    bool hasMouse = (style() & SS_NOTIFY) != 0;
    widget()->setAttribute(Qt::WA_TransparentForMouseEvents, !hasMouse);
    widget()->setAttribute(Qt::WA_NoMousePropagation, hasMouse);
    int edge = edgeOf(style(), extendedStyle());
    widget()->setContentsMargins(edge, edge, edge, edge);
    widget()->update();
}

void Static::styleChanged(DWORD before, DWORD extendedBefore) {
    followStyle();
    Window::styleChanged(before, extendedBefore);
}

// The parent is asked before the painter begins: it may draw on this window itself.
void Static::draw() {
    DWORD kind = kindOf(style());
    if (kind == SS_OWNERDRAW) return sendDrawItem(*this, ODT_STATIC, widget()->isEnabled() ? 0 : ODS_DISABLED);
    const QPalette& palette = widget()->palette();
    ControlColours usual{palette.brush(QPalette::Window), palette.color(QPalette::WindowText)};
    auto colours = ControlColours::of(*this, WM_CTLCOLORSTATIC, usual);
    QPainter painter(widget());
    if (Edge edge = edgeOf(style(), extendedStyle()); edge != noEdge)
        drawEdge(painter, widget()->rect(), edge, palette);
    QRect area = clientArea();
    painter.setClipRect(area);
    // The usual background is there already.
    if (colours.background != usual.background) painter.fillRect(area, colours.background);
    if (isPicture(kind))
        drawPicture(painter, area);
    else if (isText(kind))
        drawText(painter, area, colours.text);
    else
        drawShape(painter, area);
}

int Static::textFlags() const {
    DWORD kind = kindOf(style());
    int flags = Qt::TextExpandTabs | ((style() & SS_NOPREFIX) != 0 ? 0 : Qt::TextShowMnemonic);
    if (kind == SS_CENTER) flags |= Qt::AlignHCenter;
    if (kind == SS_RIGHT) flags |= Qt::AlignRight;
    if ((style() & SS_CENTERIMAGE) != 0) return flags | Qt::AlignVCenter | Qt::TextSingleLine;
    // As a field does, in the middle of a word that is longer than the line.
    if ((style() & SS_EDITCONTROL) != 0) flags |= Qt::TextWrapAnywhere;
    return kind <= SS_RIGHT ? flags | Qt::TextWordWrap : flags;
}

void Static::drawText(QPainter& painter, const QRect& area, const QColor& colour) const {
    QString text = label()->text();
    int flags = textFlags();
    if ((style() & SS_ENDELLIPSIS) != 0)
        text = widget()->fontMetrics().elidedText(text, Qt::ElideRight, area.width(), flags);
    const QPalette& palette = widget()->palette();
    painter.setPen(widget()->isEnabled() ? colour : palette.color(QPalette::Disabled, QPalette::WindowText));
    widget()->style()->drawItemText(&painter, area, flags, palette, widget()->isEnabled(), text);
}

void Static::drawPicture(QPainter& painter, const QRect& area) const {
    QRect place = area;
    if ((style() & SS_CENTERIMAGE) != 0) {
        place = QRect(QPoint(), picture_.size);
        place.moveCenter(area.center());
    } else if ((style() & SS_REALSIZECONTROL) == 0) {
        place.setSize(picture_.size);
    }
    picture_.icon.paint(&painter, place, Qt::AlignCenter, widget()->isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void Static::drawShape(QPainter& painter, const QRect& area) const {
    const QPalette& palette = widget()->palette();
    auto outline = [&](const QColor& colour) {
        painter.setPen(colour);
        painter.drawRect(area.adjusted(0, 0, -1, -1));
    };
    switch (kindOf(style())) {
    case SS_BLACKRECT:
        return painter.fillRect(area, palette.windowText());
    case SS_GRAYRECT:
        return painter.fillRect(area, lineColour(palette));
    case SS_WHITERECT:
        return painter.fillRect(area, palette.base());
    case SS_BLACKFRAME:
        return outline(palette.color(QPalette::WindowText));
    case SS_GRAYFRAME:
    case SS_ETCHEDFRAME:
        return outline(lineColour(palette));
    case SS_WHITEFRAME:
        return outline(palette.color(QPalette::Base));
    case SS_ETCHEDHORZ:
        return painter.fillRect(QRect(area.topLeft(), QSize(area.width(), 1)), lineColour(palette));
    case SS_ETCHEDVERT:
        return painter.fillRect(QRect(area.topLeft(), QSize(1, area.height())), lineColour(palette));
    default:
        return;
    }
}

} // namespace

std::unique_ptr<Window> makeStatic(const WindowTraits& traits, QWidget* parent) {
    return std::make_unique<Static>(std::make_unique<Label>(parent), traits);
}
