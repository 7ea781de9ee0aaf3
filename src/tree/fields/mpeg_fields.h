#pragma once

#include "si/descriptors/mpeg_descriptors.h"
#include "si/texts/registries.h"
#include "si/texts/value_texts.h"
#include "tree/fields/field_list.h"

// What the value pane shows of the descriptors of ISO/IEC 13818-1 and of raw ones.

namespace tessaview {

// clang-format off

inline constexpr auto kVideoStreamFields = [] {
    using T = lib13818::DescriptorVideoStream;
    return fieldList<T>(
        {{"MULTIPLE FRAME RATE",          "%d", &T::multiple_frame_rate_flag},
         {"FRAME RATE CODE",              "%d", &T::frame_rate_code},
         {"MPEG 1 ONLY",                  "%d", &T::MPEG_1_only_flag},
         {"CONSTRAINED PARAMETER FLAG",   "%d", &T::constrained_parameter_flag},
         {"STILL PICTURE",                "%d", &T::still_picture_flag},
         {"PROFILE AND LEVEL INDICATION", "%d", &T::profile_and_level_indication},
         {"CHROMA FORMAT",                "%d", &T::chroma_format},
         {"FRAME RATE EXTENSION",         "%d", &T::frame_rate_extension_flag},
         {"RESERCED",                     kNotAvailable}});
}();

inline constexpr auto kAudioStreamFields = [] {
    using T = lib13818::DescriptorAudioStream;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",             "%d",   &T::descriptor_length},
         {"FREE_FORMAT_FLAG",              "%d",   &T::free_format_flag},
         {"ID",                            "%d",   &T::ID},
         {"LAYER",                         "%d",   &T::layer},
         {"VARIABLE_RATE_AUDIO_INDICATOR", "%d",   &T::variable_rate_audio_indicator}});
}();

inline constexpr auto kHierarchyFields = [] {
    using T = lib13818::DescriptorHierarchy;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                 "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",              "%d",      &T::descriptor_length},
         {"HIERARCHY_TYPE",                 "%d - %s", &T::hierarchy_type, lib13818::hierarchyTypeText},
         {"HIERARCHY_LAYER_INDEX",          "%d",      &T::hierarchy_layer_index},
         {"HIERARCHY_EMBEDDED_LAYER_INDEX", "%d",      &T::hierarchy_embedded_layer_index},
         {"HIERARCHY_CHANNEL",              "%d",      &T::hierarchy_channel}});
}();

inline constexpr auto kRegistrationFields = [] {
    using T = lib13818::DescriptorRegistration;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                 "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",              "%d",      &T::descriptor_length},
         {"FORMAT_IDENTIFIER",              "%d",      &T::format_identifier},
         {"ADDITIONAL_IDENTIFICATION_INFO", kBytesRow, &T::additional_identification_info}});
}();

inline constexpr auto kDataStreamAlignmentFields = [] {
    using T = lib13818::DescriptorDataStreamAlignment;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",      &T::descriptor_length},
         {"ALIGNMENT_TYPE",    "%d - %s", &T::alignment_type, lib13818::alignmentTypeText}});
}();

inline constexpr auto kTargetBackgroundGridFields = [] {
    using T = lib13818::DescriptorTargetBackgroundGrid;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",           "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",        "%d",   &T::descriptor_length},
         {"HORIZONTAL_SIZE",          "%d",   &T::horizontal_size},
         {"VERTICAL_SIZE",            "%d",   &T::vertical_size},
         {"ASPECT_RATIO_INFORMATION", "%d",   &T::aspect_ratio_information}});
}();

inline constexpr auto kVideoWindowFields = [] {
    using T = lib13818::DescriptorVideoWindow;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"HORIZONTAL_OFFSET", "%d",   &T::horizontal_offset},
         {"VERTICAL_OFFSET",   "%d",   &T::vertical_offset},
         {"WINDOW_PRIORITY",   "%d",   &T::window_priority}});
}();

inline constexpr auto kCaFields = [] {
    using T = lib13818::DescriptorCA;
    return fieldList<T>(
        {{"DESCRIPTOR TAG",    "%04X",      &T::descriptor_tag},
         {"DESCRIPTOR LENGTH", "%d",        &T::descriptor_length},
         {"SYS_ID",            "%04X - %s", &T::CA_system_id, lib13818::caSystemName},
         {"PID",               "%04X",      &T::CA_PID, kPidRow},
         {"PRIVATE BYTES",     kBytesRow,   &T::private_data_byte}});
}();

