#include "si/tdt.h"

#include "si/dump.h"

namespace lib13818 {

void Tdt::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    UTC_time = DateTime(require(in, 5));
}

void Tdt::dump(std::ostream& out) const
{
    ShortSection::dump(out);
    line(out, "UTC_time: ", UTC_time);
}

} // namespace lib13818
