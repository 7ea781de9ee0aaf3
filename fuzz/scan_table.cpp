// Initial tuning files in either form.

#include "satlist/scan_table.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace tessaview;
    const ScanTable table = parseScanTable({reinterpret_cast<const char*>(data), size});
    for (const TransponderEntry& entry : table.transponders)
        if (entry.frequency < 100'000 || entry.polarization < 0 || entry.polarization > 3 ||
            entry.symbolRate < 100 || entry.fec < 0 || entry.fec > 7)
            std::abort();
    return 0;
}
