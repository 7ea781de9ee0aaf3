#include "drivers/linuxdvb/pid_list.h"

#include "platform/format.h"
#include "platform/number.h"

#include <set>
#include <stdexcept>
#include <utility>

namespace tessaview {

namespace {

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::uint16_t pidOf(std::string_view text, std::string_view item)
{
    const auto pid = decimalOrHexadecimal<std::uint16_t>(trimmed(text));
    if (!pid || *pid > kHighestPid)
        throw std::invalid_argument("\"" + std::string(item) +
                                    "\" is no PID: those are 0 to 8191 (0x0 to 0x1FFF), as in "
                                    "0x100, 256, 17-20");
    return *pid;
}

std::pair<std::uint16_t, std::uint16_t> rangeOf(std::string_view item)
{
    const std::size_t dash = item.find('-');
    const std::uint16_t first = pidOf(item.substr(0, dash), item);
    if (dash == std::string_view::npos)
        return {first, first};
    const std::uint16_t last = pidOf(item.substr(dash + 1), item);
    if (last < first)
        throw std::invalid_argument("the range \"" + std::string(item) + "\" runs backwards");
    return {first, last};
}

} // namespace

std::vector<std::uint16_t> parsePids(std::string_view text)
{
    std::set<std::uint16_t> pids;
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t comma = rest.find(',');
        const std::string_view item = trimmed(rest.substr(0, comma));
        rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
        if (item.empty())
            continue;
        const auto [first, last] = rangeOf(item);
        for (unsigned pid = first; pid <= last; ++pid)
            pids.insert(static_cast<std::uint16_t>(pid));
    }
    if (pids.empty())
        throw std::invalid_argument("name the PIDs, as in 0x100, 256, 17-20");
    return {pids.begin(), pids.end()};
}

std::string pidName(std::uint16_t pid)
{
    return formatted("PID 0x%04X", pid);
}

} // namespace tessaview
