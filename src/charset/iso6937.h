#pragma once

#include <string>
#include <string_view>

namespace tessaview {

/// The characters of an ISO 6937 text as EN 300 468 Annex A, figure A.1, has it, with the euro
/// sign at 0xA4. A diacritical mark and its letter become one character where there is one.
std::u32string fromIso6937(std::string_view text);

} // namespace tessaview
