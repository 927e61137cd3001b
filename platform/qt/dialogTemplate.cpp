#include "platform/qt/dialogTemplate.h"

#include "platform/modules.h"

#include <cstring>

namespace {

constexpr WORD ordinalMark = 0xFFFF;
// No template of this size means what it says.
constexpr std::size_t mostBytes = std::size_t{1} << 20U;

struct Damaged {};

class Reader {
public:
    explicit Reader(std::span<const BYTE> bytes) : bytes_(bytes) {}

    template <typename Value>
    Value next() {
        Value value;
        need(sizeof value);
        std::memcpy(&value, bytes_.data() + at_, sizeof value);
        at_ += sizeof value;
        return value;
    }
    void skip(std::size_t count) {
        need(count);
        at_ += count;
    }
    // Items start on four-byte boundaries, counted from the template's begin.
    void align() {
        constexpr std::size_t boundary = 4;
        skip((boundary - at_ % boundary) % boundary);
    }
    std::u16string text() {
        std::u16string text;
        while (auto unit = next<char16_t>())
            text += unit;
        return text;
    }
    // A number behind its mark, or a text.
    WORD ordinalOr(std::u16string& text) {
        auto first = next<WORD>();
        if (first == ordinalMark) return next<WORD>();
        at_ -= sizeof first;
        text = this->text();
        return 0;
    }

private:
    void need(std::size_t count) const {
        if (bytes_.size() - at_ < count) throw Damaged();
    }

    std::span<const BYTE> bytes_;
    std::size_t at_ = 0;
};

template <typename Placed>
void readPlace(Reader& reader, Placed& placed) {
    placed.x = reader.next<SHORT>();
    placed.y = reader.next<SHORT>();
    placed.width = reader.next<SHORT>();
    placed.height = reader.next<SHORT>();
}

TemplateItem readItem(Reader& reader) {
    TemplateItem item;
    reader.align();
    item.style = reader.next<DWORD>();
    item.extendedStyle = reader.next<DWORD>();
    readPlace(reader, item);
    item.id = reader.next<WORD>();
    item.classOrdinal = reader.ordinalOr(item.className);
    item.imageId = reader.ordinalOr(item.text);
    // Creation data: the count includes itself; no class here takes any.
    auto extra = reader.next<WORD>();
    if (extra > sizeof extra) reader.skip(extra - sizeof extra);
    return item;
}

DialogTemplate readTemplate(Reader& reader) {
    DialogTemplate dialog;
    dialog.style = reader.next<DWORD>();
    // The extended form begins with version 1 and the mark, which is no style of the plain one.
    if (HIWORD(dialog.style) == ordinalMark && LOWORD(dialog.style) == 1) throw Damaged();
    dialog.extendedStyle = reader.next<DWORD>();
    auto count = reader.next<WORD>();
    readPlace(reader, dialog);
    std::u16string ignored;
    reader.ordinalOr(ignored); // menu
    reader.ordinalOr(ignored); // class
    dialog.title = reader.text();
    if ((dialog.style & DS_SETFONT) != 0) {
        dialog.pointSize = reader.next<WORD>();
        dialog.faceName = reader.text();
    }
    for (WORD i = 0; i < count; ++i)
        dialog.items.push_back(readItem(reader));
    return dialog;
}

} // namespace

std::optional<DialogTemplate> parseDialogTemplate(std::span<const BYTE> bytes) {
    try {
        Reader reader(bytes);
        return readTemplate(reader);
    } catch (const Damaged&) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return std::nullopt;
    }
}

std::optional<DialogTemplate> parseDialogTemplate(LPCDLGTEMPLATEW dialogTemplate) {
    if (dialogTemplate != nullptr)
        return parseDialogTemplate(std::span(reinterpret_cast<const BYTE*>(dialogTemplate), mostBytes));
    SetLastError(ERROR_INVALID_PARAMETER);
    return std::nullopt;
}

std::optional<DialogTemplate> loadDialogTemplate(HINSTANCE module, LPCWSTR name) {
    HRSRC found = FindResourceW(module, name, RT_DIALOG);
    if (found == nullptr) return std::nullopt;
    const auto* bytes = static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
    auto dialog = parseDialogTemplate(std::span(bytes, SizeofResource(module, found)));
    if (!dialog) SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return dialog;
}
