#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tessaview {

/// A path in the form in which it crosses interfaces and is stored, which is UTF-8: as it is, or,
/// where its bytes are no UTF-8 (names of another code page), as a "file://" address with every
/// byte that is no letter, digit or one of "/-._~" as "%" and two hexadecimal digits.
std::string pathText(const std::filesystem::path& path);

/// The path of a text of `pathText`, byte for byte. A text that is no such address is a path.
std::filesystem::path pathFromText(std::string_view text);

} // namespace tessaview
