#pragma once

#include "si/descriptors/transport_descriptors.h"
#include "tree/fields/field_list.h"

// What the value pane shows of descriptors of transport streams.

namespace tessaview {

// clang-format off

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

// clang-format on

} // namespace tessaview
