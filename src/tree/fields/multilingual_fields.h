#pragma once

#include "si/descriptors/multilingual_descriptors.h"
#include "tree/fields/field_list.h"

// What the value pane shows of names in several languages.

namespace tessaview {

// clang-format off

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

// clang-format on

} // namespace tessaview
