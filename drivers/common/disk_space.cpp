#include "drivers/common/disk_space.h"

#include "platform/format.h"

#include <array>
#include <stdexcept>
#include <system_error>

namespace tessaview {

std::uintmax_t freeSpace(const std::filesystem::path& folder)
{
    std::error_code failure;
    const std::filesystem::space_info space = std::filesystem::space(folder, failure);
    if (failure)
        throw std::runtime_error("the free space in " + folder.string() +
                                 " is not known: " + failure.message());
    return space.available;
}

std::string sizeText(std::uintmax_t bytes)
{
    constexpr std::array kUnits{"bytes", "kB", "MB", "GB", "TB"};
    if (bytes < 1000)
        return formatted("%ju bytes", bytes);
    auto value = static_cast<double>(bytes);
    std::size_t unit = 0;
    for (; value >= 1000 && unit + 1 < kUnits.size(); ++unit)
        value /= 1000;
    return formatted("%.1f %s", value, kUnits[unit]);
}

} // namespace tessaview
