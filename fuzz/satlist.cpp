// The satellite list's file: what is read comes back from what is written.

#include "components/satlist/list_merge.h"
#include "components/satlist/list_xml.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace tessaview;
    const auto list = parseList({reinterpret_cast<const char*>(data), size});
    if (!list)
        return 0;
    const std::string written = toXml(*list);
    const auto again = parseList(written);
    require(again && again->satellites.size() == list->satellites.size());
    for (std::size_t i = 0; i < list->satellites.size(); ++i) {
        const StoredSatellite& before = list->satellites[i];
        const StoredSatellite& after = again->satellites[i];
        require(isSatelliteName(before.name) && after.name == before.name);
        require(after.selected == before.selected && after.addedByUser == before.addedByUser);
        require(after.transponders.size() == before.transponders.size());
    }
    require(toXml(*again) == written);
    require(merged(*list, *list, *again).satellites == again->satellites);
    return 0;
}
