#pragma once

#include "si/descriptors/mosiac_descriptor.h"
#include "tree/fields/field_list.h"

#include <cstdint>
#include <string>
#include <vector>

// What the value pane shows of the descriptor of a mosaic.

namespace tessaview {

/// What a mosaic cell leads to: "service 0085 0451 6FF1".
std::string linkageText(const lib13818::DescriptorMosiac::CellInfo& cell);

/// The ids of the elementary cells that a cell takes, without the reserved bits before each.
std::vector<std::uint8_t> elementaryCellIds(const lib13818::DescriptorMosiac::CellInfo& cell);

/// A tooltip that says what a row holds.
template <lib13818::Literal Name>
constexpr auto kCalled = [](const auto& /*object*/) { return std::string(Name.text); };

// clang-format off

inline constexpr auto kMosiacFields = [] {
    using T = lib13818::DescriptorMosiac;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                        "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",                     "%d",   &T::descriptor_length},
         {"MOSIAC_ENTRY_POINT",                    "%d",   &T::mosiac_entry_point},
         {"NUMBER_OF_HORIZONTAL_ELEMENTARY_CELLS", "%d",   &T::number_of_horizontal_elementary_cells},
         {"NUMBER_OF_VERTICAL_ELEMENTARY_CELLS",   "%d",   &T::number_of_vertical_elementary_cells}});
}();

// The cells have the names of their descriptor: what a row really holds is its remark.
inline constexpr auto kMosiacCellFields = [] {
    using T = lib13818::DescriptorMosiac::CellInfo;
    return fieldList<T>(
        {Field<T>{"DESCRIPTOR_TAG",                        "%d",      &T::logical_cell_id}               .with(kCalled<"logical_cell_id">),
         Field<T>{"DESCRIPTOR_LENGTH",                     "%d",      &T::logical_cell_presentation_info}.with(kCalled<"logical_cell_presentation_info">),
         Field<T>{"MOSIAC_ENTRY_POINT",                    "%d",      &T::elementary_cell_field_length}  .with(kCalled<"elementary_cell_field_length">),
         Field<T>{"NUMBER_OF_HORIZONTAL_ELEMENTARY_CELLS", kBytesRow, elementaryCellIds}                 .with(kCalled<"elementary_cell_id">),
         Field<T>{"NUMBER_OF_VERTICAL_ELEMENTARY_CELLS",   "%d",      &T::cell_linkage_info}             .with([](const T& cell) { return "cell_linkage_info: " + linkageText(cell); })});
}();

// clang-format on

} // namespace tessaview
