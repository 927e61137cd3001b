#include "platform/qt/ownerDraw.h"

#include "platform/qt/DeviceContext.h"
#include "platform/qt/Window.h"

void sendDrawItem(Window& control, UINT type, UINT state) {
    Window* parent = control.parent();
    if (parent == nullptr) return;
    HDC dc = DeviceContext::add(std::make_shared<WindowContext>(control.widget(), control.clientArea()));
    QSize size = control.clientArea().size();
    DRAWITEMSTRUCT item{};
    item.CtlType = type;
    item.CtlID = control.id();
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = state;
    item.hwndItem = control.handle();
    item.hDC = dc;
    item.rcItem = {0, 0, size.width(), size.height()};
    parent->send(WM_DRAWITEM, control.id(), reinterpret_cast<LPARAM>(&item));
    DeviceContext::remove(dc);
}
