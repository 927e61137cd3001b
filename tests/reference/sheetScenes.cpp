// Scenes on a property sheet of two pages: what it asks and tells them, and whom it tells that it opens and goes.
#include "platform/driver_sheets.h"
#include "tests/reference/Recorder.h"

#include <map>
#include <utility>

namespace reference {

namespace {

constexpr std::uint16_t fieldId = 101;
constexpr int applyId = 0x3021; // of the sheet's own button

using Act = std::function<void(HWND sheet)>;

struct SheetScene {
    std::string title;
    std::vector<std::pair<std::string, Act>> steps;
    std::map<std::string, LRESULT> answers; // "first apply" -> what the page answers, once
};

const std::map<UINT, const char*> pageCodes{
    {static_cast<UINT>(PSN_SETACTIVE), "active"},  {static_cast<UINT>(PSN_KILLACTIVE), "leave"},
    {static_cast<UINT>(PSN_APPLY), "apply"},       {static_cast<UINT>(PSN_RESET), "reset"},
    {static_cast<UINT>(PSN_QUERYCANCEL), "query"}, {static_cast<UINT>(PSN_HELP), "help"},
};

class SheetRecorder {
public:
    SheetRecorder(const SheetScene& scene, UINT settleTime)
        : scene_(scene), answers_(scene.answers), settleTime_(settleTime) {}

    std::string run() {
        running_ = this;
        begin("opening");
        DWORD result = 0;
        const LONG answer = CommonPropertySheetUIW(nullptr, &callback, 0, &result);
        line("= answer " + std::to_string(answer));
        running_ = nullptr;
        return text_;
    }

private:
    static LONG CALLBACK callback(PPROPSHEETUI_INFO info, LPARAM lParam) {
        return running_->handleReason(*info, lParam);
    }
    static INT_PTR CALLBACK procedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
        return running_ != nullptr ? running_->handle(page, message, wParam, lParam) : FALSE;
    }

    LONG handleReason(PROPSHEETUI_INFO& info, LPARAM lParam) {
        switch (info.Reason) {
        case PROPSHEETUI_REASON_INIT:
            line("begins");
            add(info, 0, u"First");
            add(info, 1, u"Second");
            return 1;
        case PROPSHEETUI_REASON_GET_INFO_HEADER: {
            line("is asked for its title");
            auto& header = *reinterpret_cast<PROPSHEETUI_INFO_HEADER*>(lParam);
            header.pTitle = toWide(title_.data());
            return 1;
        }
        case PROPSHEETUI_REASON_DESTROY:
            line("ends");
            return 1;
        default:
            return 1;
        }
    }

    void add(PROPSHEETUI_INFO& info, int index, const char16_t* title) {
        PROPSHEETPAGEW page{};
        page.dwSize = PROPSHEETPAGEW_V1_SIZE;
        page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE | PSP_HASHELP;
        page.pResource = dialog_.get();
        page.pszTitle = toWide(title);
        page.pfnDlgProc = &procedure;
        page.lParam = index;
        info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page), 0);
    }

    INT_PTR handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
        case WM_INITDIALOG: {
            const LPARAM index = reinterpret_cast<const PROPSHEETPAGEW*>(lParam)->lParam;
            pages_[page] = index == 0 ? "first" : "second";
            line(pages_[page] + " is made");
            if (index == 0) SetTimer(page, 1, settleTime_, nullptr);
            return TRUE;
        }
        case WM_TIMER:
            if (std::exchange(quiet_, text_.size()) == text_.size()) next(GetParent(page));
            return TRUE;
        case WM_DESTROY:
            line(pages_[page] + " is destroyed");
            return FALSE;
        case WM_COMMAND:
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) line("command " + std::to_string(LOWORD(wParam)));
            return FALSE;
        case WM_NOTIFY:
            return answer(page, *reinterpret_cast<const NMHDR*>(lParam));
        default:
            return FALSE;
        }
    }

    INT_PTR answer(HWND page, const NMHDR& header) {
        const auto code = pageCodes.find(static_cast<UINT>(header.code));
        if (code == pageCodes.end()) return FALSE;
        const std::string told = pages_[page] + " " + code->second;
        const bool isLast = (header.code == PSN_APPLY || header.code == PSN_RESET) &&
                            reinterpret_cast<const PSHNOTIFY&>(header).lParam != 0;
        line(told + (isLast ? " for good" : ""));
        const auto answer = answers_.extract(told);
        SetWindowLongPtrW(page, DWLP_MSGRESULT, answer.empty() ? 0 : answer.mapped());
        return TRUE;
    }

    void next(HWND sheet) {
        line("= " + stateOf(sheet));
        if (step_ == scene_.steps.size()) return leave(sheet);
        const auto& [title, act] = scene_.steps[step_++];
        begin(title);
        act(sheet);
    }

    // Nothing has closed it.
    void leave(HWND sheet) {
        begin("left open");
        PostMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
    }

    std::string stateOf(HWND sheet) {
        const auto shown = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
        return pages_[shown] + " shown, Apply " + (IsWindowEnabled(GetDlgItem(sheet, applyId)) ? "on" : "off") +
               ", Cancel " + (IsWindowEnabled(GetDlgItem(sheet, IDCANCEL)) ? "on" : "off");
    }

    void begin(const std::string& title) { text_ += scene_.title + ": " + title + "\n"; }
    void line(const std::string& text) { text_ += "  " + text + "\n"; }

    inline static SheetRecorder* running_ = nullptr;
    const SheetScene& scene_;
    std::map<std::string, LRESULT> answers_;
    UINT settleTime_;
    std::u16string title_ = u"Sheet";
    MemoryDialog dialog_{{{u"EDIT", ES_AUTOHSCROLL | WS_TABSTOP, fieldId, u"text"}}, WS_CHILD};
    std::map<HWND, std::string> pages_;
    std::size_t step_ = 0;
    std::string text_;
    std::size_t quiet_ = 0;
};

