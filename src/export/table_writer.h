#pragma once

#include "export/database.h"
#include "export/schema.h"

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <variant>

namespace tessaview {

/// The value of one column of a new row. Texts are UTF-8.
struct ColumnValue {
    std::string_view column;
    std::variant<std::int64_t, std::string_view> value;
};

/// Adds rows to one table of the schema.
class TableWriter {
public:
    TableWriter(Database& database, std::string_view table);

    /// Adds a row with all its columns but the one that counts up, and gives that one's value.
    /// A text longer than its column is cut behind the last character that fits.
    std::int64_t add(std::initializer_list<ColumnValue> row);

private:
    void bind(const ColumnValue& value);

    Database& database_;
    std::span<const SchemaRow> columns_;
    Statement statement_;
};

} // namespace tessaview
