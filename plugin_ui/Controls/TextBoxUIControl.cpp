#include "plugin_ui/Controls/TextBoxUIControl.h"

#include "jtcore/Services/KolmaException.h"
#include "jtcore/Services/quietly.h"
#include "plugin_ui/Controls/WindowContext.h"
#include "plugin_ui/Controls/entryField.h"
#include "plugin_ui/Controls/subclassing.h"
#include "plugin_ui/Controls/windowProperties.h"

#include <algorithm>

namespace {

constexpr COLORREF white = 0xFFFFFF;
constexpr COLORREF black = 0;
constexpr int pointsPerInch = 72;

bool accepts(HWND window, char16_t key) {
    const auto type = static_cast<TextBoxType>(getProperty(window, property::entryType));
    const auto maxChars = static_cast<std::int32_t>(getProperty(window, property::maximumLength));
    return acceptsTextKey(type, key, readEntryState(window), maxChars);
}

} // namespace

TextBoxUIControl::TextBoxUIControl(std::uint16_t labelId, std::uint16_t editId, std::uint16_t extraId,
                                   std::int32_t maxChars, bool whiteBackground)
    : UIControl(editId), editId_(editId), maxChars_(maxChars), whiteBackground_(whiteBackground) {
    addControlId(labelId);
    addControlId(editId);
    addControlId(extraId);
}

TextBoxUIControl::~TextBoxUIControl() {
    quietly([this] { unsubclassEntryField(editWindow_); });
}

void TextBoxUIControl::setText(const std::u16string& text) {
    if (text == text_) return;
    text_ = text;
    displayControl();
}

void TextBoxUIControl::setMaxChars(std::int32_t maxChars) {
    maxChars_ = maxChars;
    if (!getWindow()) return;
    sendToItem(editId_, EM_LIMITTEXT, static_cast<WPARAM>(maxChars));
    setControlCallBack();
}

void TextBoxUIControl::setTextType(TextBoxType type) {
    textType_ = type;
    if (getWindow()) setControlCallBack();
}

void TextBoxUIControl::setFont(std::int32_t pointSize, std::int32_t weight, const std::u16string& faceName) {
    const int height = -MulDiv(pointSize, verticalResolution(getWindow()), pointsPerInch);
    OwnedGdi<HFONT> font(CreateFontW(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                                     CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, toWide(faceName)));
    sendToItem(editId_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
}

void TextBoxUIControl::displayControl() {
    displaying_ = true;
    SetDlgItemTextW(getWindow(), editId_, toWide(text_));
    displaying_ = false;
}

void TextBoxUIControl::initializeControl() {
    setMaxChars(maxChars_);
    text_.clear();
}

bool TextBoxUIControl::handleControlMessage(const UIMessage& message, LRESULT& result) {
    if (isCommand(message, editId_, EN_CHANGE)) {
        if (!displaying_) handleChange();
        return true;
    }
    if (!whiteBackground_ || message.id != WM_CTLCOLORSTATIC) return false;
    if (message.lParam != reinterpret_cast<LPARAM>(editWindow_)) return false;
    const auto context = reinterpret_cast<HDC>(message.wParam);
    SetBkColor(context, white);
    SetTextColor(context, black);
    result = reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH));
    return true;
}

bool TextBoxUIControl::onDestroy(const UIMessage& message, LRESULT& result) {
    unsubclassEntryField(editWindow_);
    editWindow_ = nullptr;
    return UIControl::onDestroy(message, result);
}

void TextBoxUIControl::handleChange() {
    std::u16string text = readWindowText(editWindow_);
    text.resize(std::min(text.size(), static_cast<std::size_t>(std::max(maxChars_, 0))));
    if (text == text_) return;
    text_ = std::move(text);
    notifyObservers();
}

void TextBoxUIControl::setControlCallBack() {
    editWindow_ = getItem(editId_);
    if (!editWindow_) raise<UnknownCaseException>(u"TextBoxUIControl::setControlCallBack() Unknown Resource ID.\r\n");
    if (!subclassEntryField(editWindow_, TextBoxWindowProc, static_cast<std::int32_t>(textType_), maxChars_))
        raise<UnknownCaseException>(u"TextBoxUIControl::setControlCallBack() Unknown ANL value for disposition.\r\n");
}

LRESULT CALLBACK TextBoxUIControl::TextBoxWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return runInWindowProcedure(window, u"TextBoxUIControl::TextBoxWindowProc()", [&]() -> LRESULT {
        if (message == WM_CHAR && !accepts(window, static_cast<char16_t>(wParam))) return 0;
        return callReplacedProcedure(window, message, wParam, lParam);
    });
}
