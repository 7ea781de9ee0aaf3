#pragma once

#include "platform/format.h"
#include "si/bat.h"
#include "si/cat.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/rst.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/texts/registries.h"
#include "si/tot.h"
#include "tree/fields/field_list.h"

// What the value pane shows of tables and their entries.

namespace tessaview {

// clang-format off

inline constexpr auto kCatFields = [] {
    using T = lib13818::Cat;
    return fieldList<T>(
        {{"TABLE ID",                 "%02x : %s", &T::table_id, &T::name},
         {"SECTION SYNTAX INDICATOR", "%d",        &T::section_syntax_indicator},
         {"SECTION LENGTH",           "%d",        &T::section_length},
         {"VERSION NUMBER",           "%d",        &T::version_number},
         {"CURRENT NEXT INDICATOR",   "%d",        &T::current_next_indicator},
         {"SECTION NUMBER",           "%d",        &T::section_number},
         {"LAST SECTION NUMBER",      "%d",        &T::last_section_number},
         {"CRC 32",                   "%08x",      &T::CRC_32}});
}();

inline constexpr auto kPmtStreamFields = [] {
    using T = lib13818::StreamInfo;
    return fieldList<T>(
        {{"STREAM TYPE",    "%02X", &T::stream_type},
         {"RESERVED",       kNotAvailable},
         {"ELEMENTARY PID", "%04X", &T::elementary_PID, kPidRow},
         {"RESERVED",       kNotAvailable},
         {"ES INFO LENGTH", "%d",   &T::ES_info_length}});
}();

inline constexpr auto kPatFields = [] {
    using T = lib13818::Pat;
    return fieldList<T>(
        {{"TABLE ID",                 "%02x : %s", &T::table_id, &T::name},
         {"SECTION SYNTAX INDICATOR", "%d",        &T::section_syntax_indicator},
         {"SECTION LENGTH",           "%d",        &T::section_length},
         {"TRANSPORT STREAM ID",      "%04X",      &T::table_id_extension},
         {"VERSION NUMBER",           "%d",        &T::version_number},
         {"CURRENT NEXT INDICATOR",   "%d",        &T::current_next_indicator},
         {"SECTION NUMBER",           "%d",        &T::section_number},
         {"LAST SECTION NUMBER",      "%d",        &T::last_section_number},
         {"CRC 32",                   "%08X",      &T::CRC_32}});
}();

inline constexpr auto kBatFields = [] {
    using T = lib13818::Bat;
    return fieldList<T>(
        {{"TABLE_ID",               "%02x : %s", &T::table_id, &T::name},
         {"SECTION_LENGTH",         "%d",        &T::section_length},
         {"BOUQUET_ID",             "%d",        &T::table_id_extension},
         {"VERSION_NUMBER",         "%d",        &T::version_number},
         {"CURRENT_NEXT_INDICATOR", "%d",        &T::current_next_indicator},
         {"SECTION_NUMBER",         "%d",        &T::section_number},
         {"CRC32",                  "%08x",      &T::CRC_32}});
}();

inline constexpr auto kNitFields = [] {
    using T = lib13818::Nit;
    return fieldList<T>(
        {{"TABLE_ID",                     "%02x : %s", &T::table_id, &T::name},
         {"SECTION_SYNTAX_INDICATOR",     "%d",        &T::section_syntax_indicator},
         {"RESERVED_FUTURE_USE",          kNotAvailable},
         {"RESERVED",                     kNotAvailable},
         {"SECTION_LENGTH",               "%d",        &T::section_length},
         {"NETWORK_ID",                   "%04x - %s", &T::table_id_extension, lib13818::originalNetworkName},
         {"RESERVED",                     kNotAvailable},
         {"VERSION_NUMBER",               "%d",        &T::version_number},
         {"CURRENT_NEXT_INDICATOR",       "%d",        &T::current_next_indicator},
         {"SECTION_NUMBER",               "%d",        &T::section_number},
         {"LAST_SECTION_NUMBER",          "%d",        &T::last_section_number},
         {"RESERVED_FUTURE_USE",          kNotAvailable},
         {"NETWORK_DESCRIPTORS_LEN",      kNotAvailable},
         {"RESERVED_FUTURE_USE",          kNotAvailable},
         {"TRANSPORT_STREAM_LOOP_LENGTH", kNotAvailable},
         {"CRC_32",                       "%08x",      &T::CRC_32}});
}();

inline constexpr auto kNitStreamFields = [] {
    using T = lib13818::TransportStreamEntry;
    return fieldList<T>(
        {{"TRANSPORT_STREAM_ID",          "%04x", &T::transport_stream_id},
         {"ORIGINAL_NETWORK_ID",          "%04x", &T::original_network_id},
         {"RESERVED_FUTURE_USE",          kNotAvailable},
         {"TRANSPORT_DESCRIPTORS_LENGTH", "%d",   &T::transport_descriptors_length}});
}();

inline constexpr auto kSdtFields = [] {
    using T = lib13818::Sdt;
    return fieldList<T>(
        {{"TABLE_ID",                 "%02x : %s", &T::table_id, &T::name},
         {"SECTION_SYNTAX_INDICATOR", "%d",        &T::section_syntax_indicator},
         {"RESERVED_FUTURE_USE",      kNotAvailable},
         {"RESERVED",                 kNotAvailable},
         {"SECTION_LENGTH",           "%d",        &T::section_length},
         {"TRANSPORT_STREAM_ID",      "%04x",      &T::table_id_extension},
         {"RESERVED",                 kNotAvailable},
         {"VERSION_NUMBER",           "%d",        &T::version_number},
         {"CURRENT_NEXT_INDICATOR",   "%d",        &T::current_next_indicator},
         {"SECTION_NUMBER",           "%d",        &T::section_number},
         {"LAST_SECTION_NUMBER",      "%d",        &T::last_section_number},
         {"ORIGINAL_NETWORK_ID",      "%04x",      &T::original_network_id},
         {"RESERVED_FUTURE_USE",      kNotAvailable},
         {"CRC_32",                   "%08x",      &T::CRC_32}});
}();

inline constexpr auto kSdtServiceFields = [] {
    using T = lib13818::SdtService;
    return fieldList<T>(
        {{"SERVICE_ID",                 "%04X", &T::service_id},
         {"RESERVED_FUTURE_USE",        kNotAvailable},
         {"EIT_SCHEDULE_FLAG",          "%d",   &T::EIT_schedule_flag},
         {"EIT_PRESENT_FOLLOWING_FLAG", "%d",   &T::EIT_present_following_flag},
         {"RUNNING_STATUS",             "%d",   &T::running_status},
         {"FREE_CA_MODE",               "%d",   &T::free_CA_mode},
         {"DESCRIPTORS_LOOP_LENGTH",    kNotAvailable}});
}();

inline constexpr auto kEitFields = [] {
    using T = lib13818::Eit;
    return fieldList<T>(
        {{"TABLE_ID",               "%02x : %s", &T::table_id, &T::name},
         {"SECTION_LENGTH",         "%d",        &T::section_length},
         {"SERVICE_ID",             "%04x",      &T::table_id_extension},
         {"VERSION_NUMBER",         "%d",        &T::version_number},
         {"CURRENT_NEXT_INDICATOR", "%d",        &T::current_next_indicator},
         {"SECTION_NUMBER",         "%d",        &T::section_number},
         {"LAST_SECTION_NUMBER",    "%d",        &T::last_section_number},
         {"TRANSPORT_STREAM_ID",    "%04x",      &T::transport_stream_id},
         {"ORIGINAL_NETWORK_ID",    "%04x",      &T::original_network_id},
         {"LAST_TABLE_ID",          "%d",        &T::last_table_id},
         {"CRC_32",                 "%08x",      &T::CRC_32}});
}();

inline constexpr auto kEitEventFields = [] {
    using T = lib13818::EitEvent;
    return fieldList<T>(
        {{"EVENT_ID",       "%04x", &T::event_id},
         {"START_TIME",     "%s",   +[](const T& event) { return timeText("%d/%d/%d %d:%02d:%02d", event.start_time); }},
         {"DURATION",       "%s",   +[](const T& event) {
              const lib13818::Duration& length = event.duration;
              return formatted("%d:%02d:%02d", length.hours, length.minutes, length.seconds);
          }},
         {"RUNNING_STATUS", "%d",   &T::running_status},
         {"FREE_CA_MODE",   "%d",   &T::free_CA_mode}});
}();

inline constexpr auto kRstFields = [] {
    using T = lib13818::Rst;
    return fieldList<T>(
        {{"TABLE_ID",       "%02x : %s", &T::table_id, &T::name},
         {"SECTION_LENGTH", "%d",        &T::section_length}});
}();

inline constexpr auto kRstEntryFields = [] {
    using T = lib13818::RunningStatusEntry;
    return fieldList<T>(
        {{"TRANSPORT_STREAM_ID", "%04x", &T::transport_stream_id},
         {"ORIGINAL_NETWORK_ID", "%04x", &T::original_network_id},
         {"SERVICE_ID",          "%04x", &T::service_id},
         {"EVENT_ID",            "%04x", &T::event_id},
         {"RUNNING_STATUS",      "%d",   &T::running_status}});
}();

inline constexpr auto kTdtFields = [] {
    using T = lib13818::Tdt;
    return fieldList<T>(
        {{"TABLE_ID",       "%02x : %s", &T::table_id, &T::name},
         {"SECTION_LENGTH", "%d",        &T::section_length},
         {"UTC_TIME",       "%s",        +[](const T& tdt) { return timeText("%d/%d/%d %d:%d:%d", tdt.UTC_time); }}});
}();

inline constexpr auto kTotFields = [] {
    using T = lib13818::Tot;
    return fieldList<T>(
        {{"TABLE_ID",       "%02x : %s", &T::table_id, &T::name},
         {"SECTION_LENGTH", "%d",        &T::section_length},
         {"UTC_TIME",       "%s",        +[](const T& tot) { return timeText("%d/%d/%d %d:%d:%d", tot.UTC_time); }},
         {"CRC_32",         "%08x",      &T::CRC_32}});
}();

inline constexpr auto kPatProgramFields = [] {
    using T = lib13818::PatProgram;
    return fieldList<T>(
        {{"PROGRAM NUMBER",  "%04X", &T::program_number},
         {"PROGRAM MAP PID", "%04X", &T::program_map_PID}});
}();

inline constexpr auto kPmtFields = [] {
    using T = lib13818::Pmt;
    return fieldList<T>(
        {{"TABLE ID",                 "%02X", &T::table_id},
         {"SECTION SYNTAX INDICATOR", "%d",   &T::section_syntax_indicator},
         {"RESERVED",                 kNotAvailable},
         {"SECTION LENGTH",           "%d",   &T::section_length},
         {"PROGRAM NUMBER",           "%04X", &T::table_id_extension},
         {"RESERVED",                 kNotAvailable},
         {"VERSION NUMBER",           "%d",   &T::version_number},
         {"CURRENT NEXT INDICATOR",   "%d",   &T::current_next_indicator},
         {"SECTION NUMBER",           "%d",   &T::section_number},
         {"LAST SECTION NUMBER",      "%d",   &T::last_section_number},
         {"RESERVED",                 kNotAvailable},
         {"PCR PID",                  "%04X", &T::PCR_PID},
         {"PROGRAM INFO LENGTH",      kNotAvailable},
         {"CRC 32",                   "%08X", &T::CRC_32}});
}();

// clang-format on

} // namespace tessaview
