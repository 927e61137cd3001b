// The common property sheet on the window layer: whom it tells what, in which order, and what it makes of the answers.
#include "platform/controls.h"
#include "platform/driver_sheets.h"
#include "platform/windows.h"
#include "tests/memoryDialog.h"

#include <gmock/gmock.h>

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using Log = std::vector<std::string>;

// What the pages and callbacks of one sheet were told; and what is to be done with it, a step a turn of the loop.
struct Play {
    Log log;
    std::map<std::string, LRESULT> answers;                // "a apply" -> the page's answer
    std::map<std::string, std::function<void(HWND)>> acts; // what the page does with the sheet before it answers
    std::deque<std::function<void(HWND)>> steps;
    std::map<std::string, HWND> pages;
    std::array<PROPSHEETPAGEW, 3> records{};
    std::function<LONG(PROPSHEETUI_INFO&)> onInit;
    HANDLE lastPage = nullptr;

    void note(const std::string& text) { log.push_back(text); }
};
Play* play = nullptr;

// A page without controls; its name is what lParam points to.
struct EmptyPage {
    DLGTEMPLATE header{WS_CHILD, 0, 0, 0, 0, 200, 100};
    std::array<WORD, 3> nothing{};
} emptyPage;

std::string wordOf(UINT code) {
    switch (code) {
    case PSN_SETACTIVE:
        return "set active";
    case PSN_KILLACTIVE:
        return "kill active";
    case PSN_APPLY:
        return "apply";
    case PSN_RESET:
        return "reset";
    case PSN_QUERYCANCEL:
        return "query cancel";
    case PSN_HELP:
        return "help";
    default:
        return "?";
    }
}

INT_PTR CALLBACK pageProcedure(HWND page, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& record = *reinterpret_cast<const PROPSHEETPAGEW*>(lParam);
        SetWindowLongPtrW(page, DWLP_USER, record.lParam);
        const std::string name = reinterpret_cast<const char*>(record.lParam);
        play->pages[name] = page;
        play->note(name + " init");
        return TRUE;
    }
    const auto* name = reinterpret_cast<const char*>(GetWindowLongPtrW(page, DWLP_USER));
    if (message == WM_DESTROY && name) play->note(std::string(name) + " destroy");
    if (message != WM_NOTIFY || !name) return FALSE;
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    const std::string word = std::string(name) + ' ' + wordOf(header.code);
    const bool isClosing = header.code == PSN_APPLY && reinterpret_cast<const PSHNOTIFY&>(header).lParam != 0;
    play->note(word + (isClosing ? " and close" : ""));
    if (const auto act = play->acts.find(word); act != play->acts.end()) act->second(GetParent(page));
    SetWindowLongPtrW(page, DWLP_MSGRESULT, play->answers[word]);
    return TRUE;
}

UINT CALLBACK pageCallback(HWND, UINT message, PROPSHEETPAGEW*) {
    static constexpr const char* words[] = {"callback add", "callback release", "callback create"};
    play->note(words[message]);
    return 1;
}

HANDLE addPage(const PROPSHEETUI_INFO& info, std::size_t index, const char* name,
               LPCDLGTEMPLATEW dialog = &emptyPage.header) {
    PROPSHEETPAGEW& page = play->records[index];
    page.dwSize = sizeof page;
    page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE | (page.pfnCallback ? PSP_USECALLBACK : 0);
    page.pResource = dialog;
    page.pszTitle = index == 0 ? u"First" : u"Second";
    page.pfnDlgProc = pageProcedure;
    page.lParam = reinterpret_cast<LPARAM>(name);
    return reinterpret_cast<HANDLE>(
        info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PROPSHEETPAGEW, reinterpret_cast<LPARAM>(&page), 0));
}

void noteReason(const std::string& who, const PROPSHEETUI_INFO& info, LPARAM lParam) {
    static constexpr const char* words[] = {"init", "header", "destroy", "result"};
    std::string text = who + ' ' + words[info.Reason];
    if (info.Reason == PROPSHEETUI_REASON_SET_RESULT)
        text += ' ' + std::to_string(reinterpret_cast<const SETRESULT_INFO*>(lParam)->Result);
    play->note(text);
}

LONG CALLBACK rootCallback(PPROPSHEETUI_INFO info, LPARAM lParam) {
    noteReason("root", *info, lParam);
    if (info->Reason == PROPSHEETUI_REASON_SET_RESULT)
        info->Result = static_cast<ULONG_PTR>(reinterpret_cast<const SETRESULT_INFO*>(lParam)->Result);
    return info->Reason == PROPSHEETUI_REASON_INIT ? play->onInit(*info) : 1;
}

