// What is in a common property sheet: the callbacks that fill it, in the tree of who added whom, with the pages at its
// leaves. Callbacks and pages are known to the program by handles that are checked.
#pragma once

#include "platform/driver_sheets.h"
#include "platform/qt/OptionPage.h"

#include <memory>
#include <string>
#include <vector>

struct SheetPage {
    PROPSHEETPAGEW record{}; // the sheet's copy
    std::u16string title;
    std::unique_ptr<OptionPage> options; // of a page that is made of option items
};

class SheetTree {
public:
    SheetTree();
    // The callbacks that still stand are told of the end.
    ~SheetTree();
    SheetTree(const SheetTree&) = delete;
    SheetTree& operator=(const SheetTree&) = delete;

    // Asks the program's callback for the header, then lets it add its pages. What it returned: above 0 when all is
    // well.
    LONG begin(PFNPROPSHEETUI function, LPARAM lParam, PROPSHEETUI_INFO_HEADER& header);

    // In the order of their tabs. They stay where they are.
    std::vector<SheetPage*> pages() const;
    // The place of the page that was asked to be first on show; 0 when none was.
    std::size_t startPage() const;
    // What the program's callback made of all results.
    ULONG_PTR result() const noexcept;

private:
    struct Node;

    static LONG_PTR CALLBACK comPropSheet(HANDLE group, UINT function, LPARAM lParam1, LPARAM lParam2);

    LONG_PTR run(Node& group, UINT function, LPARAM lParam1, LPARAM lParam2);
    Node& addNode(Node& parent);
    HANDLE addPage(Node& parent, const PROPSHEETPAGEW* record);
    HANDLE addOptions(Node& parent, const COMPROPSHEETUI* record);
    LONG_PTR addFunction(Node& parent, PFNPROPSHEETUI function, LPARAM lParam);
    LONG_PTR remove(Node& group, HANDLE handle);
    LONG_PTR setStartPage(HANDLE page, LPARAM index);
    LONG_PTR setTitle(HANDLE page, LPCWSTR title);
    static LONG_PTR copyPages(Node& group, HANDLE* handles, LPARAM room);
    static int setResult(const Node& from, ULONG_PTR result);
    Node* find(HANDLE handle) const;

    std::unique_ptr<Node> root_;
    HANDLE startPage_ = nullptr;
    bool isOpen_ = false; // nothing can be added to what is on show
};
