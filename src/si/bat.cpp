#include "si/bat.h"

namespace lib13818 {

const char* Bat::name() const
{
    return table_id == 0x4A ? "bouquet_association_section" : "ERROR";
}

void Bat::dump(std::ostream& out) const
{
    for (const TransportStreamEntry& entry : transportStreams)
        dumpEntry(out, entry);
}

} // namespace lib13818
