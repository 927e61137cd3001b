// A list to choose from, in some places with a field to type into. Every entry has a text and a data word, and the
// value is the data word of the selection: a feature works with enumerations, never with positions.
//
// The entries live in the window: a feature fills the list each time its dialog is shown.
#pragma once

#include "plugin_ui/Controls/UIControl.h"

class ComboBoxUIControl : public UIControl {
public:
    // The label may be 0.
    ComboBoxUIControl(std::uint16_t labelId, std::uint16_t comboId);

    void clear();
    void addItem(const std::u16string& text, std::uint32_t data);
    // The new entry becomes the selection; nobody is notified.
    void replaceItem(int index, const std::u16string& text, std::uint32_t data);
    void deleteItem(int index);
    // The first entry with the data word, -1 when there is none.
    int findData(std::uint32_t data) const;

    std::uint32_t getSelectedData() const noexcept { return selectedData_; }
    // A word that no entry has clears the selection.
    void setSelectedData(std::uint32_t data);
    // -1 for none.
    int getCurrentIndex() const;
    void setCurrentIndex(int index);
    // Selects the first entry and notifies when there was no selection; true when it did.
    bool selectFirstIfNone();

    // Of the entry that the user chose, or what he typed.
    const std::u16string& getText() const noexcept { return text_; }
    // The window is not touched.
    void setText(std::u16string text) { text_ = std::move(text); }
    // Of what is typed, in characters; 0 for no limit.
    void setTextLimit(std::uint32_t limit);

    void displayControl() override;
    void initializeControl() override;
    bool handleControlMessage(const UIMessage& message, LRESULT& result) override;

private:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    std::u16string entryText(int index) const;
    void insertItem(int index, const std::u16string& text, std::uint32_t data);
    void handleSelection();
    void handleTyping();
    // The open list is as wide as its longest text, and no wider than the room to its right.
    void fitDropWidth();
    void measureAgain();

    std::uint16_t comboId_;
    std::uint32_t selectedData_ = 0;
    std::u16string text_;
    std::uint32_t textLimit_ = 0;
    LONG widestText_ = 0; // in pixels, over all entries
};
