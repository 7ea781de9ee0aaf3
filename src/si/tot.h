#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"
#include "si/time.h"

namespace lib13818 {

/// A time offset table (EN 300 468, 5.2.6). Its CRC_32 is stored, not tested.
class Tot final : public ShortSection {
public:
    /// Forgets the descriptors.
    void clear() override { descriptors = {}; }
    const char* name() const override { return "time_offset_section"; }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x73; }

    DateTime UTC_time;
    int descriptors_loop_length = 0; ///< as coded
    DescriptorSet descriptors;
    uint32_t CRC_32 = 0;
};

} // namespace lib13818
