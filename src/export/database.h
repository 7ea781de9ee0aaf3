#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace tessaview {

struct SqliteCloser {
    void operator()(sqlite3* database) const;
    void operator()(sqlite3_stmt* statement) const;
};

/// A connection to a database file. One thread at a time. Every failure throws DatabaseError.
class Database {
public:
    /// Opens a file that exists; an empty one is a database without tables. Foreign keys are
    /// enforced, other connections wait until this one is closed, and nothing written waits for
    /// the disk before `synchronize`.
    explicit Database(const std::filesystem::path& file);

    /// Runs one or more statements that give no rows.
    void execute(const std::string& sql);
    /// Brings the whole file onto the disk and sets its user_version.
    void synchronize(int userVersion);
    /// The row id that the last row got.
    std::int64_t lastRowId() const;
    /// True from BEGIN to COMMIT; SQLite ends a transaction itself after some failures.
    bool isInTransaction() const;

private:
    friend class Statement;
    std::string name_; ///< the absolute path
    std::unique_ptr<sqlite3, SqliteCloser> handle_;
};

/// A prepared statement, for any number of runs. Parameters count from 1.
class Statement {
public:
    /// `purpose` says in messages what the statement does.
    Statement(Database& database, const std::string& sql, std::string purpose);

    void bind(int parameter, std::int64_t value);
    /// The text must live until the run.
    void bind(int parameter, std::string_view text);
    /// Runs to the end and clears the parameters.
    void run();

private:
    void check(int result) const;

    std::string purpose_;
    std::unique_ptr<sqlite3_stmt, SqliteCloser> handle_;
};

/// A transaction that keeps what was written: left by an exception, it still commits, or as much
/// as SQLite then allows.
class Transaction {
public:
    explicit Transaction(Database& database);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void commit();

private:
    Database& database_;
};

} // namespace tessaview
