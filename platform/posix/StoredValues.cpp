#include "platform/posix/StoredValues.h"

#include "platform/posix/service.h"
#include "platform/posix/wideText.h"

#include <utility>

std::optional<StoredValue> findValue(const Database& database, std::int64_t owner, std::u16string_view name) {
    std::string folded = narrowText(foldCase(name));
    Statement row = database.prepare("SELECT type, data FROM value WHERE owner = ? AND folded = ?");
    if (!row.bind(owner).bind(folded).step()) return std::nullopt;
    std::span<const BYTE> data = row.bytes(1);
    return StoredValue{static_cast<DWORD>(row.integer(0)), {data.begin(), data.end()}};
}

StoredValue readValue(const Database& database, std::int64_t owner, std::u16string_view name) {
    auto value = findValue(database, owner, name);
    require(value.has_value(), ERROR_FILE_NOT_FOUND);
    return std::move(*value);
}

void writeValue(const Database& database, std::int64_t owner, std::u16string_view name, DWORD type,
                std::span<const BYTE> data) {
    std::string folded = narrowText(foldCase(name));
    std::string given = narrowText(name);
    database
        .prepare("INSERT INTO value(owner, folded, name, type, data) VALUES(?, ?, ?, ?, ?) ON CONFLICT(owner, folded) "
                 "DO UPDATE SET type = excluded.type, data = excluded.data")
        .bind(owner)
        .bind(folded)
        .bind(given)
        .bind(static_cast<std::int64_t>(type))
        .bind(data)
        .step();
}

void deleteValue(const Database& database, std::int64_t owner, std::u16string_view name) {
    std::string folded = narrowText(foldCase(name));
    Statement row = database.prepare("DELETE FROM value WHERE owner = ? AND folded = ? RETURNING 1");
    require(row.bind(owner).bind(folded).step(), ERROR_FILE_NOT_FOUND);
    while (row.step()) {
    }
}
