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
    return fieldList<T>(61248,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,FORIEGN_AVAILABILITY,CONNECTION_TYPE,COUNTRY_PREFIX_LEN,INTERNATIONAL_AREA_CODE_LENGTH,OPERATOR_CODE_LENGTH,NATIONAL_AREA_CODE_LENGTH,CORE_NUMBER_LENGTH,COUNTRY_PREIFX,INTERNATIONAL_AREA_CODE,OPERATOR_CODE,NATIONAL_AREA_CODE,CORE_NUMBER",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::foreign_availability},
         {"%d",   &T::connection_type},
         {"%d",   &T::country_prefix_length},
         {"%d",   &T::international_area_code_length},
         {"%d",   &T::operator_code_length},
         {"%d",   &T::national_area_code_length},
         {"%d",   &T::core_number_length},
         {"%s",   &T::country_prefix_char},
         {"%s",   &T::international_area_code_char},
         {"%s",   &T::operator_code_char},
         {"%s",   &T::national_area_code_char},
         {"%s",   &T::core_number_char}});
}();

inline constexpr auto kShortSmoothingBufferFields = [] {
    using T = lib13818::DescriptorShortSmoothingBuffer;
    return fieldList<T>(61259,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,SB_SIZE,SB_LEAK_RATE,DVB_RESERVED",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d",      &T::sb_size},
         {"%d",      &T::sb_leak_rate},
         {kBytesRow, &T::DVB_reserved}});
}();

inline constexpr auto kPartialTransportStreamFields =
    headerFields<lib13818::DescriptorPartialTransportStream>(61272);

inline constexpr auto kDataBroadcastFields = [] {
    using T = lib13818::DescriptorDataBroadcast;
    return fieldList<T>(61273,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,DATA_BROADCAST_ID,COMPONENT_TAG,SELECTOR_LENGTH,SELECTOR_BYTES,ISO_639_LANGUAGE_CODE,TEXT_LENGTH,TEXT",
        {{"%04x",      &T::descriptor_tag},
         {"%d",        &T::descriptor_length},
         {"%04X - %s", &T::data_broadcast_id, lib13818::dataBroadcastName},
         {"%d",        &T::component_tag},
         {"%d",        &T::selector_length},
         {kBytesRow,   &T::selector_byte},
         {"%s",        &T::ISO_639_language_code},
         {"%d",        &T::text_length},
         {"%s",        &T::text}});
}();

inline constexpr auto kDataBroadcastIdFields = [] {
    using T = lib13818::DescriptorDataBroadcastId;
    return fieldList<T>(61274,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,DATA_BROADCAST_ID,SELECTOR_BYTES",
        {{"%04x",      &T::descriptor_tag},
         {"%d",        &T::descriptor_length},
         {"%04X - %s", &T::data_broadcast_id, lib13818::dataBroadcastName},
         {kBytesRow,   &T::id_selector_byte}});
}();

inline constexpr auto kTransportStreamFields = [] {
    using T = lib13818::DescriptorTransportStream;
    return fieldList<T>(61275,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,BYTES",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {kBytesRow, &T::byte}});
}();

inline constexpr auto kDsngFields = [] {
    using T = lib13818::DescriptorDSNG;
    return fieldList<T>(61276,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,BYTES",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {kBytesRow, &T::byte}});
}();

inline constexpr auto kPdcFields = [] {
    using T = lib13818::DescriptorPDC;
    return fieldList<T>(61277,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,PROGRAMME_IDENTIFICATION_LABEL",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d - %s", &T::programme_identification_label, +[](const T& pdc) {
              const int label = pdc.programme_identification_label;
              return formatted("%d/%d %d:%02d", label >> 15, label >> 11 & 0xF, label >> 6 & 0x1F, label & 0x3F);
          }}});
}();

inline constexpr auto kAc3Fields = [] {
    using T = lib13818::DescriptorAC3;
    return fieldList<T>(61278,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,COMPONENT_TYPE_FLAG,BSID_FLAG,MAINID_FLAG,ASVC_FLAG,AC_3_TYPE,BSID,MAINID,ASVC,ADDITIONAL_INFO",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d",      &T::component_type_flag},
         {"%d",      &T::bsid_flag},
         {"%d",      &T::mainid_flag},
         {"%d",      &T::asvc_flag},
         {"%d",      &T::component_type},
         {"%d",      &T::bsid},
         {"%d",      &T::mainid},
         {"%d",      &T::asvc},
         {kBytesRow, &T::additional_info_byte}});
}();

inline constexpr auto kAncillaryDataFields = [] {
    using T = lib13818::DescriptorAncillaryData;
    return fieldList<T>(61279,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,ANCILLARY_DATA_IDENTIFIER",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%02X", &T::ancillary_data_identifier}});
}();

inline constexpr auto kAnnouncementSupportFields = [] {
    using T = lib13818::DescriptorAnnouncementSupport;
    return fieldList<T>(61282,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,ANNOUNCEMENT_SUPPORT_IDENTICATOR",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%02X", &T::announcement_support_indicator}});
}();

inline constexpr auto kAnnouncementSupportEntryFields = [] {
    using T = lib13818::DescriptorAnnouncementSupport::Info;
    return fieldList<T>(61293,
        "ANNOUNCEMENT_TYPE,REFERENCE_TYPE,ORIGINAL_NETWORK_ID,TRANSPORT_STREAM_ID,SERVICE_ID,COMPONENT_TAG",
        {{"%d",   &T::announcement_type},
         {"%02X", &T::reference_type},
         {"%04X", &T::original_network_id},
         {"%04X", &T::transport_stream_id},
         {"%04X", &T::service_id},
         {"%02X", &T::component_tag}});
}();

inline constexpr auto kApplicationSignallingFields =
    headerFields<lib13818::DescriptorApplicationSignalling>(61283);

inline constexpr auto kApplicationSignallingEntryFields = [] {
    using T = lib13818::DescriptorApplicationSignalling::Info;
    return fieldList<T>(61294,
        "APPLICATION_TYPE,AIT_VERSION_NUMBER",
        {{"%d - %s", &T::application_type, &T::applicationTypeText},
         {"%d",      &T::AIT_version_number}});
}();

inline constexpr auto kAdaptationFieldDataFields = [] {
    using T = lib13818::DescriptorAdaptationFieldData;
    return fieldList<T>(61284,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,ADAPTATION_FIELD_DATA_IDENTIFIER",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%02X", &T::adaptation_field_data_identifier}});
}();

inline constexpr auto kServiceIdentifierFields =
    headerFields<lib13818::DescriptorServiceIdentifier>(61285);

// clang-format on

} // namespace tessaview
