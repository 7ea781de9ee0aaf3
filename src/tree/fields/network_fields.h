#pragma once

#include "si/descriptors/network_descriptors.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

// What the value pane shows of descriptors that name and link networks and bouquets.

namespace tessaview {

// clang-format off

inline constexpr auto kNetworkNameFields = [] {
    using T = lib13818::DescriptorNetworkName;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"NAME",              "%s",   &T::network_name}});
}();

inline constexpr auto kServiceListFields = headerFields<lib13818::DescriptorServiceList>();

inline constexpr auto kServiceListEntryFields = [] {
    using T = lib13818::DescriptorServiceList::Info;
    return fieldList<T>(
        {{"SERVICE_ID",   "%02x",    &T::service_id},
         {"SERVICE_TYPE", "%d - %s", &T::service_type, lib13818::serviceTypeText}});
}();

inline constexpr auto kBouquetNameFields = [] {
    using T = lib13818::DescriptorBouquetName;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"NAME",              "%s",   &T::bouquet_name}});
}();

inline constexpr auto kStuffingFields = [] {
    using T = lib13818::DescriptorStuffing;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"STUFFING_BYTES",    kBytesRow, &T::stuffing_byte}});
}();

inline constexpr auto kLinkageFields = [] {
    using T = lib13818::DescriptorLinkage;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",      "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",   "%d",      &T::descriptor_length},
         {"TRANSPORT_STREAM_ID", "%04X",    &T::transport_stream_id},
         {"ORIGINAL_NETWORK_ID", "%04X",    &T::original_network_id},
         {"SERVICE_ID",          "%04X",    &T::service_id},
         {"LINKAGE_TYPE",        "%d",      &T::linkage_type},
         {"PRIVATE_DATA_BYTES",  kBytesRow, &T::private_data_byte}});
}();

inline constexpr auto kPrivateDataSpecifierFields = [] {
    using T = lib13818::DescriptorPrivateDataSpecifier;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",         "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",      "%d",   &T::descriptor_length},
         {"PRIVATE_DATA_SPECIFIER", "%08X", &T::private_data_specifier}});
}();

// clang-format on

} // namespace tessaview
