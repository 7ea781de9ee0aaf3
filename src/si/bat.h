#pragma once

#include "si/network_table.h"

namespace lib13818 {

/// One section of a bouquet association table (EN 300 468, 5.2.2). The bouquet_id is its
/// table_id_extension.
class Bat final : public NetworkTable {
public:
    const char* name() const override;
    void dump(std::ostream& out) const override;
    bool isValidTableId() const override { return table_id == 0x4A; }
};

} // namespace lib13818
