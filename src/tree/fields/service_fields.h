#pragma once

#include "si/descriptors/service_descriptors.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

// What the value pane shows of descriptors of services.

namespace tessaview {

// clang-format off

inline constexpr auto kTelephoneFields = [] {
    using T = lib13818::DescriptorTelephone;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                 "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",              "%d",   &T::descriptor_length},
         {"FORIEGN_AVAILABILITY",           "%d",   &T::foreign_availability},
         {"CONNECTION_TYPE",                "%d",   &T::connection_type},
         {"COUNTRY_PREFIX_LEN",             "%d",   &T::country_prefix_length},
         {"INTERNATIONAL_AREA_CODE_LENGTH", "%d",   &T::international_area_code_length},
         {"OPERATOR_CODE_LENGTH",           "%d",   &T::operator_code_length},
         {"NATIONAL_AREA_CODE_LENGTH",      "%d",   &T::national_area_code_length},
         {"CORE_NUMBER_LENGTH",             "%d",   &T::core_number_length},
         {"COUNTRY_PREIFX",                 "%s",   &T::country_prefix_char},
         {"INTERNATIONAL_AREA_CODE",        "%s",   &T::international_area_code_char},
         {"OPERATOR_CODE",                  "%s",   &T::operator_code_char},
         {"NATIONAL_AREA_CODE",             "%s",   &T::national_area_code_char},
         {"CORE_NUMBER",                    "%s",   &T::core_number_char}});
}();

inline constexpr auto kAnnouncementSupportFields = [] {
    using T = lib13818::DescriptorAnnouncementSupport;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                   "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",                "%d",   &T::descriptor_length},
         {"ANNOUNCEMENT_SUPPORT_IDENTICATOR", "%02X", &T::announcement_support_indicator}});
}();

inline constexpr auto kAnnouncementSupportEntryFields = [] {
    using T = lib13818::DescriptorAnnouncementSupport::Info;
    return fieldList<T>(
        {{"ANNOUNCEMENT_TYPE",   "%d",   &T::announcement_type},
         {"REFERENCE_TYPE",      "%02X", &T::reference_type},
         {"ORIGINAL_NETWORK_ID", "%04X", &T::original_network_id},
         {"TRANSPORT_STREAM_ID", "%04X", &T::transport_stream_id},
         {"SERVICE_ID",          "%04X", &T::service_id},
         {"COMPONENT_TAG",       "%02X", &T::component_tag}});
}();

inline constexpr auto kServiceIdentifierFields =
    headerFields<lib13818::DescriptorServiceIdentifier>();

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

inline constexpr auto kCountryAvailabilityFields = [] {
    using T = lib13818::DescriptorCountryAvailability;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",            "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",         "%d",   &T::descriptor_length},
         {"COUNTRY_AVAILABILITY_FLAG", "%d",   &T::country_availability_flag}});
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
