// A caller's buffer for published information: structures at its front, the texts they point to behind them.
#pragma once

#include "platform/posix/service.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

// REQUIRES: Info's layout is a published structure. A row is added with its texts; nothing reaches the caller's buffer
// before write(), and only when all fits.
template <typename Info>
class InfoBuffer {
public:
    // `text` gives the pointer that a member must hold.
    template <typename Fill>
    void add(Fill&& fill) {
        rows_.emplace_back();
        fill(rows_.back(), *this);
    }

    // Behind all structures lies one pool of texts: a member first holds an offset into it.
    LPWSTR text(std::u16string_view text) {
        std::size_t offset = pool_.size();
        pool_.append(text).push_back(u'\0');
        return reinterpret_cast<LPWSTR>((offset + 1) * sizeof(WCHAR)); // NOLINT: 0 stays null
    }

    // False, and nothing written, when the buffer is too small: so the size is asked for, which is told in both cases.
    template <typename... Members>
    bool write(LPBYTE buffer, DWORD size, LPDWORD needed, Members... members) {
        require(needed != nullptr, ERROR_INVALID_PARAMETER);
        std::size_t front = rows_.size() * sizeof(Info);
        std::size_t total = front + pool_.size() * sizeof(WCHAR);
        *needed = static_cast<DWORD>(total);
        if (size < total || (buffer == nullptr && total != 0)) return false;
        for (Info& row : rows_)
            ((row.*members = address(buffer + front, row.*members)), ...);
        if (total == 0) return true;
        std::memcpy(buffer, rows_.data(), front);
        std::memcpy(buffer + front, pool_.data(), total - front);
        return true;
    }

    std::size_t count() const noexcept { return rows_.size(); }

private:
    static LPWSTR address(LPBYTE pool, LPWSTR offset) {
        auto number = reinterpret_cast<ULONG_PTR>(offset);
        return number == 0 ? nullptr : reinterpret_cast<LPWSTR>(pool + number - sizeof(WCHAR));
    }

    std::vector<Info> rows_;
    std::u16string pool_;
};
