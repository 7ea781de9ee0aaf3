#pragma once

#include "si/section.h"

#include <vector>

namespace lib13818 {

struct RunningStatusEntry {
    int transport_stream_id;
    int original_network_id;
    int service_id;
    int event_id;
    int running_status;
};

/// A running status table (EN 300 468, 5.2.7).
class Rst final : public ShortSection {
public:
    void clear() override { entries.clear(); }
    const char* name() const override { return "running_status_section"; }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x71; }

    std::vector<RunningStatusEntry> entries;
};

} // namespace lib13818
