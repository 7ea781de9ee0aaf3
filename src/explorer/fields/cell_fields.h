#pragma once

#include "explorer/fields/header_fields.h"
#include "platform/format.h"
#include "si/descriptors/cell_descriptors.h"
#include "si/descriptors/mosiac_descriptor.h"

#include <cstdint>
#include <string>
#include <vector>

// What the value pane shows of descriptors of cells, those of a network and those of a mosaic.

namespace tessaview {

/// What a mosaic cell leads to: "service 0085 0451 6FF1".
std::string linkageText(const lib13818::DescriptorMosiac::CellInfo& cell);

/// The ids of the elementary cells that a cell takes, without the reserved bits before each.
std::vector<std::uint8_t> elementaryCellIds(const lib13818::DescriptorMosiac::CellInfo& cell);

/// A tooltip that says what a row holds.
template <lib13818::Literal Name>
constexpr auto kCalled = [](const auto& /*object*/) { return std::string(Name.text); };

// clang-format off

inline constexpr auto kCellListFields = headerFields<lib13818::DescriptorCellList>(61280);

inline constexpr auto kCellListEntryFields = [] {
    using T = lib13818::DescriptorCellList::Info;
    return fieldList<T>(61289,
        "CELL_ID,CELL_LATTITUDE,CELL_LONGITUDE,CELL_EXTEND_LATTITUDE,CELL_EXTEND_LONGITUDE,SUBCELL_INFO_LOOP_LENGTH",
        {{"%d", &T::cell_id},
         {"%d", &T::cell_latitude},
         {"%d", &T::cell_longitude},
         {"%d", &T::cell_extent_of_latitude},
         {"%d", &T::cell_extent_of_longitude},
         {"%d", &T::subcell_info_loop_length}});
}();

inline constexpr auto kCellListSubcellFields = [] {
    using T = lib13818::DescriptorCellList::Subcell;
    return fieldList<T>(61290,
        "CELL_ID_EXTENSION,CELL_LATTITUDE,CELL_LONGITUDE,CELL_EXTEND_LATTITUDE,CELL_EXTEND_LONGITUDE",
        {{"%d", &T::cell_id_extension},
         {"%d", &T::subcell_latitude},
         {"%d", &T::subcell_longitude},
         {"%d", &T::subcell_extent_of_latitude},
         {"%d", &T::subcell_extent_of_longitude}});
}();

inline constexpr auto kCellFrequencyLinkFields = headerFields<lib13818::DescriptorCellFrequencyLink>(61281);

inline constexpr auto kCellFrequencyLinkEntryFields = [] {
    using T = lib13818::DescriptorCellFrequencyLink::Info;
    return fieldList<T>(61291,
        "CELL_ID,FREQUENCY,SUBCELL_INFO_LOOP_LENGTH",
        {{"%d", &T::cell_id},
         {"%d", &T::frequency},
         {"%d", &T::subcell_info_loop_length}});
}();

inline constexpr auto kCellFrequencyLinkSubcellFields = [] {
    using T = lib13818::DescriptorCellFrequencyLink::Subcell;
    return fieldList<T>(61292,
        "CELL_ID_EXTENSION,TRANSPOSER_FREQUENCY",
        {{"%d",  &T::cell_id_extension},
         {"%lu", &T::transposer_frequency}});
}();

inline constexpr auto kServiceAvailabilityFields = [] {
    using T = lib13818::DescriptorServiceAvailability;
    return fieldList<T>(61286,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,AVAILABILITY_FLAG,CELL_ID",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::availability_flag},
         {"%s",   +[](const T& availability) {
              std::string ids;
              for (const int id : availability.cell_id)
                  ids += formatted(ids.empty() ? "%d" : " %d", id);
              return ids;
          }}});
}();

inline constexpr auto kMosiacFields = [] {
    using T = lib13818::DescriptorMosiac;
    return fieldList<T>(61245,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,MOSIAC_ENTRY_POINT,NUMBER_OF_HORIZONTAL_ELEMENTARY_CELLS,NUMBER_OF_VERTICAL_ELEMENTARY_CELLS",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::mosiac_entry_point},
         {"%d",   &T::number_of_horizontal_elementary_cells},
         {"%d",   &T::number_of_vertical_elementary_cells}});
}();

// The cells have the names of their descriptor: what a row really holds is its remark.
inline constexpr auto kMosiacCellFields = [] {
    using T = lib13818::DescriptorMosiac::CellInfo;
    return fieldList<T>(61245,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,MOSIAC_ENTRY_POINT,NUMBER_OF_HORIZONTAL_ELEMENTARY_CELLS,NUMBER_OF_VERTICAL_ELEMENTARY_CELLS",
        {Field<T>{"%d",      &T::logical_cell_id}               .with(kCalled<"logical_cell_id">),
         Field<T>{"%d",      &T::logical_cell_presentation_info}.with(kCalled<"logical_cell_presentation_info">),
         Field<T>{"%d",      &T::elementary_cell_field_length}  .with(kCalled<"elementary_cell_field_length">),
         Field<T>{kBytesRow, elementaryCellIds}                 .with(kCalled<"elementary_cell_id">),
         Field<T>{"%d",      &T::cell_linkage_info}             .with([](const T& cell) { return "cell_linkage_info: " + linkageText(cell); })});
}();

// clang-format on

} // namespace tessaview
