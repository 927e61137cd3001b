#include "plugin_ui/navigationList.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "platform/controls.h"
#include "platform/windows.h"
#include "plugin_ui/Controls/WindowContext.h"

namespace {

HIMAGELIST makeImageList(int width, int height) {
    return ImageList_Create(GetSystemMetrics(width), GetSystemMetrics(height), ILC_MASK | ILC_COLOR32, 1, 1);
}

} // namespace

LRESULT NavigationList::send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendMessageW(window_, message, wParam, lParam);
}

void NavigationList::setIconView(bool icons) {
    const DWORD wanted = icons ? LVS_ICON : LVS_LIST;
    const auto style = static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE));
    if ((style & LVS_TYPEMASK) == wanted) return;
    SetWindowLongW(window_, GWL_STYLE, static_cast<LONG>((style & ~LVS_TYPEMASK) | wanted));
}

void NavigationList::makeImageLists() {
    const auto give = [this](WPARAM kind, HIMAGELIST list) {
        send(LVM_SETIMAGELIST, kind, reinterpret_cast<LPARAM>(list));
    };
    give(LVSIL_NORMAL, makeImageList(SM_CXICON, SM_CYICON));
    give(LVSIL_SMALL, makeImageList(SM_CXSMICON, SM_CYSMICON));
}

void NavigationList::append(std::uint16_t iconId, std::uint16_t labelId) {
    const ResourceLibrary library;
    const HICON icon = library.getIconHandle(iconId);
    std::u16string label = library.getString(labelId);
    addIcon(LVSIL_NORMAL, icon);
    addIcon(LVSIL_SMALL, icon);
    LVITEMW item{};
    item.mask = LVIF_TEXT | LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
    item.iItem = static_cast<int>(send(LVM_GETITEMCOUNT));
    item.iImage = item.iItem;
    item.pszText = toWide(label.data());
    send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void NavigationList::addIcon(WPARAM imageList, HICON icon) const {
    ImageList_ReplaceIcon(reinterpret_cast<HIMAGELIST>(send(LVM_GETIMAGELIST, imageList)), -1, icon);
}

void NavigationList::setSpacing() {
    const auto horizontal = LOWORD(send(LVM_GETITEMSPACING));
    send(LVM_SETICONSPACING, 0, MAKELPARAM(horizontal, getIconSpacing(verticalResolution(window_))));
}

void NavigationList::chooseFirst() {
    LVITEMW item{};
    for (const UINT state : {LVIS_SELECTED, LVIS_FOCUSED}) {
        item.state = state;
        item.stateMask = state;
        send(LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
    }
    send(LVM_ENSUREVISIBLE, 0, FALSE);
}
