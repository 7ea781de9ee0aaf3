#pragma once

#include <string>

namespace tessaview {

/// One or more lines on standard error, behind the name of the tool.
void complain(const std::string& what);

} // namespace tessaview
