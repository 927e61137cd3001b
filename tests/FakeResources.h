// A resource module whose every string is "#" and its number, so that a composed text can be read off.
#pragma once

#include "tests/serviceDoubles.h"

#include <algorithm>
#include <string>

class FakeResources {
public:
    // The string of this id is missing; 0 for none.
    UINT missing = 0;
    // The module is missing.
    bool isAbsent = false;
    // Loads less frees.
    int loaded = 0;
    int loads = 0;

private:
    HMODULE load() {
        if (isAbsent) {
            SetLastError(ERROR_MOD_NOT_FOUND);
            return nullptr;
        }
        ++loaded;
        ++loads;
        return reinterpret_cast<HMODULE>(this);
    }
    int string(UINT id, LPWSTR buffer, int size) const {
        if (id == missing) return 0;
        std::string number = "#" + std::to_string(id);
        auto length = std::min(number.size(), static_cast<std::size_t>(size) - 1);
        *std::copy_n(number.begin(), length, buffer) = 0;
        return static_cast<int>(length);
    }

    ServiceDouble<HMODULE(LPCWSTR, HANDLE, DWORD)> load_{doubles::LoadLibraryExW, [this](auto...) { return load(); }};
    ServiceDouble<BOOL(HMODULE)> free_{doubles::FreeLibrary, [this](HMODULE) { return --loaded >= 0; }};
    ServiceDouble<int(HINSTANCE, UINT, LPWSTR, int)> string_{
        doubles::LoadStringW, [this](HINSTANCE, UINT id, LPWSTR buffer, int size) { return string(id, buffer, size); }};
};
