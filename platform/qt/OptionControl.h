// One option item of a page: its name on the left, its choice on the right, and the way between the two and the record
// that the program gave. The record is the state: nothing of it is kept here.
#pragma once

#include "platform/driver_sheets.h"
#include "platform/qt/DialogTemplateWriter.h"

#include <string>

class OptionControl {
public:
    // The item is the program's and stays where it is. The number is that of the choice; the name takes the next one.
    OptionControl(OPTITEM& item, WORD id) : item_(item), id_(id) {}

    OPTITEM& item() const noexcept { return item_; }
    WORD id() const noexcept { return id_; }
    // An item without a type is a heading for those after it.
    bool isHeading() const noexcept { return item_.pOptType == nullptr; }
    bool isHidden() const noexcept { return (item_.Flags & OPTIF_HIDE) != 0; }

    // In dialog units: how far the name reaches, from the page's edge, and what the item takes of the page's height.
    int nameWidth() const;
    int height() const noexcept;
    static constexpr int choiceWidth = 130;
    // The choice begins at that column.
    void addTo(DialogTemplateWriter& page, int y, int column) const;

    // Entries, ranges and limits, once.
    void fill(HWND page) const;
    // What the record says, without a notification that looks like a person's.
    void show(HWND page) const;
    // Takes what a person did (a WM_COMMAND with that code) into the record. True when it is another choice than
    // before; the old one is then in oldSel. A push button changes nothing.
    bool take(HWND page, WORD code, LONG& oldSel) const;
    bool isPushed(WORD code) const noexcept;

private:
    BYTE type() const noexcept { return isHeading() ? TVOT_NONE : item_.pOptType->Type; }
    bool isOneOfMany() const noexcept;
    bool isNumber() const noexcept;
    std::u16string name() const;
    int left() const noexcept;
    const OPTPARAM* param(unsigned index) const noexcept;
    bool isDisabled() const noexcept;

    void fillChoices(HWND control) const;
    void selectChoice(HWND control) const;
    bool isMessageOfChange(WORD code) const noexcept;
    LONG chosen(HWND control) const;
    bool takeText(HWND control) const;

    OPTITEM& item_;
    WORD id_;
};
