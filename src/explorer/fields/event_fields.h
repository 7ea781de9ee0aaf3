#pragma once

#include "explorer/fields/header_fields.h"
#include "si/descriptors/component_descriptors.h"
#include "si/descriptors/event_descriptors.h"
#include "si/texts/value_texts.h"

// What the value pane shows of descriptors of events and of components.

namespace tessaview {

// clang-format off

inline constexpr auto kNvodReferenceFields = headerFields<lib13818::DescriptorNVODReference>();

inline constexpr auto kNvodReferenceEntryFields = [] {
    using T = lib13818::DescriptorNVODReference::service;
    return fieldList<T>(
        {{"TRANSPORT_STREAM_ID", "%04X", &T::transport_stream_id},
         {"ORIGINAL_NETWORK_ID", "%04X", &T::original_network_id},
         {"SERVICE_ID",          "%04X", &T::service_id}});
}();

inline constexpr auto kTimeShiftedServiceFields = [] {
    using T = lib13818::DescriptorTimeShiftedService;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",       "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",    "%d",   &T::descriptor_length},
         {"REFERENCE_SERVICE_ID", "%04X", &T::reference_service_id}});
}();

inline constexpr auto kShortEventFields = [] {
    using T = lib13818::DescriptorShortEvent;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",        "%02x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",     "%d",   &T::descriptor_length},
         {"ISO_639_LANGUAGE_CODE", "%s",   &T::ISO_639_language_code},
         {"EVENT_NAME",            "%s",   &T::event_name},
         {"EVENT_TEXT",            "%s",   &T::text}});
}();

inline constexpr auto kExtendedEventFields = [] {
    using T = lib13818::DescriptorExtendedEvent;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",        "%02x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",     "%d",   &T::descriptor_length},
         {"DESCRIPTOR_NUMBER",     "%d",   &T::descriptor_number},
         {"ISO_639_LANGUAGE_CODE", "%s",   &T::ISO_639_language_code},
         {"TEXT",                  "%s",   &T::text}});
}();

inline constexpr auto kTimeShiftedEventFields = [] {
    using T = lib13818::DescriptorTimeShiftedEvent;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",       "%02x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",    "%d",   &T::descriptor_length},
         {"REFERENCE_SERVICE_ID", "%d",   &T::reference_service_id},
         {"REFERENCE_EVENT_ID",   "%d",   &T::reference_event_id}});
}();

inline constexpr auto kContentFields = headerFields<lib13818::DescriptorContent>();

inline constexpr auto kContentEntryFields = [] {
    using T = lib13818::DescriptorContent::Info;
    return fieldList<T>(
        {{"CONTENT_NIBBLE_LEVEL_1", "%d - %s", &T::content_nibble_level1, lib13818::contentNibble1Text},
         {"CONTENT_NIBBLE_LEVEL_2", "%d - %s", &T::content_nibble_level2, +[](const T& content) -> std::string {
              return lib13818::contentGenreText(content.content_nibble_level1, content.content_nibble_level2);
          }},
         {"USER_NIBBLE1",           "%d",      &T::user_nibble1},
         {"USER_NIBBLE2",           "%d",      &T::user_nibble2}});
}();

inline constexpr auto kParentalRatingFields = headerFields<lib13818::DescriptorParentalRating>();

inline constexpr auto kParentalRatingEntryFields = [] {
    using T = lib13818::DescriptorParentalRating::RatingInfo;
    return fieldList<T>(
        {{"COUNTRY_CODE", "%s", &T::country_code},
         {"RATING",       "%d", &T::rating}});
}();

inline constexpr auto kLocalTimeOffsetFields = headerFields<lib13818::DescriptorLocalTimeOffset>();

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
