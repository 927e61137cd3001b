#include "plugin_ui/NavigationBar.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/getDriverFilePath.h"
#include "platform/controls.h"
#include "platform/property_sheet.h"
#include "platform/windows.h"
#include "plugin_ui/Overlay.h"
#include "plugin_ui/UIContext.h"
#include "plugin_ui/navigationList.h"
#include "resources/ids.h"

namespace {

constexpr char16_t helpFile[] = u"JT37HELP.HLP";
constexpr UINT chosenState = LVIS_SELECTED | LVIS_FOCUSED;

void tell(Overlay& overlay, HWND window, UINT message) {
    LRESULT ignored = 0;
    overlay.processMessage({window, message, 0, 0}, ignored);
}

// F1 on a control of the sheet itself.
bool isHelpWanted(const UIMessage& notification) {
    return reinterpret_cast<const NMHDR*>(notification.lParam)->code == PSN_HELP;
}

} // namespace

void NavigationBar::addChild(std::unique_ptr<MessageProcessor> child) {
    auto* overlay = dynamic_cast<Overlay*>(child.get());
    if (!overlay) raise<UnknownCaseException>(u"NavigationBar::addChild(): The child is no overlay.\r\n");
    MessageProcessorWithChildren::addChild(std::move(child));
    overlays_.push_back(overlay);
}

bool NavigationBar::onInitDialog(const UIMessage& message, LRESULT& result) {
    sendToChildren(message, result);
    helpButton_ = GetDlgItem(message.window, IDC_HELP_BUTTON);
    listWindow_ = GetDlgItem(message.window, IDC_NAVIGATION_LIST);
    fillList(message);
    return false;
}

void NavigationBar::fillList(const UIMessage& message) {
    NavigationList list(listWindow_);
    applyViewStyle();
    list.makeImageLists();
    for (Overlay* overlay : overlays_) {
        list.append(overlay->getIconId(), overlay->getLabelId());
        tell(*overlay, message.window, UIM_HIDE);
    }
    current_ = 0;
    list.setSpacing();
    list.chooseFirst();
}

// The preference may change while the page is up.
void NavigationBar::applyViewStyle() {
    NavigationList(listWindow_).setIconView(context_.getPreferences().getToolBarPreference() > 0);
}

bool NavigationBar::onRefresh(const UIMessage& message, LRESULT& result) {
    applyViewStyle();
    return sendToChildren(message, result);
}

// The preferences button of the page stays hidden as long as there is no dialog behind it.
bool NavigationBar::onShow(const UIMessage& message, LRESULT&) {
    if (!overlays_.empty()) tell(getCurrent(), message.window, UIM_SHOW);
    ShowWindow(listWindow_, SW_SHOW);
    ShowWindow(helpButton_, SW_SHOW);
    return true;
}

bool NavigationBar::onNotify(const UIMessage& message, LRESULT& result) {
    if (isHelpWanted(message)) {
        showHelp(message.window);
        return true;
    }
    if (message.wParam != IDC_NAVIGATION_LIST) return sendToChildren(message, result);
    const auto& change = *reinterpret_cast<const NMLISTVIEW*>(message.lParam);
    if (change.hdr.code != LVN_ITEMCHANGING) return false;
    if (change.uNewState != chosenState || change.hdr.idFrom != IDC_NAVIGATION_LIST) return false;
    const auto index = static_cast<std::size_t>(change.iItem);
    if (index >= overlays_.size()) return false;
    switchTo(message.window, index);
    return true;
}

void NavigationBar::switchTo(HWND window, std::size_t index) {
    tell(getCurrent(), window, UIM_HIDE);
    current_ = index;
    tell(getCurrent(), window, UIM_SHOW);
}

bool NavigationBar::onCommand(const UIMessage& message, LRESULT& result) {
    if (HIWORD(message.wParam) != BN_CLICKED || LOWORD(message.wParam) != IDC_HELP_BUTTON)
        return sendToChildren(message, result);
    showHelp(message.window);
    return false;
}

bool NavigationBar::onOtherMessage(const UIMessage& message, LRESULT& result) {
    if (message.id != WM_HELP) return sendToChildren(message, result);
    showHelp(message.window);
    return true;
}

void NavigationBar::showHelp(HWND window) const {
    const std::u16string path = getDriverFilePath(nullptr, helpFile);
    WinHelpW(window, toWide(path), HELP_CONTEXT, getCurrent().getHelpContextId());
}
