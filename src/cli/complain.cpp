#include "cli/complain.h"

#include "log/log_line.h"

#include <iostream>
#include <sstream>

namespace tessaview {

void complain(const std::string& what)
{
    std::istringstream lines(what);
    for (std::string line; std::getline(lines, line);)
        std::cerr << "tessaview3-scan: " << asOneLine(line) << '\n';
}

} // namespace tessaview
