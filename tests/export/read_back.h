#pragma once

#include <filesystem>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace test {

/// The rows that a statement gives, columns apart by "|"; throws what SQLite has to say.
inline std::vector<std::string> rowsOf(const std::filesystem::path& file, const std::string& sql)
{
    sqlite3* database = nullptr;
    char* message = nullptr;
    std::vector<std::string> rows;
    const auto addRow = [](void* list, int count, char** values, char**) {
        std::string row;
        for (int i = 0; i < count; ++i)
            row.append(i == 0 ? "" : "|").append(values[i] ? values[i] : "NULL");
        static_cast<std::vector<std::string>*>(list)->push_back(row);
        return 0;
    };
    int result = sqlite3_open_v2(file.c_str(), &database, SQLITE_OPEN_READWRITE, nullptr);
    if (result == SQLITE_OK)
        result = sqlite3_exec(database, ("PRAGMA synchronous=OFF; " + sql).c_str(), addRow, &rows,
                              &message);
    const std::string problem = message ? message : sqlite3_errstr(result);
    sqlite3_free(message);
    sqlite3_close(database);
    if (result != SQLITE_OK)
        throw std::runtime_error(problem);
    return rows;
}

/// The one value that a statement gives.
inline int numberOf(const std::filesystem::path& file, const std::string& sql)
{
    return std::stoi(rowsOf(file, sql).at(0));
}

/// What SQLite finds wrong with a file; nothing when all is well.
inline std::vector<std::string> faultsOf(const std::filesystem::path& file)
{
    std::vector<std::string> faults = rowsOf(file, "PRAGMA foreign_key_check");
    for (const std::string& line : rowsOf(file, "PRAGMA integrity_check"))
        if (line != "ok")
            faults.push_back(line);
    return faults;
}

} // namespace test
