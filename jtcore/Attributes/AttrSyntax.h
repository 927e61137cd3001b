// The kinds of attribute values and the names of their syntaxes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The attribute value type: what kind of value an object is.
enum class AVTE : std::int32_t {
    null = 1, // no known syntax
#define ATTR_SYNTAX(enumerator, number, name, Class) enumerator = number,
#include "jtcore/Attributes/AttrSyntax.def"
    list = 10,
};

#define ATTR_LIST_SYNTAX(name, constant) inline constexpr std::u16string_view constant = name;
#include "jtcore/Attributes/AttrSyntax.def"

// The AVTE of a syntax name: AVTE::list for the four list names, AVTE::null for a name that is not known.
AVTE syntaxTypeOf(std::u16string_view name) noexcept;

// A syntax name kept by a value. Known names are shared literals; only an unknown one takes storage.
class SyntaxName {
public:
    explicit SyntaxName(std::u16string_view name);

    std::u16string_view text() const noexcept { return own_.empty() ? known_ : std::u16string_view(own_); }
    bool operator==(const SyntaxName& other) const noexcept { return text() == other.text(); }

private:
    std::u16string_view known_;
    std::u16string own_;
};
