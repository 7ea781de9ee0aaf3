#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"

#include <vector>

namespace lib13818 {

/// One elementary stream of a program.
class StreamInfo {
public:
    /// Reads the entry at the front of the stream loop; throws "too little data".
    explicit StreamInfo(BitReader& loop);

    /// The bytes of the entry in its section, once that has been parsed as a whole.
    Bytes bytes() const { return descriptors.entryBytes(5, ES_info_length); }

    int stream_type;
    int elementary_PID;
    int ES_info_length; ///< as coded
    DescriptorSet descriptors;
};

/// One section of a program map table (ISO/IEC 13818-1, 2.4.4.8). The program_number is its
/// table_id_extension.
class Pmt final : public LongSection {
public:
    const char* name() const override { return "pmt"; }
    void clear() override { streams.clear(); }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x02; }
    bool isValidSyntaxIndicator(int /*ssi*/) const override { return true; }

    int PCR_PID = 0;
    int program_info_length = 0; ///< as coded
    std::vector<StreamInfo> streams;
    DescriptorSet descriptors; ///< of the program_info loop
};

} // namespace lib13818
