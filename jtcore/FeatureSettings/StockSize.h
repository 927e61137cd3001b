// A paper size: one of the named ones, a custom one, or none. All lengths are hundredths of a millimetre.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The sizes of one printer or stock, ends included.
struct StockSizeRange {
    std::int32_t xMinimum = 0;
    std::int32_t xMaximum = 0;
    std::int32_t yMinimum = 0;
    std::int32_t yMaximum = 0;
};

class StockSize {
public:
    enum class Id : std::int32_t {
#define STOCK_SIZE(number, enumerator, ...) enumerator = number,
#include "jtcore/FeatureSettings/StockSize.def"
#undef STOCK_SIZE
    };

    // No size, also for a number that the table lacks.
    explicit StockSize(Id id = Id::none) noexcept;
    // The first named size with these dimensions, either way round; it keeps its own x and y. Otherwise a custom size
    // with the dimensions as given.
    StockSize(std::int32_t x, std::int32_t y) noexcept;

    Id getId() const noexcept { return id_; }
    std::int32_t getX() const noexcept { return x_; }
    std::int32_t getY() const noexcept { return y_; }
    std::int32_t getMin() const noexcept { return x_ < y_ ? x_ : y_; }
    std::int32_t getMax() const noexcept { return x_ < y_ ? y_ : x_; }
    bool isNoSize() const noexcept { return id_ == Id::none; }
    bool isCustom() const noexcept { return id_ == Id::custom; }
    // What the user reads. Raises what the resource module raises.
    std::u16string getName() const;

    // The dimensions the way round in which they fit, as stored where neither way does.
    bool fitInRange(const StockSizeRange& range, std::int32_t& x, std::int32_t& y) const noexcept;
    // Every row of the table that fits either way round, in table order, appended.
    static void getAllInRange(const StockSizeRange& range, std::vector<StockSize>& sizes);

    bool operator==(const StockSize&) const = default;

private:
    Id id_;
    std::int32_t x_;
    std::int32_t y_;
    std::uint16_t nameId_;
};

constexpr std::int32_t toWholeMillimetres(std::int32_t hundredths) noexcept { return hundredths / 100; }
constexpr double toInches(std::int32_t hundredths) noexcept { return hundredths * 0.0003937007874015748; }
