// Dialog templates for tests, byte by byte as they lie in a resource.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

class TemplateBuilder {
public:
    using Bytes = std::vector<std::uint8_t>;

    TemplateBuilder& word(std::uint16_t value) {
        bytes_.push_back(static_cast<std::uint8_t>(value));
        bytes_.push_back(static_cast<std::uint8_t>(value >> 8));
        return *this;
    }
    TemplateBuilder& quad(std::uint32_t value) {
        return word(static_cast<std::uint16_t>(value)).word(static_cast<std::uint16_t>(value >> 16));
    }
    TemplateBuilder& text(std::u16string_view text) {
        for (const char16_t character : text)
            word(character);
        return word(0);
    }
    TemplateBuilder& ordinal(std::uint16_t number) { return word(0xFFFF).word(number); }
    TemplateBuilder& pad() {
        while (bytes_.size() % 4 != 0)
            bytes_.push_back(0);
        return *this;
    }
    // Style to height; menu, class, title and font are to follow.
    TemplateBuilder& front(std::uint32_t style, std::uint16_t items) {
        return quad(style).quad(0).word(items).word(1).word(2).word(300).word(200);
    }
    // A whole header without menu and class.
    TemplateBuilder& header(std::uint16_t items) {
        return front(0x80C00040, items).word(0).word(0).text(u"Title").word(9).text(u"MS Shell Dlg").pad();
    }
    // Style to id; class, title and data are to follow.
    TemplateBuilder& itemFront(std::uint16_t id) {
        return quad(0x50010000).quad(0).word(7).word(7).word(50).word(14).word(id);
    }
    TemplateBuilder& item(std::uint16_t id) { return itemFront(id).ordinal(0x80).text(u"Caption").word(0).pad(); }

    const Bytes& bytes() const noexcept { return bytes_; }

private:
    Bytes bytes_;
};
