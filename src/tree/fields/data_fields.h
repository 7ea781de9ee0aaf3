#pragma once

#include "si/descriptors/data_descriptors.h"
#include "si/texts/registries.h"
#include "tree/fields/field_list.h"

// What the value pane shows of descriptors of data broadcasts and applications.

namespace tessaview {

// clang-format off

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

inline constexpr auto kApplicationSignallingFields =
    headerFields<lib13818::DescriptorApplicationSignalling>();

inline constexpr auto kApplicationSignallingEntryFields = [] {
    using T = lib13818::DescriptorApplicationSignalling::Info;
    return fieldList<T>(
        {{"APPLICATION_TYPE",   "%d - %s", &T::application_type, &T::applicationTypeText},
         {"AIT_VERSION_NUMBER", "%d",      &T::AIT_version_number}});
}();

// clang-format on

} // namespace tessaview
