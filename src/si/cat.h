#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"

namespace lib13818 {

/// One section of the conditional access table (ISO/IEC 13818-1, 2.4.4.6).
class Cat final : public LongSection {
public:
    const char* name() const override { return "cat"; }
    void clear() override {}
    void dump(std::ostream& /*out*/) const override {}
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x01; }

    DescriptorSet descriptors; ///< CA descriptors only
};

} // namespace lib13818
