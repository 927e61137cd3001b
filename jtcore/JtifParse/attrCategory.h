// Which group of a job ticket an attribute belongs to.
#pragma once

#include <cstdint>
#include <string_view>

enum class AttrCategory : std::int32_t { none = 1, jobTemplate = 2, operation = 3 };

// Looks the id up among the attributes that may stand at the top of a ticket.
AttrCategory getAttrCategory(std::u16string_view id) noexcept;
