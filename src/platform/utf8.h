#pragma once

#include <string>

namespace tessaview {

/// Adds a character, which is no surrogate and at most U+10FFFF.
void appendUtf8(std::string& out, char32_t character);

} // namespace tessaview
