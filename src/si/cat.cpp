#include "si/cat.h"

#include "si/error.h"

namespace lib13818 {

void Cat::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    auto loop = in.take(in.bytesLeft());
    while (!loop.empty()) {
        // The length before the tag: an oversized descriptor is reported as such whatever it is.
        if (loop.size() < 2 || loop.size() < 2U + loop[1])
            throw error("invalid descriptor size");
        if (loop[0] != DescriptorCA::kTag)
            throw error("invalid descriptor tag");
        descriptors.add(loop.data());
        loop = loop.subspan(2U + loop[1]);
    }
}

} // namespace lib13818
