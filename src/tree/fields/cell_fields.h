#pragma once

#include "platform/format.h"
#include "si/descriptors/cell_descriptors.h"
#include "tree/fields/field_list.h"

#include <string>

// What the value pane shows of the descriptors of the cells of a network.

namespace tessaview {

// clang-format off

inline constexpr auto kCellListFields = headerFields<lib13818::DescriptorCellList>();

inline constexpr auto kCellListEntryFields = [] {
    using T = lib13818::DescriptorCellList::Info;
    return fieldList<T>(
        {{"CELL_ID",                  "%d", &T::cell_id},
         {"CELL_LATTITUDE",           "%d", &T::cell_latitude},
         {"CELL_LONGITUDE",           "%d", &T::cell_longitude},
         {"CELL_EXTEND_LATTITUDE",    "%d", &T::cell_extent_of_latitude},
         {"CELL_EXTEND_LONGITUDE",    "%d", &T::cell_extent_of_longitude},
         {"SUBCELL_INFO_LOOP_LENGTH", "%d", &T::subcell_info_loop_length}});
}();

inline constexpr auto kCellListSubcellFields = [] {
    using T = lib13818::DescriptorCellList::Subcell;
    return fieldList<T>(
        {{"CELL_ID_EXTENSION",     "%d", &T::cell_id_extension},
         {"CELL_LATTITUDE",        "%d", &T::subcell_latitude},
         {"CELL_LONGITUDE",        "%d", &T::subcell_longitude},
         {"CELL_EXTEND_LATTITUDE", "%d", &T::subcell_extent_of_latitude},
         {"CELL_EXTEND_LONGITUDE", "%d", &T::subcell_extent_of_longitude}});
}();

inline constexpr auto kCellFrequencyLinkFields = headerFields<lib13818::DescriptorCellFrequencyLink>();

inline constexpr auto kCellFrequencyLinkEntryFields = [] {
    using T = lib13818::DescriptorCellFrequencyLink::Info;
    return fieldList<T>(
        {{"CELL_ID",                  "%d", &T::cell_id},
         {"FREQUENCY",                "%d", &T::frequency},
         {"SUBCELL_INFO_LOOP_LENGTH", "%d", &T::subcell_info_loop_length}});
}();

inline constexpr auto kCellFrequencyLinkSubcellFields = [] {
    using T = lib13818::DescriptorCellFrequencyLink::Subcell;
    return fieldList<T>(
        {{"CELL_ID_EXTENSION",    "%d",  &T::cell_id_extension},
         {"TRANSPOSER_FREQUENCY", "%lu", &T::transposer_frequency}});
}();

inline constexpr auto kServiceAvailabilityFields = [] {
    using T = lib13818::DescriptorServiceAvailability;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"AVAILABILITY_FLAG", "%d",   &T::availability_flag},
         {"CELL_ID",           "%s",   +[](const T& availability) {
              std::string ids;
              for (const int id : availability.cell_id)
                  ids += formatted(ids.empty() ? "%d" : " %d", id);
              return ids;
          }}});
}();

// clang-format on

} // namespace tessaview
