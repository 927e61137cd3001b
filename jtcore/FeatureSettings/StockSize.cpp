#include "jtcore/FeatureSettings/StockSize.h"

#include "jtcore/Services/ResourceLibrary.h"
#include "resources/ids.h"

#include <iterator>

namespace {

struct Row {
    StockSize::Id id;
    std::int32_t x;
    std::int32_t y;
    std::uint16_t nameId;
};

constexpr Row rows[] = {
#define STOCK_SIZE(number, enumerator, x, y, nameId) {StockSize::Id::enumerator, x, y, nameId},
#include "jtcore/FeatureSettings/StockSize.def"
#undef STOCK_SIZE
};

static_assert(std::size(rows) == 15);

const Row& rowOf(StockSize::Id id) noexcept {
    for (const Row& row : rows)
        if (row.id == id) return row;
    return rows[std::size(rows) - 1];
}

bool fits(const StockSizeRange& range, std::int32_t x, std::int32_t y) noexcept {
    return x >= range.xMinimum && x <= range.xMaximum && y >= range.yMinimum && y <= range.yMaximum;
}

} // namespace

StockSize::StockSize(Id id) noexcept : StockSize(0, 0) {
    const Row& row = rowOf(id);
    id_ = row.id;
    x_ = row.x;
    y_ = row.y;
    nameId_ = row.nameId;
}

StockSize::StockSize(std::int32_t x, std::int32_t y) noexcept
    : id_(Id::custom), x_(x), y_(y), nameId_(rowOf(Id::custom).nameId) {
    for (const Row& row : rows) {
        if ((row.x != x || row.y != y) && (row.x != y || row.y != x)) continue;
        id_ = row.id;
        x_ = row.x;
        y_ = row.y;
        nameId_ = row.nameId;
        return;
    }
}

std::u16string StockSize::getName() const { return ResourceLibrary().getString(nameId_); }

bool StockSize::fitInRange(const StockSizeRange& range, std::int32_t& x, std::int32_t& y) const noexcept {
    bool swapped = !fits(range, x_, y_) && fits(range, y_, x_);
    x = swapped ? y_ : x_;
    y = swapped ? x_ : y_;
    return fits(range, x, y);
}

void StockSize::getAllInRange(const StockSizeRange& range, std::vector<StockSize>& sizes) {
    std::int32_t x = 0;
    std::int32_t y = 0;
    for (const Row& row : rows)
        if (StockSize size(row.id); size.fitInRange(range, x, y)) sizes.push_back(size);
}
