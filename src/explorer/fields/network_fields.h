#pragma once

#include "explorer/fields/header_fields.h"
#include "si/descriptors/delivery_descriptors.h"
#include "si/descriptors/multilingual_descriptors.h"
#include "si/descriptors/network_descriptors.h"
#include "si/descriptors/service_descriptors.h"
#include "si/texts/value_texts.h"

// What the value pane shows of descriptors that name, deliver and link networks, bouquets and
// services.

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

inline constexpr auto kServiceFields = [] {
    using T = lib13818::DescriptorService;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",               "%02x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",            "%d",      &T::descriptor_length},
         {"SERVICE_TYPE",                 "%d - %s", &T::service_type, lib13818::serviceTypeText},
         {"SERVICE_PROVIDER_NAME_LENGTH", "%d",      +[](const T& service) { return static_cast<int>(service.provider_name.size()); }},
         {"SERVICE_PROVIDER_NAME",        "%s",      &T::provider_name},
         {"SERVICE_NAME_LENGTH",          "%d",      +[](const T& service) { return static_cast<int>(service.service_name.size()); }},
         {"SERVICE_NAME",                 "%s",      &T::service_name}});
}();

inline constexpr auto kStuffingFields = [] {
    using T = lib13818::DescriptorStuffing;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"STUFFING_BYTES",    kBytesRow, &T::stuffing_byte}});
}();

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

inline constexpr auto kCountryAvailabilityFields = [] {
    using T = lib13818::DescriptorCountryAvailability;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",            "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",         "%d",   &T::descriptor_length},
         {"COUNTRY_AVAILABILITY_FLAG", "%d",   &T::country_availability_flag}});
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

inline constexpr auto kMultilingualNetworkNameFields =
    headerFields<lib13818::DescriptorMultilingualNetworkName>();
inline constexpr auto kMultilingualBouquetNameFields =
    headerFields<lib13818::DescriptorMultilingualBouquetName>();

inline constexpr auto kMultilingualNameFields = [] {
    using T = lib13818::MultilingualNameInfo;
    return fieldList<T>(
        {{"ISO_639_LANGUAGE_CODE", "%s", &T::ISO_639_language_code},
         {"NAME_LENGTH",           "%d", &T::text_len},
         {"NAME",                  "%s", &T::name}});
}();

inline constexpr auto kMultilingualServiceNameFields =
    headerFields<lib13818::DescriptorMultilingualServiceName>();

inline constexpr auto kMultilingualServiceNameEntryFields = [] {
    using T = lib13818::DescriptorMultilingualServiceName::MultilingualServiceNameInfo;
    return fieldList<T>(
        {{"ISO_639_LANGUAGE_CODE",        "%s", &T::ISO_639_language_code},
         {"SERVICE_PROVIDER_NAME_LENGTH", "%d", &T::provider_len},
         {"SERVICE_PROVIDER_NAME",        "%s", &T::providername},
         {"SERVICE_NAME_LENGTH",          "%d", &T::service_len},
         {"SERVICE_NAME",                 "%s", &T::servicename}});
}();

inline constexpr auto kMultilingualComponentFields = [] {
    using T = lib13818::DescriptorMultilingualComponent;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"COMPONENT_TAG",     "%d",   &T::component_tag}});
}();

inline constexpr auto kPrivateDataSpecifierFields = [] {
    using T = lib13818::DescriptorPrivateDataSpecifier;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",         "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",      "%d",   &T::descriptor_length},
         {"PRIVATE_DATA_SPECIFIER", "%08X", &T::private_data_specifier}});
}();

inline constexpr auto kServiceMoveFields = [] {
    using T = lib13818::DescriptorServiceMove;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",          "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",       "%d",   &T::descriptor_length},
         {"NEW_ORIGINAL_NETWORK_ID", "%04X", &T::new_original_network_id},
         {"NEW_TRANSPORT_STREAM_ID", "%04X", &T::new_transport_stream_id},
         {"NEW_SERVICE_ID",          "%04X", &T::new_service_id}});
}();

inline constexpr auto kCaIdentifierFields = headerFields<lib13818::DescriptorCAIdentifier>();

// clang-format on

} // namespace tessaview
