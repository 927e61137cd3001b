// The identifier of an attribute: a keyword such as "sheet-collate", compared code unit by code unit.
#pragma once

#include <compare>
#include <string>
#include <string_view>

class AttrID {
public:
    // Each raises InvalidAttributeIdException when the name is empty.
    explicit AttrID(std::u16string_view name);
    explicit AttrID(const char16_t* name) : AttrID(std::u16string_view(name)) {}
    explicit AttrID(std::u16string&& name);
    AttrID& operator=(std::u16string_view name);

    AttrID(const AttrID&) = default;
    AttrID& operator=(const AttrID&) = default;
    // The source may afterwards only be assigned or destroyed.
    AttrID(AttrID&&) noexcept = default;
    AttrID& operator=(AttrID&&) noexcept = default;
    ~AttrID() = default;

    const std::u16string& getName() const noexcept { return name_; }
    operator std::u16string_view() const noexcept { return name_; }

    bool operator==(const AttrID&) const = default;
    std::strong_ordering operator<=>(const AttrID& other) const noexcept { return name_.compare(other.name_) <=> 0; }

    // Raises InvalidAttributeIdException when the name is empty.
    static void validateTheID(std::u16string_view name);

private:
    std::u16string name_;
};
