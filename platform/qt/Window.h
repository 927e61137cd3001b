// One window: a widget of Qt's with what programs keep on a window, which is its id, styles, procedure, properties and
// long words. The widget is the state: nothing that it knows is kept here.
#pragma once

#include "platform/windows.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QRect>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

// What a template's item or CreateWindowExW says about a window.
struct WindowTraits {
    std::u16string className;
    DWORD style = 0;
    DWORD extendedStyle = 0;
    WORD id = 0;
    std::u16string text;
    // The picture of a label whose title is a number, and the module that it lies in.
    WORD imageId = 0;
    HINSTANCE instance = nullptr;
};

class Window : public QObject {
public:
    // Takes the widget: it dies with the window. The widget's parent decides the window's parent.
    Window(std::unique_ptr<QWidget> widget, WindowTraits traits);
    ~Window() override;

    HWND handle() const noexcept { return handle_; }
    QWidget* widget() const noexcept { return widget_; }
    const std::u16string& className() const noexcept { return className_; }
    // Without case, as everywhere.
    bool isOfClass(LPCWSTR name) const noexcept;
    WORD id() const noexcept { return id_; }
    // With WS_VISIBLE and WS_DISABLED as the widget is.
    DWORD style() const noexcept;
    DWORD extendedStyle() const noexcept { return extendedStyle_; }
    // The module that CreateWindowExW or the dialog named.
    HINSTANCE instance() const noexcept { return instance_; }

    // Null, with ERROR_INVALID_WINDOW_HANDLE, for what is no window or is one no more.
    static Window* of(HWND handle) noexcept;
    // The window whose widget this is; null for a part of one and for null.
    static Window* of(const QWidget* widget) noexcept;
    // The same, or the nearest window that it is a part of.
    static Window* holding(const QWidget* widget) noexcept;
    // All of them, in the order in which they were made.
    static std::vector<Window*> all();

    Window* parent() const noexcept;
    // In the order in which they were made: the template's.
    std::vector<Window*> children() const;
    // The first child with the id; null for none.
    Window* child(WORD id) const;
    // The windows on the desktop that go with this one, in the order in which they were made.
    std::vector<Window*> owned() const;
    // Whether it stands on the desktop and not in another window.
    bool isTopLevel() const noexcept;
    Window& root() noexcept;

    // Through the window's procedure, subclasses included. What that lets out ends here: the answer is then 0, with the
    // last error.
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) noexcept;
    // Whether the last message ended in that way.
    bool hasFailed() const noexcept { return hasFailed_; }
    // What the class itself answers: the end of the chain of procedures. A control overrides it, and hands on what it
    // does not know.
    virtual LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam);
    // Style bits changed by SetWindowLongW; style() and extendedStyle() are the new ones.
    virtual void styleChanged(DWORD before, DWORD extendedBefore);
    // Puts the window where the program wants it, in the parent's client area or on the screen.
    virtual void place(const QRect& area);
    // Without the frame that the window draws in itself.
    virtual QRect clientArea() const;
    // A long word of the class beside those of every window: a dialog keeps DWLP_... there. Null for none.
    virtual LONG_PTR* extraWord(int index) noexcept;

    WNDPROC procedure() const noexcept { return procedure_; }
    WNDPROC setProcedure(WNDPROC procedure) noexcept;
    void setStyle(DWORD style);
    void setExtendedStyle(DWORD extendedStyle);
    void setId(WORD id);
    LONG_PTR userData = 0;
    std::vector<std::pair<std::u16string, HANDLE>> properties;
    // TrackMouseEvent asked for the next time that the mouse leaves.
    bool tracksLeave = false;

    // Takes the window: from now on its handle means it, until destroy().
    static Window& keep(std::unique_ptr<Window> window);
    // WM_DESTROY to it and all in it, then the handles mean nothing and the widgets go as soon as no event of theirs
    // runs.
    void destroy();

protected:
    // WM_COMMAND with this id and the code to the parent.
    LRESULT notifyCommand(WORD code);
    // WM_NOTIFY to the parent, with the header filled in.
    LRESULT notify(NMHDR& header, UINT code);

    // Turns an event of the widget into messages and sends them; true when the widget must not see the event any more.
    // While a message of an event runs, deliverEvent() inside answer() lets the widget have the event: so a subclass
    // that swallows WM_CHAR keeps the key from the widget, and one that draws after the old procedure draws on top.
    virtual bool translate(QEvent& event);
    // False when the message did not come from an event but from a program; answer() then acts itself.
    bool deliverEvent();
    // Sends a message that stands for the event; true, since the widget has got the event by then or must not get it.
    bool sendFor(QEvent& event, UINT message, WPARAM wParam, LPARAM lParam);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Delivery {
        QEvent* event;
        Delivery* outer;
        int depth;
        bool isDue;
        bool isDone;
    };

    bool deliver(QEvent& event, bool isDue, UINT message, WPARAM wParam, LPARAM lParam);
    bool translateKey(QEvent& event);
    bool translateMouse(QEvent& event);
    void tellState(const QEvent& event);
    LRESULT answerInput(UINT message, WPARAM wParam, LPARAM lParam);
    void actOnKey(UINT message, WPARAM wParam);
    void actOnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT wantedKeys() const noexcept;

    QPointer<QWidget> widget_;
    HWND handle_;
    std::u16string className_;
    DWORD style_;
    DWORD extendedStyle_;
    WORD id_;
    HINSTANCE instance_;
    WNDPROC procedure_;
    HFONT font_ = nullptr;
    // What child() has found: a dialog asks for its controls by number with every change.
    mutable QHash<WORD, HWND> childrenById_;
    Delivery* delivery_ = nullptr;
    int depth_ = 0;
    bool isGoing_ = false;
    bool hasFailed_ = false;
};

// Copies a text as WM_GETTEXT does: at most size - 1 characters and a terminator. The number copied.
LRESULT copyText(const QString& text, WPARAM size, LPARAM buffer) noexcept;
// Where a mouse message was, in the client area.
inline POINT pointOfMouse(LPARAM position) noexcept {
    return {static_cast<SHORT>(LOWORD(position)), static_cast<SHORT>(HIWORD(position))};
}
QString textFrom(LPCWSTR text);
inline QString textFrom(LPARAM text) { return textFrom(reinterpret_cast<LPCWSTR>(text)); } // NOLINT
