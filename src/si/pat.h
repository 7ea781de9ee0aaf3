#pragma once

#include "si/section.h"

#include <vector>

namespace lib13818 {

struct PatProgram {
    int program_number;
    int program_map_PID; ///< for program_number 0 the network_PID
};

/// One section of the program association table (ISO/IEC 13818-1, 2.4.4.3). The
/// transport_stream_id is its table_id_extension.
class Pat final : public LongSection {
public:
    const char* name() const override { return "pat"; }
    void clear() override { programs.clear(); }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x00; }

    std::vector<PatProgram> programs;
};

} // namespace lib13818
