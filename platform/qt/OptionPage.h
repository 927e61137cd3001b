// A page of option items, as the common property sheet makes one of a COMPROPSHEETUI: a list of names and choices. What
// a person chooses goes to the program's callback, whose answer is done.
#pragma once

#include "platform/driver_sheets.h"
#include "platform/qt/OptionControl.h"

#include <functional>
#include <string>
#include <vector>

class OptionPage {
public:
    // The items and strings of the record are the program's and must live as long as the page; the record itself is
    // copied. What is applied is told to setResult.
    OptionPage(const COMPROPSHEETUI& record, std::function<void(ULONG_PTR)> setResult);
    OptionPage(const OptionPage&) = delete;
    OptionPage& operator=(const OptionPage&) = delete;

    // The page for the sheet; good as long as this object.
    PROPSHEETPAGEW sheetPage();

private:
    static INT_PTR CALLBACK pageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

    void initialize(HWND page);
    void showAll();
    bool onCommand(WORD id, WORD code);
    LRESULT onNotify(const NMHDR& header);
    LRESULT apply();
    LONG call(WORD reason, OPTITEM* item, LONG oldSel, ULONG_PTR& result);
    void callAndRedraw(WORD reason, OPTITEM* item, LONG oldSel);
    OPTITEM* currentItem() const noexcept;

    COMPROPSHEETUI record_;
    std::function<void(ULONG_PTR)> setResult_;
    std::u16string title_;
    std::vector<OptionControl> controls_;
    DialogTemplateWriter template_;
    HWND page_ = nullptr;
    std::size_t current_ = 0;
    bool isShowing_ = false; // by the program, not by a person
};
