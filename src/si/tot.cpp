#include "si/tot.h"

#include "si/dump.h"

namespace lib13818 {

void Tot::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    UTC_time = DateTime(require(in, 7));
    descriptors_loop_length = in.skip(4).bits(12);
    const Bytes loop = require(in, descriptors_loop_length).take(descriptors_loop_length);
    walkChecked(descriptors, behind(descriptors, loop));
    CRC_32 = require(in, 4).u32();
}

void Tot::dump(std::ostream& out) const
{
    ShortSection::dump(out);
    line(out, "UTC_time: ", UTC_time);
    line(out, "crc32: ", CRC_32);
}

} // namespace lib13818
