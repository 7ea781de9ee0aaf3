#pragma once

#include "si/descriptors/delivery_descriptors.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

// What the value pane shows of delivery systems and their frequencies.

namespace tessaview {

// clang-format off

inline constexpr auto kSatelliteDeliverySystemFields = [] {
    using T = lib13818::DescriptorSatelliteDeliverySystem;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%02x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"FREQUENCY",         "%.2f",    +[](const T& delivery) { return delivery.frequency * 1000; }}, // MHz
         {"ORBITAL_POSITION",  "%.1f",    &T::orbital_position},
         {"WEST_EAST_FLAG",    "%d - %s", &T::west_east_flag, +[](int flag) { return flag == 1 ? "east" : "west"; }},
         {"POLARIZATION",      "%d - %s", &T::polarization, lib13818::polarizationText},
         {"MODULATION",        "%d - %s", &T::modulation, lib13818::satelliteModulationText},
         {"SYMBOL_RATE",       "%.1f",    +[](const T& delivery) { return delivery.symbol_rate * 1000; }}, // kS/s
         {"FEC_INNER",         "%d - %s", &T::FEC_inner, lib13818::fecInnerText}});
}();

inline constexpr auto kCableDeliverySystemFields = [] {
    using T = lib13818::DescriptorCableDeliverySystem;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"FREQUENCY",         "%f",   &T::frequency},
         {"FEC_OUTER",         "%d",   &T::FEC_outer},
         {"MODULATION",        "%d",   &T::modulation},
         {"SYMBOL_RATE",       "%f",   &T::symbol_rate},
         {"FEC_INNER",         "%d",   &T::FEC_inner}});
}();

inline constexpr auto kTerrestrialDeliverySystemFields = [] {
    using T = lib13818::DescriptorTerrestrialDeliverySystem;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",       "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",    "%d",   &T::descriptor_length},
         {"CENTRE_FREQUENCY",     "%ld",  &T::centre_frequency},
         {"BANDWIDTH",            "%d",   &T::bandwidth},
         {"CONSTELLATION",        "%d",   &T::constellation},
         {"HIERACHY_INFORMATION", "%d",   &T::hierarchy_information},
         {"CODE_RATE_HP_STREAM",  "%d",   &T::code_rate_HP_stream},
         {"CODE_RATE_LP_STREAM",  "%d",   &T::code_rate_LP_stream},
         {"GUARD_INTERVAL",       "%d",   &T::guard_interval},
         {"TRANSMISSION_MODE",    "%d",   &T::transmission_mode},
         {"OTHER_FREQUENCY_FLAG", "%d",   &T::other_frequency_flag}});
}();

inline constexpr auto kFrequencyListFields = [] {
    using T = lib13818::DescriptorFrequencyList;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"CODING_TYPE",       "%d - %s", &T::coding_type, lib13818::codingTypeText}});
}();

// clang-format on

} // namespace tessaview
