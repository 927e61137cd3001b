#include "tests/reference/Recorder.h"

#include "platform/list_view.h"

#include <map>
#include <utility>

namespace reference {

namespace {

using Names = std::map<UINT, const char*>;

const Names buttonCodes{{BN_CLICKED, "BN_CLICKED"},
                        {BN_DOUBLECLICKED, "BN_DOUBLECLICKED"},
                        {BN_SETFOCUS, "BN_SETFOCUS"},
                        {BN_KILLFOCUS, "BN_KILLFOCUS"}};
const Names staticCodes{{STN_CLICKED, "STN_CLICKED"}, {STN_DBLCLK, "STN_DBLCLK"}};
const Names editCodes{{EN_SETFOCUS, "EN_SETFOCUS"},
                      {EN_KILLFOCUS, "EN_KILLFOCUS"},
                      {EN_CHANGE, "EN_CHANGE"},
                      {EN_UPDATE, "EN_UPDATE"},
                      {EN_MAXTEXT, "EN_MAXTEXT"}};
const Names comboCodes{{CBN_SELCHANGE, "CBN_SELCHANGE"},   {CBN_DBLCLK, "CBN_DBLCLK"},
                       {CBN_SETFOCUS, "CBN_SETFOCUS"},     {CBN_KILLFOCUS, "CBN_KILLFOCUS"},
                       {CBN_EDITCHANGE, "CBN_EDITCHANGE"}, {CBN_EDITUPDATE, "CBN_EDITUPDATE"},
                       {CBN_DROPDOWN, "CBN_DROPDOWN"},     {CBN_CLOSEUP, "CBN_CLOSEUP"},
                       {CBN_SELENDOK, "CBN_SELENDOK"},     {CBN_SELENDCANCEL, "CBN_SELENDCANCEL"}};
const Names listCodes{{LBN_SELCHANGE, "LBN_SELCHANGE"},
                      {LBN_DBLCLK, "LBN_DBLCLK"},
                      {LBN_SELCANCEL, "LBN_SELCANCEL"},
                      {LBN_SETFOCUS, "LBN_SETFOCUS"},
                      {LBN_KILLFOCUS, "LBN_KILLFOCUS"}};
// The others come with painting or with the mouse passing by.
const Names notifyCodes{{static_cast<UINT>(NM_CLICK), "NM_CLICK"},
                        {static_cast<UINT>(NM_DBLCLK), "NM_DBLCLK"},
                        {static_cast<UINT>(NM_RETURN), "NM_RETURN"},
                        {static_cast<UINT>(NM_SETFOCUS), "NM_SETFOCUS"},
                        {static_cast<UINT>(NM_KILLFOCUS), "NM_KILLFOCUS"},
                        {static_cast<UINT>(LVN_INSERTITEM), "LVN_INSERTITEM"},
                        {static_cast<UINT>(LVN_DELETEITEM), "LVN_DELETEITEM"},
                        {static_cast<UINT>(LVN_DELETEALLITEMS), "LVN_DELETEALLITEMS"},
                        {static_cast<UINT>(LVN_COLUMNCLICK), "LVN_COLUMNCLICK"},
                        {static_cast<UINT>(LVN_ITEMACTIVATE), "LVN_ITEMACTIVATE"},
                        {static_cast<UINT>(LVN_KEYDOWN), "LVN_KEYDOWN"},
                        {static_cast<UINT>(UDN_DELTAPOS), "UDN_DELTAPOS"}};
const Names scrollCodes{{TB_LINEUP, "line up"},
                        {TB_LINEDOWN, "line down"},
                        {TB_PAGEUP, "page up"},
                        {TB_PAGEDOWN, "page down"},
                        {TB_THUMBPOSITION, "position"},
                        {TB_THUMBTRACK, "track"},
                        {TB_TOP, "top"},
                        {TB_BOTTOM, "bottom"},
                        {TB_ENDTRACK, "end"}};

struct Class {
    std::u16string_view name;
    const Names& codes;
};
const Class classes[] = {{u"BUTTON", buttonCodes},
                         {u"STATIC", staticCodes},
                         {u"EDIT", editCodes},
                         {u"COMBOBOX", comboCodes},
                         {u"LISTBOX", listCodes}};

std::u16string upper(std::u16string text) {
    for (char16_t& letter : text)
        if (letter >= u'a' && letter <= u'z') letter = static_cast<char16_t>(letter - u'a' + u'A');
    return text;
}

std::string nameOf(const Names& names, UINT code) {
    auto name = names.find(code);
    return name == names.end() ? std::to_string(code) : name->second;
}

std::string commandName(HWND control, WORD code) {
    char16_t name[32] = {};
    GetClassNameW(control, toWide(name), 32);
    for (const Class& known : classes)
        if (upper(name) == known.name) return nameOf(known.codes, code);
    return std::to_string(code);
}

class Recorder {
public:
    Recorder(const Scene& scene, UINT settleTime) : scene_(scene), settleTime_(settleTime) {}

    std::string run() {
        running_ = this;
        MemoryDialog dialog(scene_.items);
        DialogBoxIndirectParamW(nullptr, dialog.get(), nullptr, &procedure, 0);
        running_ = nullptr;
        return text_;
    }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        return running_ != nullptr && running_->handle(window, message, wParam, lParam) ? TRUE : FALSE;
    }

