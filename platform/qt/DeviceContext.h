// What programs draw on. Each drawing has a painter for as long as it takes, so a surface may go away between two of
// them and nothing is left open.
#pragma once

#include "platform/gdi.h"
#include "platform/qt/gdiObjects.h"

#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class DeviceContext {
public:
    DeviceContext();
    virtual ~DeviceContext();
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;

    // Null, with ERROR_INVALID_HANDLE, for what is no device context.
    static std::shared_ptr<DeviceContext> of(HDC dc);
    static HDC add(std::shared_ptr<DeviceContext> context);
    // Takes the handle out; the context ends when its last use does.
    static std::shared_ptr<DeviceContext> remove(HDC dc);
    static std::size_t count();

    // Runs the drawing on the surface, with origin and clip at the client area. False when there is no surface.
    template <typename Drawing>
    bool draw(Drawing&& drawing) {
        QPaintDevice* device = surface();
        if (device == nullptr) return false;
        QPainter painter(device);
        if (!painter.isActive()) return false;
        prepare(painter);
        drawing(painter);
        return true;
    }
    virtual qreal devicePixelRatio() const = 0;
    // The picture that other contexts copy from; nothing where there is none.
    virtual std::optional<Bitmap> picture() const { return std::nullopt; }
    // What text is written with as long as the program has not chosen a colour.
    virtual QColor ink() const { return Qt::black; }

    // Puts the object in the place of the one of its kind, which is returned; null when it is of no use here.
    HGDIOBJ select(HGDIOBJ handle);

    QBrush brush() const { return std::get<QBrush>(state.brush.object->what); }
    QPen pen() const { return std::get<QPen>(state.pen.object->what); }
    QFont font() const { return std::get<QFont>(state.font.object->what); }
    QColor textColour() const { return state.textColour.value_or(ink()); }

    struct Selected {
        HGDIOBJ handle = nullptr;
        std::shared_ptr<GdiObject> object;
    };
    static Selected selected(HGDIOBJ handle);

    // What SaveDC keeps.
    struct State {
        Selected brush;
        Selected pen;
        Selected font;
        // Unset as long as the program has not chosen one.
        std::optional<QColor> textColour;
        std::optional<QColor> backColour;
        int backMode = OPAQUE;
        QPoint position;
    };
    State state;
    std::vector<State> saved;

protected:
    virtual QPaintDevice* surface() = 0;
    virtual void prepare(QPainter& painter) const;
    // Where a bitmap goes; null where none can be selected.
    virtual Selected* bitmapPlace() { return nullptr; }

private:
    Selected* placeFor(const GdiObject& object);
};

// Of a window, or of the screen for no window, which is for measuring only. Inside the window's painting it draws on
// the window; outside of it on a scratch picture, and the window is painted anew when the context ends.
class WindowContext : public DeviceContext {
public:
    // `area` of the widget is what can be drawn on; its corner is the origin.
    WindowContext(QWidget* widget, const QRect& area);
    ~WindowContext() override;

    qreal devicePixelRatio() const override;
    QColor ink() const override;

protected:
    QPaintDevice* surface() override;
    void prepare(QPainter& painter) const override;

private:
    bool isPainting() const;

    QPointer<QWidget> widget_;
    QRect area_;
    QImage scratch_;
    bool isTouched_ = false;
};

// Of memory: draws on the bitmap that is selected.
class MemoryContext : public DeviceContext {
public:
    explicit MemoryContext(qreal devicePixelRatio);

    qreal devicePixelRatio() const override { return ratio_; }
    std::optional<Bitmap> picture() const override;

protected:
    QPaintDevice* surface() override;
    Selected* bitmapPlace() override { return &bitmap_; }

private:
    qreal ratio_;
    Selected bitmap_;
};
