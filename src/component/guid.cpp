#include "component/guid.h"

#include "platform/format.h"

namespace tessaview {

std::string toText(const Guid& guid)
{
    const auto& d = guid.data4;
    return formatted("{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.data1, guid.data2,
                     guid.data3, d[0], d[1], d[2], d[3], d[4], d[5], d[6], d[7]);
}

} // namespace tessaview
