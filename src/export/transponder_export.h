#pragma once

#include "export/table_writer.h"
#include "model/network_map.h"

namespace tessaview {

/// Writes transport streams with their services and conditional access into a database.
class TransponderExport {
public:
    explicit TransponderExport(Database& database);

    /// The row of the network must be there.
    void write(const Network& network, const Transponder& transponder);

private:
    void writeService(std::int64_t transponderId, const lib13818::PatProgram& program,
                      const lib13818::SdtService* entry, const lib13818::Pmt* pmt);

    TableWriter transponders_;
    TableWriter services_;
    TableWriter ecms_;
    TableWriter emms_;
};

} // namespace tessaview
