#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"

#include <vector>

namespace lib13818 {

class SdtService {
public:
    /// Reads the entry at the front of the service loop; throws "too little data".
    explicit SdtService(BitReader& loop);

    /// The bytes of the entry in its section, once that has been parsed as a whole.
    Bytes bytes() const { return descriptors.entryBytes(5, descriptors_loop_length); }

    int service_id;
    int EIT_schedule_flag;
    int EIT_present_following_flag;
    int running_status;
    int free_CA_mode;
    int descriptors_loop_length; ///< as coded
    DescriptorSet descriptors;
};

/// One section of a service description table, of the actual or of another transport stream
/// (EN 300 468, 5.2.3). The transport_stream_id is its table_id_extension.
class Sdt final : public LongSection {
public:
    const char* name() const override;
    void clear() override { services.clear(); }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x42 || table_id == 0x46; }

    int original_network_id = 0;
    std::vector<SdtService> services;
};

} // namespace lib13818
