#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tessaview {

constexpr int kIntegerColumn = 3; ///< a signed 32-bit integer
constexpr int kTextColumn = 202;  ///< a Unicode text of at most `size` characters

struct SchemaRow {
    std::string_view table;
    std::string_view column;
    int type;
    int size; ///< characters; 0 for an Integer
    bool isAutoIncrement;
};

enum class KeyKind { Primary, Unique, Foreign };

struct SchemaKey {
    std::string_view name;
    KeyKind kind;
    std::string_view table;
    std::string_view columns; ///< separated by commas
    std::string_view referencedTable = {};
    std::string_view referencedColumn = {};
};

struct StoredQuery {
    std::string_view name;
    std::string_view statement;
};

/// The columns of a table in their order.
std::span<const SchemaRow> columnsOf(std::string_view table);

/// The statements that create everything: tables with their keys, the indexes that the foreign
/// keys need, the stored queries.
std::string schemaStatements();
/// Adds a row to a table: a parameter for each column of `columnsOf` that does not count up.
std::string insertStatement(std::string_view table);

} // namespace tessaview