void CALLBACK takeTurn(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND sheet = GetActiveWindow();
    if (!sheet || !IsWindowVisible(sheet)) return;
    if (play->steps.empty()) {
        KillTimer(nullptr, timer);
        SendMessageW(sheet, PSM_PRESSBUTTON, PSBTN_CANCEL, 0);
        return;
    }
    auto step = play->steps.front();
    play->steps.pop_front();
    step(sheet);
}

std::function<void(HWND)> press(WPARAM button) {
    return [button](HWND sheet) { SendMessageW(sheet, PSM_PRESSBUTTON, button, 0); };
}

bool canApply(HWND sheet) { return IsWindowEnabled(GetDlgItem(sheet, ID_APPLY_NOW)) != 0; }

class PropertySheet : public testing::Test {
protected:
    PropertySheet() {
        play = &now;
        now.onInit = [](PROPSHEETUI_INFO& info) {
            addPage(info, 0, "a");
            play->lastPage = addPage(info, 1, "b");
            return 1;
        };
    }

    // Opens the sheet, does the steps, and cancels what is left of it.
    LONG run(std::deque<std::function<void(HWND)>> steps) {
        now.steps = std::move(steps);
        const UINT_PTR timer = SetTimer(nullptr, 0, 1, takeTurn);
        const LONG answer = CommonPropertySheetUIW(nullptr, rootCallback, 0, &result);
        KillTimer(nullptr, timer);
        return answer;
    }

    Play now;
    DWORD result = 77;
};

} // namespace

TEST_F(PropertySheet, aPageIsMadeWhenItIsFirstShownAndAllHearOfTheEnd) {
    EXPECT_EQ(run({[](HWND sheet) { SendMessageW(sheet, PSM_SETCURSEL, 1, 0); }, press(PSBTN_CANCEL)}), CPSUI_OK);
    EXPECT_EQ(result, static_cast<DWORD>(CPSUI_CANCEL));
    EXPECT_THAT(now.log, ElementsAre("root init", "root header", "a init", "a set active", "a kill active", "b init",
                                     "b set active", "b query cancel", "a reset", "b reset", "a destroy", "b destroy",
                                     "root destroy"));
}

TEST_F(PropertySheet, okAppliesThePagesThatWereShown) {
    run({press(PSBTN_OK)});
    EXPECT_THAT(now.log, ElementsAre("root init", "root header", "a init", "a set active", "a kill active",
                                     "a apply and close", "a destroy", "root destroy"));
}

TEST_F(PropertySheet, applyIsThereWhenAPageHasChanged) {
    run({[](HWND sheet) {
             EXPECT_FALSE(canApply(sheet));
             SendMessageW(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(play->pages["a"]), 0);
             EXPECT_TRUE(canApply(sheet));
             SendMessageW(sheet, PSM_UNCHANGED, reinterpret_cast<WPARAM>(play->pages["a"]), 0);
             EXPECT_FALSE(canApply(sheet));
             SendMessageW(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(play->pages["a"]), 0);
             play->log.clear();
         },
         press(PSBTN_APPLYNOW),
         [](HWND sheet) {
             EXPECT_FALSE(canApply(sheet));
             EXPECT_THAT(play->log, ElementsAre("a kill active", "a apply", "a set active"));
         }});
}

TEST_F(PropertySheet, thePageThatRefusesIsShownAndTheSheetStays) {
    now.answers["a apply"] = PSNRET_INVALID;
    const auto showsFirst = [](HWND sheet) {
        const auto page = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
        EXPECT_EQ(page, play->pages["a"]);
        EXPECT_TRUE(IsWindowVisible(play->pages["a"]));
        EXPECT_FALSE(IsWindowVisible(play->pages["b"]));
        const auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
        EXPECT_EQ(SendMessageW(tabs, TCM_GETCURSEL, 0, 0), 0);
        EXPECT_EQ(tabs, GetDlgItem(sheet, 0x3020));
    };
    run({[](HWND sheet) { SendMessageW(sheet, PSM_SETCURSEL, 1, 0); }, press(PSBTN_OK), showsFirst});
    EXPECT_EQ(std::count(now.log.begin(), now.log.end(), "b apply and close"), 0);
}

