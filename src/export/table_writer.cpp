#include "export/table_writer.h"

#include <stdexcept>
#include <string>

namespace tessaview {

namespace {

/// The first characters of a UTF-8 text.
std::string_view firstCharacters(std::string_view text, int count)
{
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool startsCharacter = (static_cast<unsigned char>(text[i]) & 0xC0) != 0x80;
        if (startsCharacter && count-- == 0)
            return text.substr(0, i);
    }
    return text;
}

} // namespace

TableWriter::TableWriter(Database& database, std::string_view table)
    : database_(database)
    , columns_(columnsOf(table))
    , statement_(database, insertStatement(table), "cannot write a row of " + std::string(table))
{
}

std::int64_t TableWriter::add(std::initializer_list<ColumnValue> row)
{
    for (const ColumnValue& value : row)
        bind(value);
    statement_.run();
    return database_.lastRowId();
}

void TableWriter::bind(const ColumnValue& value)
{
    int parameter = 0;
    for (const SchemaRow& column : columns_) {
        if (column.isAutoIncrement)
            continue;
        ++parameter;
        if (column.column != value.column)
            continue;
        if (const auto* const text = std::get_if<std::string_view>(&value.value))
            statement_.bind(parameter, firstCharacters(*text, column.size));
        else
            statement_.bind(parameter, std::get<std::int64_t>(value.value));
        return;
    }
    throw std::logic_error("no column " + std::string(value.column));
}

} // namespace tessaview
