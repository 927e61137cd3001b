#include "plugin_ui/Controls/spinArithmetic.h"

#include "plugin_ui/Controls/numberText.h"

#include <algorithm>

double spinDecimal(double value, std::int32_t delta, std::int32_t precision, double lower, double upper) noexcept {
    const double scale = precision == 2 ? 100 : 10;
    return std::max(lower, std::min((value * scale - delta) / scale, upper));
}

std::int32_t spinInteger(double value, std::int32_t delta, std::int32_t lower, std::int32_t upper) noexcept {
    return std::max(lower, std::min(toInteger(value - delta), upper));
}