HWND shownPage(HWND sheet) { return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)); }
void show(HWND sheet, WPARAM index) { SendMessageW(sheet, PSM_SETCURSEL, index, 0); }
void change(HWND sheet) { SendMessageW(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(shownPage(sheet)), 0); }
void takeBack(HWND sheet) { SendMessageW(sheet, PSM_UNCHANGED, reinterpret_cast<WPARAM>(shownPage(sheet)), 0); }
Act pressing(WPARAM button) {
    return [=](HWND sheet) { PostMessageW(sheet, PSM_PRESSBUTTON, button, 0); };
}
const Act apply = pressing(PSBTN_APPLYNOW);
const Act ok = pressing(PSBTN_OK);
const Act cancel = pressing(PSBTN_CANCEL);
void toSecond(HWND sheet) { show(sheet, 1); }
void toFirst(HWND sheet) { show(sheet, 0); }

std::vector<SheetScene> sheets() {
    return {
        {"sheet applied",
         {{"the second page", toSecond},
          {"a change", change},
          {"the first page", toFirst},
          {"Apply", apply},
          {"Apply without a change", apply},
          {"a change that is taken back", [](HWND sheet) { change(sheet), takeBack(sheet); }},
          {"the program applies", [](HWND sheet) { SendMessageW(sheet, PSM_APPLY, 0, 0); }},
          {"Help", pressing(PSBTN_HELP)},
          {"OK", ok}},
         {}},
        {"sheet cancelled", {{"a change", change}, {"the second page", toSecond}, {"Cancel", cancel}}, {}},
        {"sheet never changed", {{"OK", ok}}, {}},
        {"sheet by keys", {{"Escape", [](HWND) { key(VK_ESCAPE); }}}, {}},
        {"sheet by Enter", {{"Enter", [](HWND) { key(VK_RETURN); }}}, {}},
        {"sheet closed by its frame",
         {{"the frame", [](HWND sheet) { PostMessageW(sheet, WM_SYSCOMMAND, SC_CLOSE, 0); }}},
         {}},
        {"sheet that stays",
         {{"Cancel that is refused", cancel}, {"a page that is not left", toSecond}, {"Cancel", cancel}},
         {{"first query", TRUE}, {"first leave", TRUE}}},
        {"sheet that is not applied",
         {{"the second page", toSecond},
          {"a change", change},
          {"Apply that the second refuses", apply},
          {"Apply that the first refuses", apply},
          {"OK", ok}},
         {{"second apply", PSNRET_INVALID_NOCHANGEPAGE}, {"first apply", PSNRET_NOERROR}}},
        {"sheet whose hidden page refuses",
         {{"the second page", toSecond},
          {"a change", change},
          {"the first page", toFirst},
          {"OK that the second refuses", ok},
          {"Cancel", cancel}},
         {{"second apply", PSNRET_INVALID}}},
        {"sheet whose page does not let go",
         {{"a change", change}, {"OK that it refuses", ok}, {"OK", ok}},
         {{"first leave", TRUE}}},
        {"sheet that only closes",
         {{"a change", change},
          {"what is done cannot be undone", [](HWND sheet) { SendMessageW(sheet, PSM_CANCELTOCLOSE, 0, 0); }},
          {"OK", ok}},
         {}},
    };
}

} // namespace

std::vector<Recording> sheetRecordings() {
    std::vector<Recording> all;
    for (const SheetScene& scene : sheets())
        all.push_back({scene.title, [scene](UINT settleTime) { return SheetRecorder(scene, settleTime).run(); }});
    return all;
}

} // namespace reference
