// The window of a property sheet: tabs, the page on show, and the buttons OK, Cancel and Apply. A page's dialog is made
// when the page is first shown. What is applied and what is not, the pages say.
#pragma once

#include "platform/property_sheet.h"
#include "platform/qt/Dialog.h"
#include "platform/qt/SheetTree.h"

#include <QPointer>

#include <optional>
#include <vector>

class QAbstractButton;
class SheetTabs;

class PropertySheet : public Dialog {
public:
    struct Options {
        QString title;
        bool hasApply = true;
    };

    // The pages stay the caller's, and must outlive the window. Null, with the last error, when a page's template is
    // none. Not shown yet: runModal() does that, and gives IDOK or IDCANCEL.
    static PropertySheet* create(Window* owner, const Options& options, const std::vector<SheetPage*>& pages,
                                 std::size_t first);

    LRESULT answerByDefault(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Page {
        SheetPage* source;
        DialogTemplate dialogTemplate;
        QPointer<Dialog> dialog;
        bool isChanged = false;
    };

    PropertySheet(std::unique_ptr<QWidget> widget, WindowTraits traits, const QFont& font);

    bool readPages(const std::vector<SheetPage*>& pages);
    void layOut(const Options& options);
    QWidget* makeFrame();
    QSize pageSize() const;
    Window& addButton(WORD id, const QString& text, DWORD style);

    // False when the page on show does not let go, or the other cannot be made.
    bool activate(int index);
    bool activateTemplate(ULONG_PTR id);
    bool show(int index);
    void focusPage(Dialog& page, bool isBack);
    bool make(Page& page);
    Page* current();
    Page* pageOf(HWND handle);
    int indexOf(const Page& page) const;
    LRESULT tell(Page& page, UINT code, LPARAM lParam = FALSE);

    void press(WORD id);
    bool applyNow();
    bool apply(bool isClosing);
    bool applyTo(Page& page, bool isClosing);
    void cancel(bool byFrame);
    void setChanged(HWND page, bool isChanged);
    void noteChanges();
    void turnCancelToClose();
    bool isPage(WPARAM index) const noexcept { return index < pages_.size(); }
    LRESULT querySiblings(WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> answerSheet(UINT message, WPARAM wParam, LPARAM lParam);

    std::vector<Page> pages_;
    SheetTabs* tabs_ = nullptr;
    QWidget* frame_ = nullptr; // holds the pages
    int shown_ = -1;
    bool isBusy_ = false; // a page is being asked, and may run a loop of its own
};
