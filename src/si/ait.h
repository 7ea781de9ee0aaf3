#pragma once

#include "si/descriptors/ait_descriptor_set.h"
#include "si/section.h"

#include <vector>

namespace lib13818 {

/// One application of an AIT.
class AitApplication {
public:
    /// Reads the entry at the front of the application loop; throws "application length to small".
    explicit AitApplication(BitReader& loop);

    uint32_t organisation_id;
    int application_id;
    int application_control_code;
    int application_descriptors_loop_length; ///< as coded
    AitDescriptorSet descriptors;
};

/// One section of an application information table (ETSI TS 102 812, 10.4.6). The
/// application_type is its table_id_extension. Its errors carry code 3.
class Ait final : public LongSection {
public:
    const char* name() const override { return ""; }
    /// Forgets the applications and, of the common descriptors, the raw ones with tags below 0x80.
    void clear() override;
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return true; }
    bool isValidSyntaxIndicator(int /*ssi*/) const override { return true; }

    int common_descriptors_length = 0; ///< as coded
    AitDescriptorSet descriptors;      ///< of the common loop
    int application_loop_length = 0;   ///< as coded
    std::vector<AitApplication> applications;
};

} // namespace lib13818
