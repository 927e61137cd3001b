// What a control shows, asked by messages: the same for a person, a screen reader and a test.
#pragma once

#include "host/conversation/ControlKind.h"

#include <string>
#include <vector>

enum class CheckState { off, on, mixed };

// Of a list box: whether several of its entries can be chosen.
bool isMultiple(HWND listBox);

class ControlReader {
public:
    explicit ControlReader(HWND control) : control_(control), kind_(kindOf(control)) {}

    ControlKind kind() const noexcept { return kind_; }
    // The content of an edit box, what is chosen of a list (several joined by ", "), the position of a slider, the
    // title of a tab; the text of everything else.
    std::u16string value() const;
    // The entries of a combo box, a list or a list view (its first column), the titles of tabs. None for other kinds.
    std::vector<std::u16string> items() const;
    std::u16string cell(int row, int column) const;
    // The rows that are chosen, in their order.
    std::vector<int> selectedRows() const;
    // Of an up-down: the number in the field beside it.
    int position() const;
    // REQUIRES: a check box or radio button.
    CheckState checkState() const;
    int countItems() const;
    bool hasItems() const noexcept;

private:
    std::u16string itemText(int row) const;
    std::u16string entryText(UINT lengthMessage, UINT textMessage, int row) const;
    std::u16string tabTitle(int index) const;
    bool keepsTexts() const;

    HWND control_;
    ControlKind kind_;
};
