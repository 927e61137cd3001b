// A list of at most `capacity` small values that lives where it stands: in a table row, without an allocation.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <type_traits>

template <typename T, std::size_t capacity>
class FixedList {
public:
    constexpr FixedList() = default;
    template <typename... Items>
    requires(sizeof...(Items) > 0 && sizeof...(Items) <= capacity &&
             (std::is_convertible_v<Items, T> && ...)) constexpr FixedList(const Items&... items)
        : items_{T(items)...}, size_(sizeof...(Items)) {}

    // Throws std::length_error when full; in a constant expression that does not compile.
    constexpr void push_back(const T& item) {
        if (size_ == capacity) throw std::length_error("FixedList");
        items_[size_++] = item;
    }

    constexpr const T* begin() const noexcept { return items_.data(); }
    constexpr const T* end() const noexcept { return items_.data() + size_; }
    constexpr std::size_t size() const noexcept { return size_; }
    constexpr bool empty() const noexcept { return size_ == 0; }
    // REQUIRES: index < size().
    constexpr const T& operator[](std::size_t index) const noexcept { return items_[index]; }
    constexpr bool contains(const T& item) const { return std::find(begin(), end(), item) != end(); }

private:
    std::array<T, capacity> items_{};
    std::size_t size_ = 0;
};
