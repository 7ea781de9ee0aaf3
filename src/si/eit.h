#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"
#include "si/time.h"

#include <vector>

namespace lib13818 {

class EitEvent {
public:
    /// Reads the entry at the front of the event loop, which holds at least its 12 fixed bytes.
    explicit EitEvent(BitReader& loop);

    /// The bytes of the entry in its section, once that has been parsed as a whole.
    Bytes bytes() const { return descriptors.entryBytes(12, descriptors_loop_length); }

    int event_id;
    DateTime start_time; ///< UTC
    Duration duration;
    int running_status;
    int free_CA_mode;
    int descriptors_loop_length; ///< as coded
    DescriptorSet descriptors;
};

/// One section of an event information table of any of the four kinds (EN 300 468, 5.2.4). The
/// service_id is its table_id_extension.
class Eit final : public LongSection {
public:
    const char* name() const override;
    void clear() override { events.clear(); }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id >= 0x4E && table_id <= 0x6F; }

    int transport_stream_id = 0;
    int original_network_id = 0;
    int segment_last_section_number = 0;
    int last_table_id = 0;
    std::vector<EitEvent> events;
};

} // namespace lib13818
