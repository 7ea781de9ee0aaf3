#pragma once

#include "si/error.h"
#include "tests/support/bytes.h"
#include "tools/multiplex/sections.h"

#include <sstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace test {

/// The table over a body in hexadecimal, with a header and a correct CRC_32.
template <class Table>
Table parsedBody(unsigned tableId, std::string_view body)
{
    return parsed<Table>(longSection(tableId, 0x1234, hex(body)));
}

/// What a section's decoding throws, as "code: message"; "" when it decodes.
template <class Table>
std::string failureOf(std::span<const uint8_t> section)
{
    Table table;
    try {
        table.parse(exactly(section).get());
    } catch (const lib13818::error& failure) {
        EXPECT_FALSE(table.parsed);
        return std::to_string(failure.code) + ": " + failure.what();
    }
    EXPECT_TRUE(table.parsed);
    return "";
}

template <class Table>
std::string dumpOfTable(const Table& table)
{
    std::ostringstream out;
    table.dump(out);
    return out.str();
}

} // namespace test
