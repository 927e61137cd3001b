// Dialogs: windows of class "#32770" made from a template, with a dialog procedure and, for modal ones, a loop of their
// own.
#pragma once

#include "platform/qt/DialogUnits.h"
#include "platform/qt/Window.h"
#include "platform/qt/dialogTemplate.h"

#include <QEventLoop>
#include <QPointer>

inline constexpr const WCHAR* dialogClassName = u"#32770";

class Dialog : public Window {
public:
    Dialog(std::unique_ptr<QWidget> widget, WindowTraits traits, const QFont& font, DLGPROC procedure);
    ~Dialog() override;

    // Made, filled with its controls and initialized, but not shown. Null with the last error: the template's classes
    // are unknown. With WS_CHILD a part of `parent`, else owned by the window that holds it. `initParam` is the lParam
    // of WM_INITDIALOG; the procedure may end or destroy the dialog during it, so look at isAlive().
    static Dialog* create(const DialogTemplate& dialogTemplate, HINSTANCE instance, Window* parent, DLGPROC procedure,
                          LPARAM initParam);
    // The window as a dialog; null for any other.
    using Window::of;
    static Dialog* of(Window* window) noexcept { return dynamic_cast<Dialog*>(window); }

    // Shows it, runs until end() and destroys it. The owner takes no input meanwhile. -1 when it went away otherwise.
    INT_PTR runModal();
    void end(INT_PTR result);
    bool isEnded() const noexcept { return isEnded_; }

    const DialogUnits& units() const noexcept { return units_; }
    // The window that owns it; null for a dialog that is part of another window.
    Window* owner() const noexcept;
    // Shows a dialog that is not modal, as its template says.
    void showAsTemplateSays();

    LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
    LONG_PTR* extraWord(int index) noexcept override;
    void place(const QRect& area) override;

    // The push button that Enter presses; 0 for none.
    WORD defaultId() const noexcept { return defaultId_; }

    // The modal dialogs that run, the innermost last.
    static const std::vector<Dialog*>& running() noexcept;
    // Whether a modal dialog keeps the input from this window.
    static bool isBlocked(const Window& window) noexcept;

protected:
    bool translate(QEvent& event) override;
    // What the dialog does with a message that its procedure leaves to it.
    virtual LRESULT answerByDefault(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT setDefaultId(WORD id);
    LRESULT close();
    void tellActive(bool isActive);
    void coverOwner();

    DialogUnits units_;
    LONG_PTR result_ = 0;
    LONG_PTR procedure_;
    LONG_PTR user_ = 0;
    WORD defaultId_ = 0;
    QEventLoop* loop_ = nullptr;
    INT_PTR endResult_ = -1;
    bool isEnded_ = false;
    // The window that was told that it takes no input.
    QPointer<Window> covered_;
};
