#pragma once

#include "si/network_table.h"

namespace lib13818 {

/// One section of a network information table, of the actual or of another network (EN 300 468,
/// 5.2.1). The network_id is its table_id_extension.
class Nit final : public NetworkTable {
public:
    const char* name() const override;
    void dump(std::ostream& out) const override;
    bool isValidTableId() const override { return table_id == 0x40 || table_id == 0x41; }
};

} // namespace lib13818