TEST_F(PropertySheet, aPageCanHoldWhoWantsToLeave) {
    now.answers["a kill active"] = TRUE;
    now.answers["a query cancel"] = TRUE;
    run({[](HWND sheet) {
             EXPECT_FALSE(SendMessageW(sheet, PSM_SETCURSEL, 1, 0));
             EXPECT_EQ(SendMessageW(sheet, PSM_HWNDTOINDEX, SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0), 0), 0);
         },
         press(PSBTN_OK), press(PSBTN_CANCEL), [](HWND sheet) { SendMessageW(sheet, WM_CLOSE, 0, 0); },
         [](HWND sheet) {
             EXPECT_TRUE(IsWindowVisible(sheet));
             play->answers.clear();
         }});
    EXPECT_EQ(std::count(now.log.begin(), now.log.end(), "a apply and close"), 0);
    EXPECT_EQ(std::count(now.log.begin(), now.log.end(), "a query cancel"), 3);
}

TEST_F(PropertySheet, whatAPageDoesWhileItIsAskedDoesNoHarm) {
    struct Row {
        WPARAM button;
        const char* asked;
        const char* what;
        std::function<void(HWND)> act;
        const char* lastHeard; // by the page, before it went
    };
    const auto fails = [](HWND) { throw std::runtime_error("out"); };
    const auto destroys = [](HWND sheet) { DestroyWindow(sheet); };
    const Row rows[] = {
        {PSBTN_OK, "a apply", "cancels", press(PSBTN_CANCEL), "a apply and close"},
        {PSBTN_OK, "a apply", "presses OK", press(PSBTN_OK), "a apply and close"},
        {PSBTN_OK, "a apply", "destroys", destroys, "a apply and close"},
        {PSBTN_OK, "a apply", "fails, and has not applied", fails, "a reset"},
        {PSBTN_OK, "a set active", "destroys", destroys, "a set active"},
        {PSBTN_CANCEL, "a query cancel", "destroys", destroys, "a query cancel"},
        {PSBTN_CANCEL, "a query cancel", "fails", fails, "a reset"},
        {PSBTN_CANCEL, "a reset", "destroys", destroys, "a reset"},
    };
    for (const Row& row : rows) {
        now.log.clear();
        now.acts = {{row.asked, row.act}};
        EXPECT_EQ(run({press(row.button)}), CPSUI_OK);
        EXPECT_EQ(result, static_cast<DWORD>(CPSUI_CANCEL)) << "nobody has set another";
        const auto end = std::find(now.log.begin(), now.log.end(), "a destroy");
        ASSERT_TRUE(end != now.log.begin() && end != now.log.end()) << row.asked << " " << row.what;
        EXPECT_EQ(*std::find_if(std::make_reverse_iterator(end), now.log.rend(),
                                [](const std::string& told) { return told.starts_with("a "); }),
                  row.lastHeard)
            << row.asked << " " << row.what;
        EXPECT_EQ(now.log.back(), "root destroy") << row.asked << " " << row.what;
    }
}

TEST_F(PropertySheet, aPageThatIsTooLargeFollowsTheKeys) {
    const MemoryDialog large(std::vector<DialogItem>(60, {u"Edit", WS_TABSTOP, 9, u""}));
    now.onInit = [&](PROPSHEETUI_INFO& info) {
        addPage(info, 0, "a", large.get());
        return 1;
    };
    const auto isSeen = [](HWND sheet) {
        RECT seen;
        RECT field;
        GetWindowRect(sheet, &seen);
        GetWindowRect(GetFocus(), &field);
        EXPECT_TRUE(field.top >= seen.top && field.bottom <= seen.bottom) << field.top << " to " << field.bottom;
    };
    run({[&](HWND sheet) {
             isSeen(sheet);
             SetFocus(GetWindow(GetFocus(), GW_HWNDLAST));
         },
         isSeen});
}

TEST_F(PropertySheet, aPageIsFoundByItsTemplateAndTellsWhoMadeIt) {
    now.onInit = [](PROPSHEETUI_INFO& info) {
        play->records[0].pfnCallback = pageCallback;
        addPage(info, 0, "a");
        return 1;
    };
    run({[](HWND sheet) { EXPECT_FALSE(SendMessageW(sheet, PSM_SETCURSELID, 0, 5)) << "it comes from memory"; },
         press(PSBTN_HELP)});
    EXPECT_THAT(now.log,
                ElementsAre("root init", "callback add", "root header", "callback create", "a init", "a set active",
                            "a help", "a query cancel", "a reset", "a destroy", "callback release", "root destroy"));
}

