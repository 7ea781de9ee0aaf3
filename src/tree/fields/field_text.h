#pragma once

#include "charset/display_text.h"
#include "si/descriptors/descriptor.h"
#include "si/text.h"
#include "si/time.h"
#include "tree/value_row.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

// The data of rows, one function for each kind of value.

namespace tessaview {

/// A number and, where the format has a second conversion, its words.
std::string numberText(const char* format, std::uint32_t number, const char* words);
std::string realText(const char* format, double value);
/// Day, month, year, hour, minute and second by a format of six numbers.
std::string timeText(const char* format, const lib13818::DateTime& time);

void fillText(std::string_view broadcast, const NodeView& node, ValueRow& row);
void fillText(const lib13818::StrippedText& broadcast, const NodeView& node, ValueRow& row);
void fillText(const lib13818::Code& code, const NodeView& node, ValueRow& row);
/// At most the first 100 of them; the row keeps all.
void fillBytes(std::span<const std::uint8_t> bytes, ValueRow& row);
void fillPid(int pid, ValueRow& row);

} // namespace tessaview
