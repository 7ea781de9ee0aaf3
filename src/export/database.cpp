#include "export/database.h"

#include "export/database_error.h"

#include <limits>
#include <sqlite3.h>
#include <utility>

namespace tessaview {

namespace {

/// How long another program may have the file locked, in milliseconds.
constexpr int kBusyTimeout = 5000;

[[noreturn]] void raise(sqlite3* handle, const std::string& purpose)
{
    const int status = handle ? sqlite3_extended_errcode(handle) : SQLITE_NOMEM;
    const char* const message = handle ? sqlite3_errmsg(handle) : sqlite3_errstr(status);
    throw DatabaseError(status, purpose + ": " + message,
                        std::string("SQLite ") + sqlite3_libversion());
}

} // namespace

void SqliteCloser::operator()(sqlite3* database) const
{
    sqlite3_close_v2(database);
}

void SqliteCloser::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

// An absolute path is never taken for a URI or for a database in memory.
Database::Database(const std::filesystem::path& file)
    : name_(std::filesystem::absolute(file).string())
{
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(name_.c_str(), &handle,
                                       SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    handle_.reset(handle);
    if (result != SQLITE_OK)
        raise(handle, "cannot open the database \"" + name_ + '"');
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, kBusyTimeout);
    execute("PRAGMA foreign_keys=ON; PRAGMA locking_mode=EXCLUSIVE; PRAGMA synchronous=OFF");
}

void Database::execute(const std::string& sql)
{
    if (sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        raise(handle_.get(), "cannot write the database \"" + name_ + '"');
}

void Database::synchronize(int userVersion)
{
    // Setting the version is a transaction, whose commit waits for all that was written before.
    execute("PRAGMA synchronous=FULL; PRAGMA user_version=" + std::to_string(userVersion) +
            "; PRAGMA synchronous=OFF");
}

std::int64_t Database::lastRowId() const
{
    return sqlite3_last_insert_rowid(handle_.get());
}

bool Database::isInTransaction() const
{
    return sqlite3_get_autocommit(handle_.get()) == 0;
}

Statement::Statement(Database& database, const std::string& sql, std::string purpose)
    : purpose_(std::move(purpose))
{
    sqlite3_stmt* handle = nullptr;
    if (sqlite3_prepare_v2(database.handle_.get(), sql.c_str(), -1, &handle, nullptr) != SQLITE_OK)
        raise(database.handle_.get(), purpose_);
    handle_.reset(handle);
}

void Statement::bind(int parameter, std::int64_t value)
{
    check(sqlite3_bind_int64(handle_.get(), parameter, value));
}

void Statement::bind(int parameter, std::string_view text)
{
    check(sqlite3_bind_text64(handle_.get(), parameter, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
}

void Statement::run()
{
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW)
        result = sqlite3_step(handle_.get());
    // The reset fails again as the run did, so the message is taken before it.
    struct Reset {
        sqlite3_stmt* statement;
        ~Reset()
        {
            sqlite3_reset(statement);
            sqlite3_clear_bindings(statement);
        }
    };
    const Reset reset{handle_.get()};
    check(result == SQLITE_DONE ? SQLITE_OK : result);
}

void Statement::check(int result) const
{
    if (result != SQLITE_OK)
        raise(sqlite3_db_handle(handle_.get()), purpose_);
}

Transaction::Transaction(Database& database) : database_(database)
{
    database_.execute("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    for (const char* const end : {"COMMIT", "ROLLBACK"}) {
        try {
            if (database_.isInTransaction())
                database_.execute(end);
        } catch (const std::exception&) { // the error that led here is the one to tell
            continue;
        }
    }
}

void Transaction::commit()
{
    database_.execute("COMMIT");
}

} // namespace tessaview