TEST_F(PropertySheet, aResultClimbsThroughAllGroups) {
    static constexpr auto group = [](PPROPSHEETUI_INFO info, LPARAM lParam) -> LONG {
        noteReason("group", *info, lParam);
        if (info->Reason == PROPSHEETUI_REASON_INIT) {
            EXPECT_EQ(info->lParamInit, 5);
            EXPECT_EQ(lParam, 5);
            play->lastPage = addPage(*info, 0, "a");
        }
        if (info->Reason == PROPSHEETUI_REASON_SET_RESULT) info->Result = 7;
        return 1;
    };
    PFNCOMPROPSHEET call = nullptr;
    HANDLE root = nullptr;
    LONG_PTR groupHandle = 0;
    now.onInit = [&](PROPSHEETUI_INFO& info) {
        call = info.pfnComPropSheet;
        root = info.hComPropSheet;
        groupHandle = call(root, CPSFUNC_ADD_PFNPROPSHEETUIW, reinterpret_cast<LPARAM>(PFNPROPSHEETUI(group)), 5);
        EXPECT_EQ(call(root, CPSFUNC_GET_PAGECOUNT, 0, 0), 1);
        return groupHandle > 0 ? 1 : -1;
    };
    run({[&](HWND) {
        play->log.clear();
        EXPECT_EQ(call(root, CPSFUNC_SET_RESULT, reinterpret_cast<LPARAM>(play->lastPage), CPSUI_OK), 2);
        EXPECT_EQ(addPage({sizeof(PROPSHEETUI_INFO), 0, 0, 0, root, call, 0, 0, 0}, 1, "late"), nullptr);
    }});
    EXPECT_EQ(result, 7U);
    EXPECT_THAT(now.log, ElementsAre("group result 1", "root result 7", "a query cancel", "a reset", "a destroy",
                                     "group destroy", "root destroy"));
    EXPECT_LT(call(root, CPSFUNC_SET_RESULT, 0, CPSUI_OK), 0) << "the sheet is gone";
}

TEST_F(PropertySheet, aSheetThatCannotBeFilledTellsItsCallbackAndFails) {
    now.onInit = [](PROPSHEETUI_INFO&) { return -1; };
    EXPECT_LT(run({}), 0);
    EXPECT_THAT(now.log, ElementsAre("root init", "root destroy"));
    now.log.clear();
    now.onInit = [](PROPSHEETUI_INFO& info) {
        const HANDLE page = addPage(info, 0, "a");
        EXPECT_EQ(
            info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_DELETE_HCOMPROPSHEET, reinterpret_cast<LPARAM>(page), 0),
            1);
        return 1;
    };
    EXPECT_EQ(run({}), ERR_CPSUI_NO_PROPSHEETPAGE);
    EXPECT_LT(CommonPropertySheetUIW(nullptr, nullptr, 0, nullptr), 0);
}

namespace {

// One item of each kind that the page of option items knows.
struct Items {
    std::u16string names[5] = {u"List", u"Number", u"Text", u"Check", u"Button"};
    std::u16string choices[3] = {u"one", u"two", u"three"};
    std::array<WCHAR, 8> text{u"ab"};
    std::array<OPTPARAM, 3> listParams{};
    std::array<OPTPARAM, 2> numberParams{};
    std::array<OPTPARAM, 2> textParams{};
    std::array<OPTPARAM, 1> labelParams{};
    std::array<OPTTYPE, 5> types{};
    std::array<OPTITEM, 5> items{};
    std::vector<std::string> calls;
    LONG action = CPSUICB_ACTION_NONE;

    Items() {
        for (std::size_t i = 0; i < 3; ++i)
            listParams[i].pData = toWide(choices[i].data());
        listParams[1].Flags = OPTPF_HIDE;
        numberParams[1].IconID = 1;
        numberParams[1].lParam = 50;
        textParams[1].IconID = text.size();
        labelParams[0].pData = toWide(choices[0].data());
        set(0, TVOT_LISTBOX, listParams);
        set(1, TVOT_UDARROW, numberParams);
        set(2, TVOT_EDITBOX, textParams);
        set(3, TVOT_CHKBOX, labelParams);
        set(4, TVOT_PUSHBUTTON, labelParams);
        items[1].Sel = 4;
        items[2].pSel = text.data();
    }

    template <std::size_t count>
    void set(std::size_t i, BYTE type, std::array<OPTPARAM, count>& params) {
        types[i].cbSize = sizeof(OPTTYPE);
        types[i].Type = type;
        types[i].Count = count;
        types[i].pOptParam = params.data();
        items[i].cbSize = sizeof(OPTITEM);
        items[i].Level = 1;
        items[i].Flags = OPTIF_CALLBACK;
        items[i].pName = toWide(names[i].data());
        items[i].pOptType = &types[i];
    }

