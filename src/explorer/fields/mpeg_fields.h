#pragma once

#include "explorer/fields/header_fields.h"
#include "si/descriptors/mpeg_descriptors.h"
#include "si/texts/registries.h"
#include "si/texts/value_texts.h"

// What the value pane shows of the descriptors of ISO/IEC 13818-1 and of raw ones.

namespace tessaview {

// clang-format off

inline constexpr auto kVideoStreamFields = [] {
    using T = lib13818::DescriptorVideoStream;
    return fieldList<T>(61260,
        "MULTIPLE FRAME RATE,FRAME RATE CODE,MPEG 1 ONLY,CONSTRAINED PARAMETER FLAG,STILL PICTURE,PROFILE AND LEVEL INDICATION,CHROMA FORMAT,FRAME RATE EXTENSION,RESERCED",
        {{"%d", &T::multiple_frame_rate_flag},
         {"%d", &T::frame_rate_code},
         {"%d", &T::MPEG_1_only_flag},
         {"%d", &T::constrained_parameter_flag},
         {"%d", &T::still_picture_flag},
         {"%d", &T::profile_and_level_indication},
         {"%d", &T::chroma_format},
         {"%d", &T::frame_rate_extension_flag},
         {kNotAvailable}});
}();

inline constexpr auto kAudioStreamFields = [] {
    using T = lib13818::DescriptorAudioStream;
    return fieldList<T>(61233,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,FREE_FORMAT_FLAG,ID,LAYER,VARIABLE_RATE_AUDIO_INDICATOR",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::free_format_flag},
         {"%d",   &T::ID},
         {"%d",   &T::layer},
         {"%d",   &T::variable_rate_audio_indicator}});
}();

inline constexpr auto kHierarchyFields = [] {
    using T = lib13818::DescriptorHierarchy;
    return fieldList<T>(61299,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,HIERARCHY_TYPE,HIERARCHY_LAYER_INDEX,HIERARCHY_EMBEDDED_LAYER_INDEX,HIERARCHY_CHANNEL",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d - %s", &T::hierarchy_type, lib13818::hierarchyTypeText},
         {"%d",      &T::hierarchy_layer_index},
         {"%d",      &T::hierarchy_embedded_layer_index},
         {"%d",      &T::hierarchy_channel}});
}();

inline constexpr auto kRegistrationFields = [] {
    using T = lib13818::DescriptorRegistration;
    return fieldList<T>(61300,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,FORMAT_IDENTIFIER,ADDITIONAL_IDENTIFICATION_INFO",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d",      &T::format_identifier},
         {kBytesRow, &T::additional_identification_info}});
}();

inline constexpr auto kDataStreamAlignmentFields = [] {
    using T = lib13818::DescriptorDataStreamAlignment;
    return fieldList<T>(61301,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,ALIGNMENT_TYPE",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d - %s", &T::alignment_type, lib13818::alignmentTypeText}});
}();

inline constexpr auto kTargetBackgroundGridFields = [] {
    using T = lib13818::DescriptorTargetBackgroundGrid;
    return fieldList<T>(61302,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,HORIZONTAL_SIZE,VERTICAL_SIZE,ASPECT_RATIO_INFORMATION",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::horizontal_size},
         {"%d",   &T::vertical_size},
         {"%d",   &T::aspect_ratio_information}});
}();

inline constexpr auto kVideoWindowFields = [] {
    using T = lib13818::DescriptorVideoWindow;
    return fieldList<T>(61303,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,HORIZONTAL_OFFSET,VERTICAL_OFFSET,WINDOW_PRIORITY",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::horizontal_offset},
         {"%d",   &T::vertical_offset},
         {"%d",   &T::window_priority}});
}();

inline constexpr auto kCaFields = [] {
    using T = lib13818::DescriptorCA;
    return fieldList<T>(61262,
        "DESCRIPTOR TAG,DESCRIPTOR LENGTH,SYS_ID,PID,PRIVATE BYTES",
        {{"%04X",      &T::descriptor_tag},
         {"%d",        &T::descriptor_length},
         {"%04X - %s", &T::CA_system_id, lib13818::caSystemName},
         {"%04X",      &T::CA_PID, kPidRow},
         {kBytesRow,   &T::private_data_byte}});
}();

