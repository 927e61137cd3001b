// Named values of one owner (a key, a printer): a published type and bytes, kept exactly as given.
#pragma once

#include "platform/posix/Database.h"

// The table of them, for the layout of a store. Names compare in the form of foldCase.
#define KOLMA_VALUE_TABLE                                                                                              \
    "CREATE TABLE value(owner INTEGER NOT NULL, folded TEXT NOT NULL, name TEXT NOT NULL,"                             \
    " type INTEGER NOT NULL, data BLOB NOT NULL, PRIMARY KEY(owner, folded)) WITHOUT ROWID;"

struct StoredValue {
    DWORD type;
    std::vector<BYTE> data;
};

// Nothing for what is not there.
std::optional<StoredValue> findValue(const Database& database, std::int64_t owner, std::u16string_view name);

// The same; fails with ERROR_FILE_NOT_FOUND for what is not there, as does deleteValue.
StoredValue readValue(const Database& database, std::int64_t owner, std::u16string_view name);
void writeValue(const Database& database, std::int64_t owner, std::u16string_view name, DWORD type,
                std::span<const BYTE> data);
void deleteValue(const Database& database, std::int64_t owner, std::u16string_view name);
