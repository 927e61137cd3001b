#include "platform/posix/Database.h"

#include "platform/posix/FileStamp.h"
#include "platform/posix/path.h"
#include "platform/posix/service.h"

#include <sqlite3.h>
#include <utility>

namespace {

constexpr int busyMilliseconds = 5000;
constexpr int largestValue = 64 << 20;
// The layout's number, kept in the file. A file of a later layout is not touched.
constexpr std::int64_t layoutVersion = 1;

DWORD errorOfSqlite(int result, int systemError) {
    switch (result & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_NOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_PERM:
    case SQLITE_AUTH:
    case SQLITE_READONLY:
        return ERROR_ACCESS_DENIED;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_IOERR:
        return ERROR_REGISTRY_IO_FAILED;
    case SQLITE_CANTOPEN:
        return systemError == 0 ? ERROR_ACCESS_DENIED : errorOfErrno(systemError);
    case SQLITE_TOOBIG:
        return ERROR_INVALID_PARAMETER;
    // What is no store, and a store whose tables are not as they were made.
    default:
        return ERROR_REGISTRY_CORRUPT;
    }
}

[[noreturn]] void fail(sqlite3* database, int result) {
    throw PlatformError{errorOfSqlite(result, database == nullptr ? 0 : sqlite3_system_errno(database))};
}

// The file is the user's, but whoever put it there need not be: what it brings along is data and runs nothing.
void trustOnlyData(sqlite3* database) {
    for (int option : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW})
        sqlite3_db_config(database, option, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, largestValue);
}

} // namespace

Statement::Statement(sqlite3* database, std::string_view sql) : database_(database) {
    check(sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &statement_, nullptr));
}

Statement::~Statement() { sqlite3_finalize(statement_); }

void Statement::check(int result) const {
    if (result != SQLITE_OK) fail(database_, result);
}

Statement& Statement::bind(std::int64_t value) {
    check(sqlite3_bind_int64(statement_, ++bound_, value));
    return *this;
}

Statement& Statement::bind(std::string_view text) {
    check(sqlite3_bind_text64(statement_, ++bound_, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8));
    return *this;
}

Statement& Statement::bind(std::span<const BYTE> bytes) {
    // A null pointer would be stored as no value at all, and an empty value is one.
    const void* data = bytes.empty() ? "" : static_cast<const void*>(bytes.data());
    check(sqlite3_bind_blob64(statement_, ++bound_, data, bytes.size(), SQLITE_STATIC));
    return *this;
}

bool Statement::step() {
    int result = sqlite3_step(statement_);
    if (result != SQLITE_ROW && result != SQLITE_DONE) fail(database_, result);
    return result == SQLITE_ROW;
}

std::int64_t Statement::integer(int column) const { return sqlite3_column_int64(statement_, column); }

std::string_view Statement::text(int column) const {
    auto bytes = this->bytes(column);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::span<const BYTE> Statement::bytes(int column) const {
    const void* data = sqlite3_column_blob(statement_, column);
    int size = sqlite3_column_bytes(statement_, column);
    if (data == nullptr && sqlite3_errcode(database_) == SQLITE_NOMEM) throw PlatformError{ERROR_NOT_ENOUGH_MEMORY};
    return {static_cast<const BYTE*>(data), data == nullptr ? 0 : static_cast<std::size_t>(size)};
}

Database::Database(const std::string& path, int flags) {
    int result = sqlite3_open_v2(path.c_str(), &database_, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (result != SQLITE_OK) fail(database_, result);
        trustOnlyData(database_);
        sqlite3_busy_timeout(database_, busyMilliseconds);
    } catch (...) {
        sqlite3_close(database_);
        throw;
    }
}

Database::Database(Database&& other) noexcept : database_(std::exchange(other.database_, nullptr)) {}

// A transaction that is still open goes with the connection.
Database::~Database() { sqlite3_close(database_); }

void Database::run(const char* sql) const {
    if (int result = sqlite3_exec(database_, sql, nullptr, nullptr, nullptr); result != SQLITE_OK)
        fail(database_, result);
}

bool Database::hasTables() const {
    Statement version = prepare("PRAGMA user_version");
    require(version.step() && (version.integer(0) == 0 || version.integer(0) == layoutVersion), ERROR_REGISTRY_CORRUPT);
    return version.integer(0) != 0;
}

std::optional<Database> Database::openForReading(const std::string& folder, const Layout& layout) {
    std::string path = folder + "/" + layout.fileName;
    if (!FileStamp::of(path)) return std::nullopt;
    // Writing is needed to take back what a killed process left half done; without the right to, reading still works.
    Database database(path, SQLITE_OPEN_READWRITE);
    // One view of the store for all that is read through this object, and one taking of the lock.
    database.run("BEGIN");
    if (!database.hasTables()) return std::nullopt;
    return database;
}

Database Database::openForWriting(const std::string& folder, const Layout& layout) {
    makeFolders(folder);
    Database database(folder + "/" + layout.fileName, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    // A rollback journal rather than a write-ahead log: readers need to create nothing, and network folders work. EXTRA
    // also flushes the folder when the journal goes, so what was committed outlives a loss of power.
    database.run("PRAGMA synchronous = EXTRA");
    database.run("BEGIN IMMEDIATE");
    if (!database.hasTables()) database.run(layout.tables);
    return database;
}

void Database::commit() { run("COMMIT"); }

std::int64_t Database::lastRow() const { return sqlite3_last_insert_rowid(database_); }

bool Database::changesItsFile() const {
    Statement mode = prepare("PRAGMA journal_mode");
    return mode.step() && mode.text(0) != "wal";
}
