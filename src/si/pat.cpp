#include "si/pat.h"

#include "si/dump.h"
#include "si/error.h"

namespace lib13818 {

void Pat::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    if (in.bytesLeft() % 4 != 0)
        throw error(kBadContent, "Pat parse error");
    while (!in.atEnd())
        programs.push_back({.program_number = in.u16(), .program_map_PID = in.skip(3).bits(13)});
}

void Pat::dump(std::ostream& out) const
{
    for (const PatProgram& program : programs) {
        out << std::hex;
        line(out, "program_number: ", program.program_number, 4);
        line(out, "program_map_pid: ", program.program_map_PID, 4);
    }
}

} // namespace lib13818