inline constexpr auto kIso639LanguageFields = [] {
    using T = lib13818::DescriptorISO639Language;
    return fieldList<T>(61264,
        "DESCRIPTOR TAG,DESCRIPTOR LENGTH",
        {{"%04X", &T::descriptor_tag},
         {"%d",   &T::descriptor_length}});
}();

inline constexpr auto kIso639LanguageEntryFields = [] {
    using T = lib13818::DescriptorISO639Language::Info;
    return fieldList<T>(61265,
        "ISO 639 LANGUAGE CODE,AUDIO TYPE",
        {{"%s", &T::ISO_639_language_code},
         {"%d", &T::audio_type}});
}();

inline constexpr auto kSystemClockFields = [] {
    using T = lib13818::DescriptorSystemClock;
    return fieldList<T>(61304,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,EXTERNAL_CLOCK_REFERENCE_INDICATOR,CLOCK_ACCURACY_INTEGER,CLOCK_ACCURACY_EXPONENT",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::external_clock_reference_indicator},
         {"%d",   &T::clock_accuracy_integer},
         {"%d",   &T::clock_accuracy_exponent}});
}();

inline constexpr auto kMultiplexBufferUtilizationFields = [] {
    using T = lib13818::DescriptorMultiplexBufferUtilization;
    return fieldList<T>(61305,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,BOUND_VALID_FLAG,LTW_OFFSET_LOWER_BOUND,LTW_OFFSET_UPPER_BOUND",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::bound_valid_flag},
         {"%d",   &T::LTW_offset_lower_bound},
         {"%d",   &T::LTW_offset_upper_bound}});
}();

inline constexpr auto kCopyrightFields = [] {
    using T = lib13818::DescriptorCopyright;
    return fieldList<T>(61230,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,COPYRIGHT_IDENTIFIER,ADDITIONAL_COPYRIGHT_INFO",
        {{"%04x",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {"%d",      &T::copyright_identifier},
         {kBytesRow, &T::additional_copyright_info}});
}();

inline constexpr auto kMaximumBitrateFields = [] {
    using T = lib13818::DescriptorMaximumBitrate;
    return fieldList<T>(61306,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,MAXIMUM_BITRATE",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::maximum_bitrate}});
}();

inline constexpr auto kPrivateDataIndicatorFields = [] {
    using T = lib13818::DescriptorPrivateDataIndicator;
    return fieldList<T>(61235,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,PRIVATE_DATA_INDICATOR",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::private_data_indicator}});
}();

inline constexpr auto kSmoothingBufferFields = [] {
    using T = lib13818::DescriptorSmoothingBuffer;
    return fieldList<T>(61307,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,SB_LEAK_RATE,SB_SIZE",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::sb_leak_rate},
         {"%d",   &T::sb_size}});
}();

inline constexpr auto kStdFields = [] {
    using T = lib13818::DescriptorSTD;
    return fieldList<T>(61234,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,LEAK_VALID_FLAG",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::leak_valid_flag}});
}();

inline constexpr auto kIbpFields = [] {
    using T = lib13818::DescriptorIBP;
    return fieldList<T>(61308,
        "DESCRIPTOR_TAG,DESCRIPTOR_LENGTH,CLOSED_GOP_FLAG,IDENTICAL_GOP_FLAG,MAX_GOP_LENGTH",
        {{"%04x", &T::descriptor_tag},
         {"%d",   &T::descriptor_length},
         {"%d",   &T::closed_gop_flag},
         {"%d",   &T::identical_gop_flag},
         {"%d",   &T::max_gop_length}});
}();

inline constexpr auto kUserPrivateFields = [] {
    using T = lib13818::DescriptorUserPrivate;
    return fieldList<T>(61263,
        "DESCRIPTOR TAG,DESCRIPTOR LENGTH,PRIVATE DATA",
        {{"%04X",    &T::descriptor_tag},
         {"%d",      &T::descriptor_length},
         {kBytesRow, &T::data}});
}();

// clang-format on

} // namespace tessaview