inline constexpr auto kIso639LanguageFields = [] {
    using T = lib13818::DescriptorISO639Language;
    return fieldList<T>(
        {{"DESCRIPTOR TAG",    "%04X", &T::descriptor_tag},
         {"DESCRIPTOR LENGTH", "%d",   &T::descriptor_length}});
}();

inline constexpr auto kIso639LanguageEntryFields = [] {
    using T = lib13818::DescriptorISO639Language::Info;
    return fieldList<T>(
        {{"ISO 639 LANGUAGE CODE", "%s", &T::ISO_639_language_code},
         {"AUDIO TYPE",            "%d", &T::audio_type}});
}();

inline constexpr auto kSystemClockFields = [] {
    using T = lib13818::DescriptorSystemClock;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",                     "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",                  "%d",   &T::descriptor_length},
         {"EXTERNAL_CLOCK_REFERENCE_INDICATOR", "%d",   &T::external_clock_reference_indicator},
         {"CLOCK_ACCURACY_INTEGER",             "%d",   &T::clock_accuracy_integer},
         {"CLOCK_ACCURACY_EXPONENT",            "%d",   &T::clock_accuracy_exponent}});
}();

inline constexpr auto kMultiplexBufferUtilizationFields = [] {
    using T = lib13818::DescriptorMultiplexBufferUtilization;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",         "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",      "%d",   &T::descriptor_length},
         {"BOUND_VALID_FLAG",       "%d",   &T::bound_valid_flag},
         {"LTW_OFFSET_LOWER_BOUND", "%d",   &T::LTW_offset_lower_bound},
         {"LTW_OFFSET_UPPER_BOUND", "%d",   &T::LTW_offset_upper_bound}});
}();

inline constexpr auto kCopyrightFields = [] {
    using T = lib13818::DescriptorCopyright;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",            "%04x",    &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",         "%d",      &T::descriptor_length},
         {"COPYRIGHT_IDENTIFIER",      "%d",      &T::copyright_identifier},
         {"ADDITIONAL_COPYRIGHT_INFO", kBytesRow, &T::additional_copyright_info}});
}();

inline constexpr auto kMaximumBitrateFields = [] {
    using T = lib13818::DescriptorMaximumBitrate;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"MAXIMUM_BITRATE",   "%d",   &T::maximum_bitrate}});
}();

inline constexpr auto kPrivateDataIndicatorFields = [] {
    using T = lib13818::DescriptorPrivateDataIndicator;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",         "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",      "%d",   &T::descriptor_length},
         {"PRIVATE_DATA_INDICATOR", "%d",   &T::private_data_indicator}});
}();

inline constexpr auto kSmoothingBufferFields = [] {
    using T = lib13818::DescriptorSmoothingBuffer;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"SB_LEAK_RATE",      "%d",   &T::sb_leak_rate},
         {"SB_SIZE",           "%d",   &T::sb_size}});
}();

inline constexpr auto kStdFields = [] {
    using T = lib13818::DescriptorSTD;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",    "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH", "%d",   &T::descriptor_length},
         {"LEAK_VALID_FLAG",   "%d",   &T::leak_valid_flag}});
}();

inline constexpr auto kIbpFields = [] {
    using T = lib13818::DescriptorIBP;
    return fieldList<T>(
        {{"DESCRIPTOR_TAG",     "%04x", &T::descriptor_tag},
         {"DESCRIPTOR_LENGTH",  "%d",   &T::descriptor_length},
         {"CLOSED_GOP_FLAG",    "%d",   &T::closed_gop_flag},
         {"IDENTICAL_GOP_FLAG", "%d",   &T::identical_gop_flag},
         {"MAX_GOP_LENGTH",     "%d",   &T::max_gop_length}});
}();

inline constexpr auto kUserPrivateFields = [] {
    using T = lib13818::DescriptorUserPrivate;
    return fieldList<T>(
        {{"DESCRIPTOR TAG",    "%04X",    &T::descriptor_tag},
         {"DESCRIPTOR LENGTH", "%d",      &T::descriptor_length},
         {"PRIVATE DATA",      kBytesRow, &T::data}});
}();

// clang-format on

} // namespace tessaview
