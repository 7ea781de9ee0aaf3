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
    return fieldList<T>(61237,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,NAME",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%s",   &T::network_name}});
}();

inline constexpr auto kServiceListFields = headerFields<lib13818::DescriptorServiceList>(61220);

inline constexpr auto kServiceListEntryFields = [] {
    using T = lib13818::DescriptorServiceList::Info;
    return fieldList<T>(61221,
        "SERVICE_ID,SERVICE_TYPE",
        {{"%02x",    &T::service_id},
         {"%d - %s", &T::service_type, lib13818::serviceTypeText}});
}();

inline constexpr auto kBouquetNameFields = [] {
    using T = lib13818::DescriptorBouquetName;
    return fieldList<T>(61237,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,NAME",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%s",   &T::bouquet_name}});
}();

inline constexpr auto kServiceFields = [] {
    using T = lib13818::DescriptorService;
    return fieldList<T>(61219,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,SERVICE_TYPE,SERVICE_PROVIDER_NAME_LENGTH,SERVICE_PROVIDER_NAME,SERVICE_NAME_LENGTH,SERVICE_NAME",
        {{"%02x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d - %s", &T::service_type, lib13818::serviceTypeText},
         {"%d",      +[](const T& service) { return static_cast<int>(service.provider_name.size()); }},
         {"%s",      &T::provider_name},
         {"%d",      +[](const T& service) { return static_cast<int>(service.service_name.size()); }},
         {"%s",      &T::service_name}});
}();

inline constexpr auto kStuffingFields = [] {
    using T = lib13818::DescriptorStuffing;
    return fieldList<T>(61238,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,STUFFING_BYTES",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {kBytesRow, &T::stuffing_byte}});
}();

inline constexpr auto kSatelliteDeliverySystemFields = [] {
    using T = lib13818::DescriptorSatelliteDeliverySystem;
    return fieldList<T>(61218,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,FREQUENCY,ORBITAL_POSITION,WEST_EAST_FLAG,POLARIZATION,MODULATION,SYMBOL_RATE,FEC_INNER",
        {{"%02x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%.2f",    +[](const T& delivery) { return delivery.frequency * 1000; }}, // MHz
         {"%.1f",    &T::orbital_position},
         {"%d - %s", &T::west_east_flag, +[](int flag) { return flag == 1 ? "east" : "west"; }},
         {"%d - %s", &T::polarization, lib13818::polarizationText},
         {"%d - %s", &T::modulation, lib13818::satelliteModulationText},
         {"%.1f",    +[](const T& delivery) { return delivery.symbol_rate * 1000; }}, // kS/s
         {"%d - %s", &T::FEC_inner, lib13818::fecInnerText}});
}();

inline constexpr auto kCableDeliverySystemFields = [] {
    using T = lib13818::DescriptorCableDeliverySystem;
    return fieldList<T>(61239,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,FREQUENCY,FEC_OUTER,MODULATION,SYMBOL_RATE,FEC_INNER",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%f",   &T::frequency},
         {"%d",   &T::FEC_outer},
         {"%d",   &T::modulation},
         {"%f",   &T::symbol_rate},
         {"%d",   &T::FEC_inner}});
}();

inline constexpr auto kCountryAvailabilityFields = [] {
    using T = lib13818::DescriptorCountryAvailability;
    return fieldList<T>(61240,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,COUNTRY_AVAILABILITY_FLAG",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::country_availability_flag}});
}();

inline constexpr auto kLinkageFields = [] {
    using T = lib13818::DescriptorLinkage;
    return fieldList<T>(61241,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,TRANSPORT_STREAM_ID,ORIGINAL_NETWORK_ID,SERVICE_ID,LINKAGE_TYPE,PRIVATE_DATA_BYTES",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%04X",    &T::transport_stream_id},
         {"%04X",    &T::original_network_id},
         {"%04X",    &T::service_id},
         {"%d",      &T::linkage_type},
         {kBytesRow, &T::private_data_byte}});
}();

inline constexpr auto kTerrestrialDeliverySystemFields = [] {
    using T = lib13818::DescriptorTerrestrialDeliverySystem;
    return fieldList<T>(61270,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,CENTRE_FREQUENCY,BANDWIDTH,CONSTELLATION,HIERACHY_INFORMATION,CODE_RATE_HP_STREAM,CODE_RATE_LP_STREAM,GUARD_INTERVAL,TRANSMISSION_MODE,OTHER_FREQUENCY_FLAG",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%ld",  &T::centre_frequency},
         {"%d",   &T::bandwidth},
         {"%d",   &T::constellation},
         {"%d",   &T::hierarchy_information},
         {"%d",   &T::code_rate_HP_stream},
         {"%d",   &T::code_rate_LP_stream},
         {"%d",   &T::guard_interval},
         {"%d",   &T::transmission_mode},
         {"%d",   &T::other_frequency_flag}});
}();

inline constexpr auto kFrequencyListFields = [] {
    using T = lib13818::DescriptorFrequencyList;
    return fieldList<T>(61271,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,CODING_TYPE",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d - %s", &T::coding_type, lib13818::codingTypeText}});
}();

inline constexpr auto kMultilingualNetworkNameFields =
    headerFields<lib13818::DescriptorMultilingualNetworkName>(61251);
inline constexpr auto kMultilingualBouquetNameFields =
    headerFields<lib13818::DescriptorMultilingualBouquetName>(61252);

inline constexpr auto kMultilingualNameFields = [] {
    using T = lib13818::MultilingualNameInfo;
    return fieldList<T>(61253,
        "ISO_639_LANGUAGE_CODE,NAME_LENGTH,NAME",
        {{"%s", &T::ISO_639_language_code},
         {"%d", &T::text_len},
         {"%s", &T::name}});
}();

inline constexpr auto kMultilingualServiceNameFields =
    headerFields<lib13818::DescriptorMultilingualServiceName>(61254);

inline constexpr auto kMultilingualServiceNameEntryFields = [] {
    using T = lib13818::DescriptorMultilingualServiceName::MultilingualServiceNameInfo;
    return fieldList<T>(61255,
        "ISO_639_LANGUAGE_CODE,SERVICE_PROVIDER_NAME_LENGTH,SERVICE_PROVIDER_NAME,SERVICE_NAME_LENGTH,SERVICE_NAME",
        {{"%s", &T::ISO_639_language_code},
         {"%d", &T::provider_len},
         {"%s", &T::providername},
         {"%d", &T::service_len},
         {"%s", &T::servicename}});
}();

inline constexpr auto kMultilingualComponentFields = [] {
    using T = lib13818::DescriptorMultilingualComponent;
    return fieldList<T>(61256,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,COMPONENT_TAG",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::component_tag}});
}();

inline constexpr auto kPrivateDataSpecifierFields = [] {
    using T = lib13818::DescriptorPrivateDataSpecifier;
    return fieldList<T>(61257,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,PRIVATE_DATA_SPECIFIER",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%08X", &T::private_data_specifier}});
}();

inline constexpr auto kServiceMoveFields = [] {
    using T = lib13818::DescriptorServiceMove;
    return fieldList<T>(61258,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,NEW_ORIGINAL_NETWORK_ID,NEW_TRANSPORT_STREAM_ID,NEW_SERVICE_ID",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%04X", &T::new_original_network_id},
         {"%04X", &T::new_transport_stream_id},
         {"%04X", &T::new_service_id}});
}();

inline constexpr auto kCaIdentifierFields = headerFields<lib13818::DescriptorCAIdentifier>(61231);

// clang-format on

} // namespace tessaview
