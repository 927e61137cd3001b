// A table of rows. Observers hear of a click, of a double click (wasDoubleClicked() tells them apart), of a key that
// changes what is selected or checked, of the mouse that rests, and of the focus. It stays usable in a read-only
// session.
//
// The rows live in the window: a feature fills the table each time its dialog is shown.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

#include <optional>

class ListViewUIControl : public UIControl {
public:
    explicit ListViewUIControl(std::uint16_t listId);
    ~ListViewUIControl() override;

    // An empty row at the end; its index, -1 when there is no table. The data are the caller's.
    int addRow(LPARAM data = 0);
    void setCellText(int row, int column, const std::u16string& text);
    // At most 1023 characters of it.
    std::u16string getCellText(int row, int column) const;
    // Left aligned. The width is in pixels; -1 is as wide as its contents, with the last column taking what is left.
    void addColumn(int index, int width, const std::u16string& text);
    void deleteRow(int row);
    void deleteAllRows();
    int getSelectedCount() const;
    // The first selected row from that one on, -1 when there is none.
    int nextSelectedRow(int from) const;
    std::optional<LPARAM> nextSelectedData(int from) const;
    void selectRow(int row);
    void ensureVisible(int row, bool partly);
    void setCheckBoxes(bool on);
    void setRowChecked(int row, bool checked);
    bool isRowChecked(int row) const;
    // Meant for handleSubjectUpdate() of an observer.
    bool wasDoubleClicked() const noexcept { return doubleClicked_; }
    std::uint16_t getCurrentRow() const noexcept { return currentRow_; }

    void displayControl() override;
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;
    bool onDestroy(const UIMessage& message, LRESULT& result) override;
    bool onLock(const UIMessage& message, LRESULT& result) override;

private:
    static LRESULT CALLBACK windowProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam);
    static ListViewUIControl* controlOf(HWND list);
    void beginKey();
    void endKey();
    void release();
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    int nextRow(int from, WPARAM states) const;
    int chosenRow() const;
    int rowOf(const NMHDR& header) const;
    void handleNotification(const NMHDR& header);
    void setRowState(int row, UINT mask, UINT state);

    std::uint16_t listId_;
    HWND listWindow_ = nullptr; // subclassed
    std::uint16_t currentRow_ = 0;
    bool doubleClicked_ = false;
    bool isKeyDown_ = false;
    bool isChangedByKey_ = false;
};
