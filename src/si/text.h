#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace lib13818 {

/// A broadcast text without its leading character table selector (EN 300 468 Annex A). The bytes
/// are the broadcast's own, a view into the section; the selector is kept for whoever shows the
/// text.
struct StrippedText {
    std::string_view text;
    std::optional<uint8_t> selector; ///< the byte taken off, none when the text had none

    friend bool operator==(const StrippedText&, const StrippedText&) = default;
};

/// Takes off the first byte when it is a selector: 0x00 to 0x06, 0x0F to 0x12 or 0x1F. Of the
/// selectors with operands only the first byte goes.
StrippedText stripSelector(std::string_view bytes) noexcept;

} // namespace lib13818