    bool handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
        case WM_INITDIALOG:
            hands_ = DialogHands(window);
            begin("opening");
            if (scene_.prepare) scene_.prepare(hands_);
            SetTimer(window, 1, settleTime_, nullptr);
            return true;
        case WM_TIMER:
            if (std::exchange(quiet_, text_.size() + changes_.size()) == text_.size() + changes_.size()) next();
            return true;
        case WM_COMMAND:
            tellCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
            return false;
        case WM_NOTIFY:
            tellNotification(*reinterpret_cast<const NMHDR*>(lParam));
            return false;
        case WM_HSCROLL:
        case WM_VSCROLL:
            tell(reinterpret_cast<HWND>(lParam), "scroll " + nameOf(scrollCodes, LOWORD(wParam)) +
                                                     (HIWORD(wParam) != 0 ? " " + std::to_string(HIWORD(wParam)) : ""));
            return false;
        case WM_ENABLE:
            line(wParam != 0 ? "enabled" : "disabled");
            return false;
        case WM_KEYDOWN:
        case WM_CHAR:
            line("a key of its own");
            return false;
        case WM_HELP:
            line("WM_HELP " + std::to_string(reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId));
            return true;
        default:
            return false;
        }
    }

    void next() {
        end();
        if (step_ == scene_.steps.size()) {
            running_ = nullptr;
            KillTimer(hands_.window(), 1);
            EndDialog(hands_.window(), 0);
            return;
        }
        const Step& step = scene_.steps[step_++];
        begin(step.title);
        step.act(hands_);
    }

    void begin(const std::string& title) { text_ += scene_.title + ": " + title + "\n"; }
    void end() { line("= " + scene_.state(hands_)); }
    void line(const std::string& text) {
        tellChanges();
        text_ += "  " + text + "\n";
    }
    void tell(HWND control, const std::string& what) {
        line((control == nullptr ? std::string("nobody") : std::to_string(GetDlgCtrlID(control))) + " " + what);
    }

    void tellCommand(WORD id, WORD code, HWND control) {
        if (control == nullptr) return line("command " + std::to_string(id));
        tell(control, commandName(control, code));
    }
    void tellNotification(const NMHDR& header) {
        const auto code = static_cast<UINT>(header.code);
        if (code == static_cast<UINT>(LVN_ITEMCHANGED))
            note(reinterpret_cast<const NMLISTVIEW&>(header));
        else if (notifyCodes.find(code) != notifyCodes.end())
            tell(header.hwndFrom, nameOf(notifyCodes, code) + details(header, code));
    }
    void note(const NMLISTVIEW& change) {
        Change& row = changes_[change.iItem];
        const UINT gained = change.uNewState & ~change.uOldState;
        const UINT lost = change.uOldState & ~change.uNewState;
        row = {(row.gained | (gained & ~row.lost)) & ~lost, (row.lost | (lost & ~row.gained)) & ~gained};
    }
    void tellChanges() {
        for (const auto& [row, change] : changes_)
            if (change.gained != 0 || change.lost != 0)
                text_ += "  row " + std::to_string(row) + states(" gains ", change.gained) +
                         states(" loses ", change.lost) + "\n";
        changes_.clear();
    }
    static std::string details(const NMHDR& header, UINT code) {
        if (code == static_cast<UINT>(NM_CLICK) || code == static_cast<UINT>(NM_DBLCLK))
            return " row " + std::to_string(reinterpret_cast<const NMITEMACTIVATE&>(header).iItem);
        if (code == static_cast<UINT>(LVN_DELETEITEM) || code == static_cast<UINT>(LVN_INSERTITEM))
            return " row " + std::to_string(reinterpret_cast<const NMLISTVIEW&>(header).iItem);
        if (code == static_cast<UINT>(LVN_KEYDOWN))
            return " " + std::to_string(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey);
        if (code == static_cast<UINT>(UDN_DELTAPOS)) {
            const auto& delta = reinterpret_cast<const NMUPDOWN&>(header);
            return " at " + std::to_string(delta.iPos) + " by " + std::to_string(delta.iDelta);
        }
        return "";
    }
    static std::string states(const std::string& verb, UINT state) {
        std::string text;
        if ((state & LVIS_FOCUSED) != 0) text += "F";
        if ((state & LVIS_SELECTED) != 0) text += "S";
        if ((state & LVIS_STATEIMAGEMASK) != 0) text += std::to_string((state & LVIS_STATEIMAGEMASK) >> 12U);
        return text.empty() ? "" : verb + text;
    }

    struct Change {
        UINT gained = 0;
        UINT lost = 0;
    };

    inline static Recorder* running_ = nullptr;
    const Scene& scene_;
    UINT settleTime_;
    DialogHands hands_;
    std::size_t step_ = 0;
    std::size_t quiet_ = 0; // how much had been told when the timer last ran out
    std::string text_;
    std::map<int, Change> changes_; // since the last line
};

LPARAM placeOf(POINT at) { return MAKELPARAM(at.x, at.y); }

} // namespace

std::string record(const Scene& scene, UINT settleTime) { return Recorder(scene, settleTime).run(); }

void key(BYTE virtualKey, BYTE modifier) {
    if (modifier != 0) keybd_event(modifier, 0, 0, 0);
    keybd_event(virtualKey, 0, 0, 0);
    keybd_event(virtualKey, 0, KEYEVENTF_KEYUP, 0);
    if (modifier != 0) keybd_event(modifier, 0, KEYEVENTF_KEYUP, 0);
}

void press(HWND control, POINT at) { PostMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, placeOf(at)); }
void release(HWND control, POINT at) { PostMessageW(control, WM_LBUTTONUP, 0, placeOf(at)); }
void doubleClick(HWND control, POINT at) { PostMessageW(control, WM_LBUTTONDBLCLK, MK_LBUTTON, placeOf(at)); }

} // namespace reference
