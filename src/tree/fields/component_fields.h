#pragma once

#include "si/descriptors/component_descriptors.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

// What the value pane shows of descriptors of components, their streams and their data.

namespace tessaview {

// clang-format off

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

inline constexpr auto kAdaptationFieldDataFields = [] {
    using T = lib13818::DescriptorAdaptationFieldData;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                   "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",                "%d",   &T::descriptor_length},
         {"ADAPTATION_FIELD_DATA_IDENTIFIER", "%02X", &T::adaptation_field_data_identifier}});
}();

inline constexpr auto kVbiDataFields = headerFields<lib13818::DescriptorVBIData>();

inline constexpr auto kVbiDataEntryFields = [] {
    using T = lib13818::DescriptorVBIData::VBIDataService;
    return fieldList<T>(
        {{"DATA_SERVICE_ID",                "%02X",    &T::data_service_id},
         {"DATA_SERVICE_DESCRIPTOR_LENGTH", "%d",      &T::data_service_descriptor_length},
         {"RESERVED",                       kBytesRow, &T::data_service_descriptor}});
}();

inline constexpr auto kTeletextFields = headerFields<lib13818::DescriptorTeletext>("%02x");

inline constexpr auto kTeletextEntryFields = [] {
    using T = lib13818::TeletextInfo;
    return fieldList<T>(
        {{"ISO_639_LANGUAGE_CODE",    "%s",      &T::ISO_639_language_code},
         {"TELETEXT_TYPE",            "%d : %s", &T::teletext_type, lib13818::teletextTypeText},
         {"TELETEXT_MAGAZINE_NUMBER", "%d",      &T::teletext_magazine_number},
         {"TELETEXT_PAGE_NUMBER",     "%d",      &T::teletext_page_number}});
}();

inline constexpr auto kVbiTeletextFields = headerFields<lib13818::DescriptorVBITeletext>();

inline constexpr auto kVbiTeletextEntryFields = [] {
    using T = lib13818::TeletextInfo;
    return fieldList<T>(
        {{"ISO_639_language_code",    "%s", &T::ISO_639_language_code},
         {"TELETEXT_TYPE",            "%d", &T::teletext_type},
         {"TELETEXT_MAGAZINE_NUMBER", "%d", &T::teletext_magazine_number},
         {"TELETEXT_PAGE_NUMBER",     "%d", &T::teletext_page_number}});
}();

inline constexpr auto kComponentFields = [] {
    using T = lib13818::DescriptorComponent;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",        "%02x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",     "%d",   &T::descriptor_length},
         {"STREAM_CONTENT",        "%d",   &T::stream_content},
         {"COMPONENT_TYPE",        "%d",   &T::component_type},
         {"COMPONENT_TAG",         "%d",   &T::component_tag},
         {"ISO_639_LANGUAGE_CODE", "%s",   &T::ISO_639_language_code},
         {"TEXT",                  "%s",   &T::text}});
}();

inline constexpr auto kStreamIdentifierFields = [] {
    using T = lib13818::DescriptorStreamIdentifier;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"COMPONENT_TAG",     "%d",   &T::component_tag}});
}();

inline constexpr auto kSubtitlingFields = headerFields<lib13818::DescriptorSubtitling>();

inline constexpr auto kSubtitlingEntryFields = [] {
    using T = lib13818::SubtitlingInfo;
    return fieldList<T>(
        {{"ISO_639_LANGUAGE_CODE", "%s", &T::ISO_639_language_code},
         {"SUBTITLING_TYPE",       "%d", &T::subtitling_type},
         {"COMPOSITION_PAGE_ID",   "%d", &T::composition_page_id},
         {"ANCILLARY_PAGE_ID",     "%d", &T::ancillary_page_id}});
}();

// clang-format on

} // namespace tessaview
