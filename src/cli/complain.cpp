#include "cli/complain.h"

#include <iostream>
#include <sstream>

namespace tessaview {

void complain(const std::string& what)
{
    std::istringstream lines(what);
    for (std::string line; std::getline(lines, line);)
        std::cerr << "tessaview3-scan: " << line << '\n';
}

} // namespace tessaview
