#include "plugin_ui/Controls/TextBoxUIControl.h"

#include "plugin_ui/Controls/WindowContext.h"
#include "plugin_ui/Controls/entryField.h"

#include <algorithm>

namespace {

constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF black = 0;
constexpr int pointsPerInch = 72;

bool accepts(std::uint32_t type, char16_t key, const EntryState& field, std::int32_t maxChars) {
    return acceptsTextKey(static_cast<TextBoxType>(type), key, field, maxChars);
}

} // namespace

TextBoxUIControl::TextBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t extraId,
                                   std::int32_t maxChars, bool whiteBackground)
    : EntryUIControl(editId, maxChars), whiteBackground_(whiteBackground) {
    addControlId(labelId);
    addControlId(editId);
    addControlId(extraId);
}

void TextBoxUIControl::setText(const std::u16string& text) {
    if (text == text_) return;
    text_ = text;
    displayControl();
}

void TextBoxUIControl::setMaxChars(std::int32_t maxChars) {
    setLimit(maxChars);
    renewCallBack();
}

void TextBoxUIControl::setTextType(TextBoxType type) {
    textType_ = type;
    renewCallBack();
}

void TextBoxUIControl::setFont(std::int32_t pointSize, std::int32_t weight, const std::u16string& faceName) {
    const int height = -MulDiv(pointSize, verticalResolution(getWindow()), pointsPerInch);
    OwnedGdi<HFONT> font(CreateFontW(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                     CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, toWide(faceName)));
    sendToItem(getEditId(), WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
}

void TextBoxUIControl::displayControl() { showText(text_); }

void TextBoxUIControl::initializeControl() {
    renewCallBack();
    text_.clear();
}

bool TextBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT& result) {
    if (EntryUIControl::handleControlMessage(message, result)) return true;
    if (!whiteBackground_ || message.id != WM_CTLCOLORSTATIC) return false;
    if (message.lParam != reinterpret_cast<LPARAM>(getEditWindow())) return false;
    const auto context = reinterpret_cast<HDC>(message.wParam);
    SetBkColor(context, white);
    SetTextColor(context, black);
    result = reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    return true;
}

std::u16string TextBoxUIControl::admit(const FieldEdit& edit) const {
    const bool hasLines = (GetWindowLongW(getEditWindow(), GWL_STYLE) & LONG{ES_MULTILINE}) != 0;
    return admitText(textType_, edit, getMaxChars(), hasLines);
}

// Of a text that is longer than the limit, because the program has set it, the user sees what is kept.
void TextBoxUIControl::handleEdit(const std::u16string& text) {
    const std::u16string kept = text.substr(0, static_cast<std::size_t>(std::max(getMaxChars(), 0)));
    if (kept != text) showText(kept);
    if (kept == text_) return;
    text_ = kept;
    notifyObservers();
}

void TextBoxUIControl::renewCallBack() {
    if (!getWindow()) return;
    sendToItem(getEditId(), EM_LIMITTEXT, static_cast<WPARAM>(getMaxChars()));
    setControlCallBack(u"TextBoxUIControl");
}

LRESULT CALLBACK TextBoxUIControl::TextBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return filterKeys(window, message, wParam, lParam, u"TextBoxUIControl::TextBoxWindowProc()", accepts);
}
