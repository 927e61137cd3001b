#include "jtcore/JtifParse/attrCategory.h"

#include <algorithm>
#include <array>

namespace {

struct Row {
    std::u16string_view id;
    AttrCategory category;
};

constexpr auto sortedRows() {
    std::array rows{
#define ATTR_CATEGORY(id, category) Row{u##id, AttrCategory::category},
#include "jtcore/JtifParse/attrCategory.def"
#undef ATTR_CATEGORY
    };
    std::ranges::sort(rows, {}, &Row::id);
    return rows;
}

constexpr auto rows = sortedRows();

constexpr auto countOf(AttrCategory category) { return std::ranges::count(rows, category, &Row::category); }

static_assert(countOf(AttrCategory::operation) == 11 && countOf(AttrCategory::jobTemplate) == 139);
static_assert(std::ranges::adjacent_find(rows, {}, &Row::id) == rows.end(), "an attribute stands twice");

} // namespace

AttrCategory getAttrCategory(std::u16string_view id) noexcept {
    const auto* row = std::ranges::lower_bound(rows, id, {}, &Row::id);
    return row != rows.end() && row->id == id ? row->category : AttrCategory::none;
}
