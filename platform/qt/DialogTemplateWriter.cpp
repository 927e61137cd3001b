#include "platform/qt/DialogTemplateWriter.h"

#include <cstddef>
#include <cstring>

namespace {

constexpr WORD fontSize = 9;
constexpr std::u16string_view fontName = u"MS Shell Dlg";

} // namespace

DialogTemplateWriter::DialogTemplateWriter(int width, int height) {
    DLGTEMPLATE header{};
    header.style = WS_CHILD | DS_CONTROL | DS_SETFONT;
    header.dwExtendedStyle = WS_EX_CONTROLPARENT;
    header.cx = static_cast<SHORT>(width);
    header.cy = static_cast<SHORT>(height);
    append(header);
    words_.insert(words_.end(), 2, 0); // no menu, the usual class
    appendText({});
    words_.push_back(fontSize);
    appendText(fontName);
}

void DialogTemplateWriter::add(std::u16string_view className, std::u16string_view text, DWORD style, WORD id,
                               const Area& area) {
    align();
    DLGITEMTEMPLATE item{};
    item.style = style | WS_CHILD | WS_VISIBLE;
    item.x = static_cast<SHORT>(area.x);
    item.y = static_cast<SHORT>(area.y);
    item.cx = static_cast<SHORT>(area.width);
    item.cy = static_cast<SHORT>(area.height);
    item.id = id;
    append(item);
    appendText(className);
    appendText(text);
    words_.push_back(0); // no creation data
    ++count_;
}

LPCDLGTEMPLATEW DialogTemplateWriter::get() noexcept {
    words_[offsetof(DLGTEMPLATE, cdit) / sizeof(WORD)] = count_;
    return reinterpret_cast<LPCDLGTEMPLATEW>(words_.data());
}

template <typename Record>
void DialogTemplateWriter::append(const Record& record) {
    static_assert(sizeof record % sizeof(WORD) == 0);
    const std::size_t at = words_.size();
    words_.resize(at + sizeof record / sizeof(WORD));
    std::memcpy(words_.data() + at, &record, sizeof record);
}

void DialogTemplateWriter::appendText(std::u16string_view text) {
    words_.insert(words_.end(), text.begin(), text.end());
    words_.push_back(0);
}

// Items stand on four-byte boundaries of memory, and a vector's begin is one.
void DialogTemplateWriter::align() {
    if (words_.size() % 2 != 0) words_.push_back(0);
}