    static LONG CALLBACK onItem(PCPSUICBPARAM param) {
        auto& self = *reinterpret_cast<Items*>(param->UserData);
        const auto index = static_cast<std::size_t>(param->pCurItem - self.items.data());
        self.calls.push_back(std::to_string(param->Reason) + " on " + std::to_string(index));
        if (param->Reason == CPSUICB_REASON_SEL_CHANGED && self.action == CPSUICB_ACTION_OPTIF_CHANGED)
            param->pCurItem->Sel = param->OldSel;
        return param->Reason == CPSUICB_REASON_APPLYNOW || param->Reason == CPSUICB_REASON_SEL_CHANGED ? self.action
                                                                                                       : 0;
    }
};

HWND choice(HWND page, std::size_t item) { return GetDlgItem(page, static_cast<int>(1100 + 4 * item)); }

void command(HWND page, std::size_t item, WORD code) {
    const HWND control = choice(page, item);
    SendMessageW(page, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code), reinterpret_cast<LPARAM>(control));
}

class OptionItems : public PropertySheet {
protected:
    OptionItems() {
        record.cbSize = sizeof record;
        record.UserData = reinterpret_cast<ULONG_PTR>(&items);
        record.pfnCallBack = Items::onItem;
        record.pOptItem = items.items.data();
        record.cOptItem = static_cast<WORD>(items.items.size());
        now.onInit = [this](PROPSHEETUI_INFO& info) {
            return info.pfnComPropSheet(info.hComPropSheet, CPSFUNC_ADD_PCOMPROPSHEETUIW,
                                        reinterpret_cast<LPARAM>(&record), 0) > 0
                       ? 1
                       : -1;
        };
    }

    static HWND page(HWND sheet) { return reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETCURRENTPAGEHWND, 0, 0)); }

    Items items;
    COMPROPSHEETUI record{};
};

} // namespace

TEST_F(OptionItems, everyKindOfItemGoesBetweenRecordAndControl) {
    run({[this](HWND sheet) {
        const HWND at = page(sheet);
        EXPECT_EQ(SendMessageW(choice(at, 0), LB_GETCOUNT, 0, 0), 2) << "the hidden choice is none";
        EXPECT_EQ(SendMessageW(choice(at, 0), LB_GETCURSEL, 0, 0), 0);
        SendMessageW(choice(at, 0), LB_SETCURSEL, 1, 0);
        command(at, 0, LBN_SELCHANGE);
        EXPECT_EQ(items.items[0].Sel, 2) << "the number of the choice, not its row";
        WCHAR number[8] = {};
        GetWindowTextW(choice(at, 1), number, 8);
        EXPECT_EQ(std::u16string(fromWide(number)), u"4");
        SetWindowTextW(choice(at, 1), u"17");
        EXPECT_EQ(items.items[1].Sel, 17);
        SetWindowTextW(choice(at, 2), u"longer than the room");
        EXPECT_EQ(std::u16string(fromWide(items.text.data())), u"longer ");
        SendMessageW(choice(at, 3), BM_CLICK, 0, 0);
        EXPECT_EQ(items.items[3].Sel, 1);
        items.calls.clear();
        SendMessageW(choice(at, 4), BM_CLICK, 0, 0);
        EXPECT_THAT(items.calls, ElementsAre("1 on 4"));
        EXPECT_TRUE(canApply(sheet));
    }});
}

TEST_F(OptionItems, whatTheCallbackAnswersIsDone) {
    items.action = CPSUICB_ACTION_OPTIF_CHANGED;
    run({[this](HWND sheet) {
             SendMessageW(choice(page(sheet), 0), LB_SETCURSEL, 1, 0);
             command(page(sheet), 0, LBN_SELCHANGE);
             EXPECT_EQ(SendMessageW(choice(page(sheet), 0), LB_GETCURSEL, 0, 0), 0) << "it went back";
             items.action = CPSUICB_ACTION_NO_APPLY_EXIT;
         },
         press(PSBTN_OK),
         [this](HWND sheet) {
             EXPECT_TRUE(IsWindowVisible(sheet));
             items.action = CPSUICB_ACTION_ITEMS_APPLIED;
             items.calls.clear();
             play->log.clear();
         },
         press(PSBTN_OK)});
    EXPECT_THAT(items.calls, ElementsAre("11 on 0", "6 on 0"));
    EXPECT_THAT(now.log, ElementsAre("root result 1", "root destroy"));
    EXPECT_EQ(result, static_cast<DWORD>(CPSUI_OK));
}
