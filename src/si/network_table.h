#pragma once

#include "si/descriptors/descriptor_set.h"
#include "si/section.h"

#include <vector>

namespace lib13818 {

/// One transport stream of a NIT or BAT.
class TransportStreamEntry {
public:
    /// Reads the entry at the front of the transport stream loop; throws "too little data".
    explicit TransportStreamEntry(BitReader& loop);

    /// The bytes of the entry in its section, once that has been parsed as a whole.
    Bytes bytes() const { return descriptors.entryBytes(6, transport_descriptors_length); }

    int transport_stream_id;
    int original_network_id;
    int transport_descriptors_length; ///< as coded
    DescriptorSet descriptors;
};

/// The layout that NIT and BAT share (EN 300 468, 5.2.1 and 5.2.2).
class NetworkTable : public LongSection {
public:
    void clear() override;
    void parsePayload(const uint8_t* body) override;

    std::vector<DescriptorCA> caDescriptors; ///< those of the first loop
    std::vector<TransportStreamEntry> transportStreams;
    DescriptorSet descriptors; ///< the others of the first loop

protected:
    NetworkTable() = default;
    NetworkTable(const NetworkTable&) = default;
    NetworkTable(NetworkTable&&) = default;
    NetworkTable& operator=(const NetworkTable&) = default;
    NetworkTable& operator=(NetworkTable&&) = default;
    ~NetworkTable() = default;

    /// The lines both dumps give for each transport stream first.
    static void dumpEntry(std::ostream& out, const TransportStreamEntry& entry);

private:
    /// Takes the CA descriptors of the first loop apart from the others.
    void takeFirstLoop(Bytes loop);
};

} // namespace lib13818
