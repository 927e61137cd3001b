#include "jtcore/Attributes/AttrSyntax.h"

namespace {

struct Row {
    std::u16string_view name;
    AVTE type;
};

constexpr Row rows[] = {
#define ATTR_SYNTAX(enumerator, number, name, Class) {name, AVTE::enumerator},
#define ATTR_LIST_SYNTAX(name, constant) {name, AVTE::list},
#include "jtcore/Attributes/AttrSyntax.def"
};

constexpr bool areNamesUnique() {
    for (const Row& row : rows)
        for (const Row& other : rows)
            if (&row != &other && row.name == other.name) return false;
    return true;
}
static_assert(areNamesUnique());

const Row* find(std::u16string_view name) noexcept {
    for (const Row& row : rows)
        if (row.name == name) return &row;
    return nullptr;
}

} // namespace

AVTE syntaxTypeOf(std::u16string_view name) noexcept {
    const Row* row = find(name);
    return row ? row->type : AVTE::null;
}

SyntaxName::SyntaxName(std::u16string_view name) {
    if (const Row* row = find(name))
        known_ = row->name;
    else
        own_ = name;
}
