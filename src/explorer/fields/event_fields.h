#pragma once

#include "explorer/fields/header_fields.h"
#include "si/descriptors/component_descriptors.h"
#include "si/descriptors/event_descriptors.h"
#include "si/texts/value_texts.h"

// What the value pane shows of descriptors of events and of components.

namespace tessaview {

// clang-format off

inline constexpr auto kNvodReferenceFields = headerFields<lib13818::DescriptorNVODReference>(61242);

inline constexpr auto kNvodReferenceEntryFields = [] {
    using T = lib13818::DescriptorNVODReference::service;
    return fieldList<T>(61243,
        "TRANSPORT_STREAM_ID,ORIGINAL_NETWORK_ID,SERVICE_ID",
        {{"%04X", &T::transport_stream_id},
         {"%04X", &T::original_network_id},
         {"%04X", &T::service_id}});
}();

inline constexpr auto kTimeShiftedServiceFields = [] {
    using T = lib13818::DescriptorTimeShiftedService;
    return fieldList<T>(61244,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,REFERENCE_SERVICE_ID",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%04X", &T::reference_service_id}});
}();

inline constexpr auto kShortEventFields = [] {
    using T = lib13818::DescriptorShortEvent;
    return fieldList<T>(61226,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,ISO_639_LANGUAGE_CODE,EVENT_NAME,EVENT_TEXT",
        {{"%02x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%s",   &T::ISO_639_language_code},
         {"%s",   &T::event_name},
         {"%s",   &T::text}});
}();

inline constexpr auto kExtendedEventFields = [] {
    using T = lib13818::DescriptorExtendedEvent;
    return fieldList<T>(61224,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,DESCRIPTOR_NUMBER,ISO_639_LANGUAGE_CODE,TEXT",
        {{"%02x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::descriptor_number},
         {"%s",   &T::ISO_639_language_code},
         {"%s",   &T::text}});
}();

inline constexpr auto kTimeShiftedEventFields = [] {
    using T = lib13818::DescriptorTimeShiftedEvent;
    return fieldList<T>(61227,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,REFERENCE_SERVICE_ID,REFERENCE_EVENT_ID",
        {{"%02x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::reference_service_id},
         {"%d",   &T::reference_event_id}});
}();

inline constexpr auto kContentFields = headerFields<lib13818::DescriptorContent>(61220);

inline constexpr auto kContentEntryFields = [] {
    using T = lib13818::DescriptorContent::Info;
    return fieldList<T>(61228,
        "CONTENT_NIBBLE_LEVEL_1,CONTENT_NIBBLE_LEVEL_2,USER_NIBBLE1,USER_NIBBLE2",
        {{"%d - %s", &T::content_nibble_level1, lib13818::contentNibble1Text},
         {"%d - %s", &T::content_nibble_level2, +[](const T& content) -> std::string {
              return lib13818::contentGenreText(content.content_nibble_level1, content.content_nibble_level2);
          }},
         {"%d",      &T::user_nibble1},
         {"%d",      &T::user_nibble2}});
}();

inline constexpr auto kParentalRatingFields = headerFields<lib13818::DescriptorParentalRating>(61246);

inline constexpr auto kParentalRatingEntryFields = [] {
    using T = lib13818::DescriptorParentalRating::RatingInfo;
    return fieldList<T>(61247,
        "COUNTRY_CODE,RATING",
        {{"%s", &T::country_code},
         {"%d", &T::rating}});
}();

inline constexpr auto kLocalTimeOffsetFields = headerFields<lib13818::DescriptorLocalTimeOffset>(61220);

inline constexpr auto kVbiDataFields = headerFields<lib13818::DescriptorVBIData>(61268);

inline constexpr auto kVbiDataEntryFields = [] {
    using T = lib13818::DescriptorVBIData::VBIDataService;
    return fieldList<T>(61287,
        "DATA_SERVICE_ID,DATA_SERVICE_DESCRIPTOR_LENGTH,RESERVED",
        {{"%02X",    &T::data_service_id},
         {"%d",      &T::data_service_descriptor_length},
         {kBytesRow, &T::data_service_descriptor}});
}();

inline constexpr auto kTeletextFields = headerFields<lib13818::DescriptorTeletext>(61220, "%02x");

inline constexpr auto kTeletextEntryFields = [] {
    using T = lib13818::TeletextInfo;
    return fieldList<T>(61222,
        "ISO_639_LANGUAGE_CODE,TELETEXT_TYPE,TELETEXT_MAGAZINE_NUMBER,TELETEXT_PAGE_NUMBER",
        {{"%s",      &T::ISO_639_language_code},
         {"%d : %s", &T::teletext_type, lib13818::teletextTypeText},
         {"%d",      &T::teletext_magazine_number},
         {"%d",      &T::teletext_page_number}});
}();

inline constexpr auto kVbiTeletextFields = headerFields<lib13818::DescriptorVBITeletext>(61269);

inline constexpr auto kVbiTeletextEntryFields = [] {
    using T = lib13818::TeletextInfo;
    return fieldList<T>(61288,
        "ISO_639_language_code,TELETEXT_TYPE,TELETEXT_MAGAZINE_NUMBER,TELETEXT_PAGE_NUMBER",
        {{"%s", &T::ISO_639_language_code},
         {"%d", &T::teletext_type},
         {"%d", &T::teletext_magazine_number},
         {"%d", &T::teletext_page_number}});
}();

inline constexpr auto kComponentFields = [] {
    using T = lib13818::DescriptorComponent;
    return fieldList<T>(61223,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,STREAM_CONTENT,COMPONENT_TYPE,COMPONENT_TAG,ISO_639_LANGUAGE_CODE,TEXT",
        {{"%02x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::stream_content},
         {"%d",   &T::component_type},
         {"%d",   &T::component_tag},
         {"%s",   &T::ISO_639_language_code},
         {"%s",   &T::text}});
}();

inline constexpr auto kStreamIdentifierFields = [] {
    using T = lib13818::DescriptorStreamIdentifier;
    return fieldList<T>(61236,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,COMPONENT_TAG",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::component_tag}});
}();

inline constexpr auto kSubtitlingFields = headerFields<lib13818::DescriptorSubtitling>(61249);

inline constexpr auto kSubtitlingEntryFields = [] {
    using T = lib13818::SubtitlingInfo;
    return fieldList<T>(61250,
        "ISO_639_LANGUAGE_CODE,SUBTITLING_TYPE,COMPOSITION_PAGE_ID,ANCILLARY_PAGE_ID",
        {{"%s", &T::ISO_639_language_code},
         {"%d", &T::subtitling_type},
         {"%d", &T::composition_page_id},
         {"%d", &T::ancillary_page_id}});
}();

// clang-format on

} // namespace tessaview
