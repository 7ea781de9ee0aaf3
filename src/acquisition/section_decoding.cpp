#include "acquisition/section_decoding.h"

#include "log/report.h"
#include "platform/format.h"

#include <functional>

namespace tessaview {

namespace {

/// "table 02, extension 0451, version 3, section 0 of 0"; as much of it as the section has.
std::string headerText(std::span<const std::uint8_t> section)
{
    if (section.empty())
        return "an empty section";
    std::string text = formatted("table %02X", static_cast<unsigned>(section[0]));
    if (section.size() >= 8 && (section[1] & 0x80) != 0)
        text += formatted(", extension %02X%02X, version %d, section %d of %d",
                          static_cast<unsigned>(section[3]), static_cast<unsigned>(section[4]),
                          section[5] >> 1 & 0x1F, section[6], section[7]);
    return text;
}

} // namespace

SectionFault faultOf(const lib13818::error& error, std::span<const std::uint8_t> section)
{
    SectionFault fault{.code = error.code, .text = error.what()};
    if (fault.text.empty())
        fault.text = "malformed header";
    const std::less<> before;
    if (error.place && !before(error.place, section.data()) &&
        before(error.place, section.data() + section.size()))
        fault.at = static_cast<std::size_t>(error.place - section.data());
    return fault;
}

void reportFault(const TableRequest& request, std::span<const std::uint8_t> section,
                 const SectionFault& fault)
{
    const std::string place = fault.at ? formatted(" at byte %zu", *fault.at) : std::string();
    reportProblem("Not decoded: PID %04X, %s: %s%s", request.PID, headerText(section).c_str(),
                  fault.text.c_str(), place.c_str());
}

} // namespace tessaview
