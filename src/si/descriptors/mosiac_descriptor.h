#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <cstdint>
#include <variant>

namespace lib13818 {

/// The pictures of a mosaic service and what each of them leads to (EN 300 468, 6.2). Throws
/// code 2 for a cell that leads to nothing known, code 3 unless the cells end with the descriptor.
class DescriptorMosiac final : public DescriptorOf<0x51, "mosiac_descriptor"> {
public:
    explicit DescriptorMosiac(DescriptorReader in);
    void dumpBody(std::ostream& out) const override;
    void clear() override { entries = {}; }

    struct BouquetInfo {
        explicit BouquetInfo(BitReader& in);

        int bouquet_id;
    };
    struct ServiceInfo {
        explicit ServiceInfo(BitReader& in);

        int original_network_id;
        int transport_stream_id;
        int service_id;
    };
    struct EventInfo {
        explicit EventInfo(BitReader& in);

        int original_network_id;
        int transport_stream_id;
        int service_id;
        int event_id;
    };
    using Linkage = std::variant<BouquetInfo, ServiceInfo, EventInfo>;

    struct CellInfo : Record {
        explicit CellInfo(BitReader& in);

        int logical_cell_id;
        int logical_cell_presentation_info;
        int elementary_cell_field_length; ///< bytes
        Bytes elementary_cell_id;         ///< the low six bits of each
        int cell_linkage_info;            ///< 1 a bouquet, 2 and 3 a service, 4 an event
        Linkage linkage;
    };

    int mosiac_entry_point;
    int number_of_horizontal_elementary_cells;
    int number_of_vertical_elementary_cells;
    Records<CellInfo> entries;
};

} // namespace lib13818
