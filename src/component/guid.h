#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

/// A 128-bit identifier of an interface, a component class or a category, in the memory layout of
/// the component object model: it crosses the boundary to drivers byte for byte.
struct Guid {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};

    friend constexpr bool operator==(const Guid&, const Guid&) = default;
    friend constexpr auto operator<=>(const Guid&, const Guid&) = default;
};
static_assert(sizeof(Guid) == 16 && offsetof(Guid, data2) == 4 && offsetof(Guid, data3) == 6 &&
              offsetof(Guid, data4) == 8);

/// Reads "{8-4-4-4-12}" hexadecimal digits in either case; nothing for any other text.
constexpr std::optional<Guid> parseGuid(std::string_view text)
{
    constexpr std::string_view shape = "{hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh}";
    if (text.size() != shape.size())
        return std::nullopt;
    std::array<std::uint8_t, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const char c = text[i];
        if (shape[i] != 'h') {
            if (c != shape[i])
                return std::nullopt;
            continue;
        }
        int value = -1;
        if (c >= '0' && c <= '9')
            value = c - '0';
        else if (c >= 'A' && c <= 'F')
            value = c - 'A' + 10;
        else if (c >= 'a' && c <= 'f')
            value = c - 'a' + 10;
        if (value < 0)
            return std::nullopt;
        std::uint8_t& byte = bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte * 16 + value);
    }
    Guid guid;
    guid.data1 = static_cast<std::uint32_t>(bytes[0]) << 24 |
                 static_cast<std::uint32_t>(bytes[1]) << 16 |
                 static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
    guid.data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.data3 = static_cast<std::uint16_t>(bytes[6] << 8 | bytes[7]);
    for (std::size_t i = 0; i < guid.data4.size(); ++i)
        guid.data4[i] = bytes[8 + i];
    return guid;
}

/// A literal identifier; a malformed one does not compile.
consteval Guid operator""_guid(const char* text, std::size_t length)
{
    return parseGuid({text, length}).value();
}

/// The braced registry form with upper-case digits, 38 characters.
std::string toText(const Guid& guid);

} // namespace tessaview
