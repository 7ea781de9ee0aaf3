#include "si/cat.h"

#include "si/error.h"

namespace lib13818 {

void Cat::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    const Bytes loop = in.rest();
    Bytes left = loop;
    const char* refusal = nullptr;
    while (!left.empty() && !refusal) {
        // The length before the tag: an oversized descriptor is reported as such whatever it is.
        if (left.size() < 2 || left.size() < 2U + left[1])
            refusal = "invalid descriptor size";
        else if (left[0] != DescriptorCA::kTag)
            refusal = "invalid descriptor tag";
        else
            left = behindFirst(left);
    }
    descriptors.fill(behind(descriptors, loop.first(loop.size() - left.size())));
    if (refusal)
        throw error(refusal);
}

} // namespace lib13818
