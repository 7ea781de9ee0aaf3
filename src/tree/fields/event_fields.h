#pragma once

#include "platform/format.h"
#include "si/descriptors/event_descriptors.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

#include <string>

// What the value pane shows of descriptors of events.

namespace tessaview {

// clang-format off

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

// clang-format on

} // namespace tessaview
