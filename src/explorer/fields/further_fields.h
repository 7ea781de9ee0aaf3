#pragma once

#include "explorer/fields/header_fields.h"
#include "platform/format.h"
#include "si/descriptors/component_descriptors.h"
#include "si/descriptors/data_descriptors.h"
#include "si/descriptors/event_descriptors.h"
#include "si/descriptors/service_descriptors.h"
#include "si/descriptors/transport_descriptors.h"
#include "si/texts/registries.h"

// What the value pane shows of descriptors that stand alone.

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

inline constexpr auto kShortSmoothingBufferFields = [] {
    using T = lib13818::DescriptorShortSmoothingBuffer;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"SB_SIZE",           "%d",      &T::sb_size},
         {"SB_LEAK_RATE",      "%d",      &T::sb_leak_rate},
         {"DVB_RESERVED",      kBytesRow, &T::DVB_reserved}});
}();

inline constexpr auto kPartialTransportStreamFields =
    headerFields<lib13818::DescriptorPartialTransportStream>();

inline constexpr auto kDataBroadcastFields = [] {
    using T = lib13818::DescriptorDataBroadcast;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",        "%04x",      &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",     "%d",        &T::descriptor_length},
         {"DATA_BROADCAST_ID",     "%04X - %s", &T::data_broadcast_id, lib13818::dataBroadcastName},
         {"COMPONENT_TAG",         "%d",        &T::component_tag},
         {"SELECTOR_LENGTH",       "%d",        &T::selector_length},
         {"SELECTOR_BYTES",        kBytesRow,   &T::selector_byte},
         {"ISO_639_LANGUAGE_CODE", "%s",        &T::ISO_639_language_code},
         {"TEXT_LENGTH",           "%d",        &T::text_length},
         {"TEXT",                  "%s",        &T::text}});
}();

inline constexpr auto kDataBroadcastIdFields = [] {
    using T = lib13818::DescriptorDataBroadcastId;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",      &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",        &T::descriptor_length},
         {"DATA_BROADCAST_ID", "%04X - %s", &T::data_broadcast_id, lib13818::dataBroadcastName},
         {"SELECTOR_BYTES",    kBytesRow,   &T::id_selector_byte}});
}();

inline constexpr auto kTransportStreamFields = [] {
    using T = lib13818::DescriptorTransportStream;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"BYTES",             kBytesRow, &T::byte}});
}();

inline constexpr auto kDsngFields = [] {
    using T = lib13818::DescriptorDSNG;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"BYTES",             kBytesRow, &T::byte}});
}();

inline constexpr auto kPdcFields = [] {
    using T = lib13818::DescriptorPDC;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                 "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",              "%d",      &T::descriptor_length},
         {"PROGRAMME_IDENTIFICATION_LABEL", "%d - %s", &T::programme_identification_label, +[](const T& pdc) {
              const int label = pdc.programme_identification_label;
              return formatted("%d/%d %d:%02d", label >> 15, label >> 11 & 0xF, label >> 6 & 0x1F, label & 0x3F);
          }}});
}();

inline constexpr auto kAc3Fields = [] {
    using T = lib13818::DescriptorAC3;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",      "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",   "%d",      &T::descriptor_length},
         {"COMPONENT_TYPE_FLAG", "%d",      &T::component_type_flag},
         {"BSID_FLAG",           "%d",      &T::bsid_flag},
         {"MAINID_FLAG",         "%d",      &T::mainid_flag},
         {"ASVC_FLAG",           "%d",      &T::asvc_flag},
         {"AC_3_TYPE",           "%d",      &T::component_type},
         {"BSID",                "%d",      &T::bsid},
         {"MAINID",              "%d",      &T::mainid},
         {"ASVC",                "%d",      &T::asvc},
         {"ADDITIONAL_INFO",     kBytesRow, &T::additional_info_byte}});
}();

inline constexpr auto kAncillaryDataFields = [] {
    using T = lib13818::DescriptorAncillaryData;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",            "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",         "%d",   &T::descriptor_length},
         {"ANCILLARY_DATA_IDENTIFIER", "%02X", &T::ancillary_data_identifier}});
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

inline constexpr auto kApplicationSignallingFields =
    headerFields<lib13818::DescriptorApplicationSignalling>();

inline constexpr auto kApplicationSignallingEntryFields = [] {
    using T = lib13818::DescriptorApplicationSignalling::Info;
    return fieldList<T>(
        {{"APPLICATION_TYPE",   "%d - %s", &T::application_type, &T::applicationTypeText},
         {"AIT_VERSION_NUMBER", "%d",      &T::AIT_version_number}});
}();

inline constexpr auto kAdaptationFieldDataFields = [] {
    using T = lib13818::DescriptorAdaptationFieldData;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                   "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",                "%d",   &T::descriptor_length},
         {"ADAPTATION_FIELD_DATA_IDENTIFIER", "%02X", &T::adaptation_field_data_identifier}});
}();

inline constexpr auto kServiceIdentifierFields =
    headerFields<lib13818::DescriptorServiceIdentifier>();

// clang-format on

} // namespace tessaview
