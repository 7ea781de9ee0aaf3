#pragma once

#include "si/descriptors/descriptor.h"
#include "si/descriptors/records.h"

#include <cstdint>

// Cells of terrestrial networks (EN 300 468, 6.2). Coordinates are the coded
// words; an entry that reaches past its descriptor throws code 2.

namespace lib13818 {

class DescriptorCellList final : public DescriptorOf<0x6C, "cell_list_descriptor"> {
public:
    explicit DescriptorCellList(DescriptorReader in);

    struct Subcell : Record {
        explicit Subcell(BitReader& in);

        int cell_id_extension;
        int subcell_latitude;
        int subcell_longitude;
        int subcell_extent_of_latitude;
        int subcell_extent_of_longitude;
    };
    struct Info : Record {
        explicit Info(BitReader& in);

        int cell_id;
        int cell_latitude;
        int cell_longitude;
        int cell_extent_of_latitude;
        int cell_extent_of_longitude;
        int subcell_info_loop_length; ///< bytes
        Records<Subcell> subcells;
    };
    Records<Info> entries;
};

class DescriptorCellFrequencyLink final
    : public DescriptorOf<0x6D, "cell_frequency_link_descriptor"> {
public:
    explicit DescriptorCellFrequencyLink(DescriptorReader in);

    struct Subcell : Record {
        explicit Subcell(BitReader& in);

        int cell_id_extension;
        uint32_t transposer_frequency; ///< 10 Hz
    };
    struct Info : Record {
        explicit Info(BitReader& in);

        int cell_id;
        uint32_t frequency;           ///< 10 Hz
        int subcell_info_loop_length; ///< bytes
        Records<Subcell> subcells;
    };
    Records<Info> entries;
};

class DescriptorServiceAvailability final
    : public DescriptorOf<0x72, "service_availability_descriptor"> {
public:
    explicit DescriptorServiceAvailability(DescriptorReader in);

    int availability_flag;
    Records<int> cell_id;
};

} // namespace lib13818
