#pragma once

#include "charset/charset_policy.h"
#include "export/table_writer.h"
#include "model/network_map.h"

namespace tessaview {

/// Writes transport streams with their services and conditional access into a database.
class TransponderExport {
public:
    /// Both must outlive this. The policy says how names are read.
    TransponderExport(Database& database, const CharsetPolicy& charsets);

    /// The row of the network must be there.
    void write(const Network& network, const Transponder& transponder);

private:
    void writeService(std::int64_t transponderId, const CharsetRule& charset,
                      const lib13818::PatProgram& program, const lib13818::SdtService* entry,
                      const lib13818::Pmt* pmt);

    const CharsetPolicy& charsets_;
    TableWriter transponders_;
    TableWriter services_;
    TableWriter ecms_;
    TableWriter emms_;
};

} // namespace tessaview
