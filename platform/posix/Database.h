// One store of the user's, a SQLite file. Opened for each reading and writing and closed after it: no lock and no file
// is held between calls, so several processes, a fork and a file that goes away are all harmless.
//
// Every failure throws a PlatformError. Another process's writing is waited for, a few seconds at most (ERROR_BUSY).
#pragma once

#include "platform/types.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

class Statement {
public:
    Statement(sqlite3* database, std::string_view sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // Parameters in their order; borrowed until the last step.
    Statement& bind(std::int64_t value);
    Statement& bind(std::string_view text);
    Statement& bind(std::span<const BYTE> bytes);
    // False when there is no further row.
    bool step();

    // Of the row that step reached.
    std::int64_t integer(int column) const;
    std::string_view text(int column) const;
    std::span<const BYTE> bytes(int column) const;

private:
    void check(int result) const;

    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
    int bound_ = 0;
};

class Database {
public:
    // What the tables are made with, at the first write.
    struct Layout {
        const char* fileName;
        const char* tables;
    };

    // Empty where nothing was ever written; creates nothing.
    static std::optional<Database> openForReading(const std::string& folder, const Layout& layout);
    // Creates folder, file and tables where they are missing, and begins a transaction.
    static Database openForWriting(const std::string& folder, const Layout& layout);

    Database(Database&& other) noexcept;
    ~Database();
    Database& operator=(Database&&) = delete;

    Statement prepare(std::string_view sql) const { return {database_, sql}; }
    // Ends the transaction of openForWriting; without it nothing was written.
    void commit();
    std::int64_t lastRow() const;
    // Whether every commit is a change of the file itself, as in all stores of our making.
    bool changesItsFile() const;

private:
    Database(const std::string& path, int flags);
    bool hasTables() const;
    void run(const char* sql) const;

    sqlite3* database_ = nullptr;
};
