#pragma once

#include "si/section.h"
#include "si/time.h"

namespace lib13818 {

/// A time and date table (EN 300 468, 5.2.5).
class Tdt final : public ShortSection {
public:
    void clear() override {}
    const char* name() const override { return "time_date_section"; }
    void dump(std::ostream& out) const override;
    void parsePayload(const uint8_t* body) override;
    bool isValidTableId() const override { return table_id == 0x70; }

    DateTime UTC_time;
};

} // namespace lib13818
