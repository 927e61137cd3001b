// A plain list to choose from; the value is the data word of the selection. The entries live in the window.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

class ListBoxUIControl : public UIControl {
public:
    // The label may be 0.
    ListBoxUIControl(std::uint16_t labelId, std::uint16_t listId);

    void clear();
    void addItem(const std::u16string& text, std::uint32_t data);
    // The new entry becomes the selection; nobody is notified.
    void replaceItem(int index, const std::u16string& text, std::uint32_t data);
    // The first entry with the data word, -1 when there is none.
    int findData(std::uint32_t data) const;

    std::uint32_t getSelectedData() const noexcept { return selectedData_; }
    // A word that no entry has clears the selection.
    void setSelectedData(std::uint32_t data);

    void displayControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void insertItem(int index, const std::u16string& text, std::uint32_t data);

    std::uint16_t listId_;
    std::uint32_t selectedData_ = 0;
};
