// The keys that go from page to page of a property sheet: Ctrl+Tab, Ctrl+Page Down, and the same back. The sheet sees
// them before the control that has the focus.
#pragma once

#include "platform/qt/Window.h"

#include <functional>

class QKeyEvent;

class SheetKeys : public QObject {
public:
    // Goes with the sheet. `go` is called with +1 or -1.
    SheetKeys(Window& sheet, std::function<void(int)> go);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Window& sheet_;
    std::function<void(int)> go_;
};
