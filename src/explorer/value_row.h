#pragma once

#include "charset/display_text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tessaview {

/// How broadcast texts become readable: the user's choice of character tables, and the network in
/// whose streams the texts were found.
struct DisplayContext {
    const CharsetRules* rules = nullptr; ///< null: automatic, per EN 300 468 Annex A
    std::optional<std::uint32_t> original_network_id;
};

/// A row whose whole byte sequence the hex view shows; the bytes stay the model's.
struct BytesItem {
    std::span<const std::uint8_t> bytes;
};

/// A row that names a PID.
struct PidItem {
    int PID;
};

/// A row whose data is a broadcast text: which character table it was read with and why.
struct TextItem {
    std::string tableNote;
};

/// What selecting, right-clicking or pointing at a row offers beside its two texts.
using ValueRowItem = std::variant<std::monostate, BytesItem, PidItem, TextItem>;

/// One row of the value pane.
struct ValueRow {
    std::string_view name; ///< as stored in its field-name list
    std::string data;      ///< UTF-8, no control characters
    ValueRowItem item;
};

using ValueRows = std::vector<ValueRow>;

} // namespace tessaview
