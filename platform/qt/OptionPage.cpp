#include "platform/qt/OptionPage.h"

#include <algorithm>

namespace {

// Dialog units. The smallest is that of published pages; names that are longer than a line of text are cut.
constexpr int margin = 7;
constexpr int leastColumn = 120;
constexpr int mostColumn = 240;
constexpr int leastHeight = 188;

constexpr WORD firstId = 1100;
constexpr WORD idsOfItem = 4;
constexpr std::size_t mostItems = (0xFFFF - firstId) / idsOfItem;

std::vector<OptionControl> controlsOf(const COMPROPSHEETUI& record) {
    std::vector<OptionControl> controls;
    const std::size_t count = std::min<std::size_t>(record.cOptItem, mostItems);
    for (std::size_t i = 0; i < count; ++i)
        controls.emplace_back(record.pOptItem[i], static_cast<WORD>(firstId + i * idsOfItem));
    return controls;
}

int columnOf(const std::vector<OptionControl>& controls) {
    int column = leastColumn;
    for (const OptionControl& control : controls)
        if (!control.isHeading()) column = std::max(column, control.nameWidth());
    return std::min(column, mostColumn);
}

int heightOf(const std::vector<OptionControl>& controls) {
    int height = 2 * margin;
    for (const OptionControl& control : controls)
        height += control.height();
    return std::max(height, leastHeight);
}

} // namespace

OptionPage::OptionPage(const COMPROPSHEETUI& record, std::function<void(ULONG_PTR)> setResult)
    : record_(record),
      setResult_(std::move(setResult)),
      title_(record.pOptItemName  ? fromWide(record.pOptItemName)
             : record.pCallerName ? fromWide(record.pCallerName)
                                  : u""),
      controls_(controlsOf(record_)),
      template_(columnOf(controls_) + OptionControl::choiceWidth + margin, heightOf(controls_)) {
    int y = margin;
    for (const OptionControl& control : controls_) {
        control.addTo(template_, y, columnOf(controls_));
        y += control.height();
    }
}

PROPSHEETPAGEW OptionPage::sheetPage() {
    PROPSHEETPAGEW page{};
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
    page.pResource = template_.get();
    page.pszTitle = toWide(title_);
    page.pfnDlgProc = pageProcedure;
    page.lParam = reinterpret_cast<LPARAM>(this);
    return page;
}

INT_PTR CALLBACK OptionPage::pageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const LPARAM self = reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam;
        SetWindowLongPtrW(page, DWLP_USER, self);
        reinterpret_cast<OptionPage*>(self)->initialize(page);
        return TRUE;
    }
    auto* self = reinterpret_cast<OptionPage*>(GetWindowLongPtrW(page, DWLP_USER));
    if (!self) return FALSE;
    if (message == WM_COMMAND) return self->onCommand(LOWORD(wParam), HIWORD(wParam));
    if (message != WM_NOTIFY) return FALSE;
    const LRESULT result = self->onNotify(*reinterpret_cast<const NMHDR*>(lParam));
    SetWindowLongPtrW(page, DWLP_MSGRESULT, result);
    return TRUE;
}

void OptionPage::initialize(HWND page) {
    page_ = page;
    isShowing_ = true;
    for (const OptionControl& control : controls_)
        control.fill(page);
    showAll();
}

void OptionPage::showAll() {
    isShowing_ = true;
    for (const OptionControl& control : controls_) {
        control.item().Flags &= ~OPTIF_CHANGED;
        control.show(page_);
    }
    isShowing_ = false;
}

bool OptionPage::onCommand(WORD id, WORD code) {
    const std::size_t index = id < firstId ? controls_.size() : static_cast<std::size_t>(id - firstId) / idsOfItem;
    if (isShowing_ || index >= controls_.size() || controls_[index].id() != id) return false;
    const OptionControl& control = controls_[index];
    current_ = index;
    LONG oldSel = 0;
    if (control.isPushed(code)) {
        callAndRedraw(CPSUICB_REASON_PUSHBUTTON, &control.item(), 0);
    } else if (control.take(page_, code, oldSel)) {
        control.item().Flags |= OPTIF_CHANGEONCE;
        SendMessageW(GetParent(page_), PSM_CHANGED, reinterpret_cast<WPARAM>(page_), 0);
        if ((control.item().Flags & OPTIF_CALLBACK) != 0)
            callAndRedraw(CPSUICB_REASON_SEL_CHANGED, &control.item(), oldSel);
    }
    return true;
}

LRESULT OptionPage::onNotify(const NMHDR& header) {
    switch (header.code) {
    case PSN_SETACTIVE:
        callAndRedraw(CPSUICB_REASON_SETACTIVE, currentItem(), 0);
        return 0;
    case PSN_KILLACTIVE:
        callAndRedraw(CPSUICB_REASON_KILLACTIVE, currentItem(), 0);
        return FALSE;
    case PSN_APPLY:
        return apply();
    default:
        return 0;
    }
}

LRESULT OptionPage::apply() {
    ULONG_PTR result = CPSUI_OK;
    const LONG action = call(CPSUICB_REASON_APPLYNOW, currentItem(), 0, result);
    showAll();
    if (action == CPSUICB_ACTION_NO_APPLY_EXIT) return PSNRET_INVALID;
    for (const OptionControl& control : controls_)
        control.item().Flags &= ~OPTIF_CHANGEONCE;
    setResult_(result);
    return PSNRET_NOERROR;
}

LONG OptionPage::call(WORD reason, OPTITEM* item, LONG oldSel, ULONG_PTR& result) {
    if (!record_.pfnCallBack) return CPSUICB_ACTION_NONE;
    CPSUICBPARAM param{};
    param.cbSize = sizeof param;
    param.Reason = reason;
    param.hDlg = page_;
    param.pOptItem = record_.pOptItem;
    param.cOptItem = record_.cOptItem;
    param.Flags = record_.Flags;
    param.pCurItem = item;
    param.OldSel = oldSel;
    param.UserData = record_.UserData;
    param.Result = result;
    const LONG action = record_.pfnCallBack(&param);
    result = param.Result;
    return action;
}

void OptionPage::callAndRedraw(WORD reason, OPTITEM* item, LONG oldSel) {
    ULONG_PTR unused = CPSUI_OK;
    const LONG action = call(reason, item, oldSel, unused);
    if (action == CPSUICB_ACTION_OPTIF_CHANGED || action == CPSUICB_ACTION_REINIT_ITEMS) showAll();
}

OPTITEM* OptionPage::currentItem() const noexcept { return controls_.empty() ? nullptr : &controls_[current_].item(); }
