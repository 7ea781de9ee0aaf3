#pragma once

#include "explorer/fields/field_list.h"
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

// What the value pane shows of tables and their entries.

namespace tessaview {

// clang-format off

inline constexpr auto kCatFields = [] {
    using T = lib13818::Cat;
    return fieldList<T>(61204,
        "TABLE ID,SECTION SYNTAX INDICATOR,SECTION LENGTH,VERSION NUMBER,CURRENT NEXT INDICATOR,SECTION NUMBER,LAST SECTION NUMBER,CRC 32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_syntax_indicator},
         {"%d",        &T::section_length},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%d",        &T::last_section_number},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kPmtStreamFields = [] {
    using T = lib13818::StreamInfo;
    return fieldList<T>(61205,
        "STREAM TYPE,RESERVED,ELEMENTARY PID,RESERVED,ES INFO LENGTH",
        {{"%02X", &T::stream_type},
         {kNotAvailable},
         {"%04X", &T::elementary_PID, kPidRow},
         {kNotAvailable},
         {"%d",   &T::ES_info_length}});
}();

inline constexpr auto kPatFields = [] {
    using T = lib13818::Pat;
    return fieldList<T>(61206,
        "TABLE ID,SECTION SYNTAX INDICATOR,SECTION LENGTH,TRANSPORT STREAM ID,VERSION NUMBER,CURRENT NEXT INDICATOR,SECTION NUMBER,LAST SECTION NUMBER,CRC 32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_syntax_indicator},
         {"%d",        &T::section_length},
         {"%04X",      &T::table_id_extension},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%d",        &T::last_section_number},
         {"%08X",      &T::CRC_32}});
}();

inline constexpr auto kBatFields = [] {
    using T = lib13818::Bat;
    return fieldList<T>(61207,
        "TABLE_ID,SECTION_LENGTH,BOUQUET_ID,VERSION_NUMBER,CURRENT_NEXT_INDICATOR,SECTION_NUMBER,CRC32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_length},
         {"%d",        &T::table_id_extension},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kNitFields = [] {
    using T = lib13818::Nit;
    return fieldList<T>(61208,
        "TABLE_ID,SECTION_SYNTAX_INDICATOR,RESERVED_FUTURE_USE,RESERVED,SECTION_LENGTH,NETWORK_ID,RESERVED,VERSION_NUMBER,CURRENT_NEXT_INDICATOR,SECTION_NUMBER,LAST_SECTION_NUMBER,RESERVED_FUTURE_USE,NETWORK_DESCRIPTORS_LEN,RESERVED_FUTURE_USE,TRANSPORT_STREAM_LOOP_LENGTH,CRC_32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_syntax_indicator},
         {kNotAvailable},
         {kNotAvailable},
         {"%d",        &T::section_length},
         {"%04x - %s", &T::table_id_extension, lib13818::originalNetworkName},
         {kNotAvailable},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%d",        &T::last_section_number},
         {kNotAvailable},
         {kNotAvailable},
         {kNotAvailable},
         {kNotAvailable},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kNitStreamFields = [] {
    using T = lib13818::TransportStreamEntry;
    return fieldList<T>(61209,
        "TRANSPORT_STREAM_ID,ORIGINAL_NETWORK_ID,RESERVED_FUTURE_USE,TRANSPORT_DESCRIPTORS_LENGTH",
        {{"%04x", &T::transport_stream_id},
         {"%04x", &T::original_network_id},
         {kNotAvailable},
         {"%d",   &T::transport_descriptors_length}});
}();

inline constexpr auto kSdtFields = [] {
    using T = lib13818::Sdt;
    return fieldList<T>(61210,
        "TABLE_ID,SECTION_SYNTAX_INDICATOR,RESERVED_FUTURE_USE,RESERVED,SECTION_LENGTH,TRANSPORT_STREAM_ID,RESERVED,VERSION_NUMBER,CURRENT_NEXT_INDICATOR,SECTION_NUMBER,LAST_SECTION_NUMBER,ORIGINAL_NETWORK_ID,RESERVED_FUTURE_USE,CRC_32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_syntax_indicator},
         {kNotAvailable},
         {kNotAvailable},
         {"%d",        &T::section_length},
         {"%04x",      &T::table_id_extension},
         {kNotAvailable},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%d",        &T::last_section_number},
         {"%04x",      &T::original_network_id},
         {kNotAvailable},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kSdtServiceFields = [] {
    using T = lib13818::SdtService;
    return fieldList<T>(61211,
        "SERVICE_ID,RESERVED_FUTURE_USE,EIT_SCHEDULE_FLAG,EIT_PRESENT_FOLLOWING_FLAG,RUNNING_STATUS,FREE_CA_MODE,DESCRIPTORS_LOOP_LENGTH",
        {{"%04X", &T::service_id},
         {kNotAvailable},
         {"%d",   &T::EIT_schedule_flag},
         {"%d",   &T::EIT_present_following_flag},
         {"%d",   &T::running_status},
         {"%d",   &T::free_CA_mode},
         {kNotAvailable}});
}();

inline constexpr auto kEitFields = [] {
    using T = lib13818::Eit;
    return fieldList<T>(61212,
        "TABLE_ID,SECTION_LENGTH,SERVICE_ID,VERSION_NUMBER,CURRENT_NEXT_INDICATOR,SECTION_NUMBER,LAST_SECTION_NUMBER,TRANSPORT_STREAM_ID,ORIGINAL_NETWORK_ID,LAST_TABLE_ID,CRC_32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_length},
         {"%04x",      &T::table_id_extension},
         {"%d",        &T::version_number},
         {"%d",        &T::current_next_indicator},
         {"%d",        &T::section_number},
         {"%d",        &T::last_section_number},
         {"%04x",      &T::transport_stream_id},
         {"%04x",      &T::original_network_id},
         {"%d",        &T::last_table_id},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kEitEventFields = [] {
    using T = lib13818::EitEvent;
    return fieldList<T>(61213,
        "EVENT_ID,START_TIME,DURATION,RUNNING_STATUS,FREE_CA_MODE",
        {{"%04x", &T::event_id},
         {"%s",   +[](const T& event) { return timeText("%d/%d/%d %d:%02d:%02d", event.start_time); }},
         {"%s",   +[](const T& event) {
              const lib13818::Duration& length = event.duration;
              return formatted("%d:%02d:%02d", length.hours, length.minutes, length.seconds);
          }},
         {"%d",   &T::running_status},
         {"%d",   &T::free_CA_mode}});
}();

inline constexpr auto kRstFields = [] {
    using T = lib13818::Rst;
    return fieldList<T>(61214,
        "TABLE_ID,SECTION_LENGTH",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_length}});
}();

inline constexpr auto kRstEntryFields = [] {
    using T = lib13818::RunningStatusEntry;
    return fieldList<T>(61215,
        "TRANSPORT_STREAM_ID,ORIGINAL_NETWORK_ID,SERVICE_ID,EVENT_ID,RUNNING_STATUS",
        {{"%04x", &T::transport_stream_id},
         {"%04x", &T::original_network_id},
         {"%04x", &T::service_id},
         {"%04x", &T::event_id},
         {"%d",   &T::running_status}});
}();

inline constexpr auto kTdtFields = [] {
    using T = lib13818::Tdt;
    return fieldList<T>(61216,
        "TABLE_ID,SECTION_LENGTH,UTC_TIME",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_length},
         {"%s",        +[](const T& tdt) { return timeText("%d/%d/%d %d:%d:%d", tdt.UTC_time); }}});
}();

inline constexpr auto kTotFields = [] {
    using T = lib13818::Tot;
    return fieldList<T>(61217,
        "TABLE_ID,SECTION_LENGTH,UTC_TIME,CRC_32",
        {{"%02x : %s", &T::table_id, &T::name},
         {"%d",        &T::section_length},
         {"%s",        +[](const T& tot) { return timeText("%d/%d/%d %d:%d:%d", tot.UTC_time); }},
         {"%08x",      &T::CRC_32}});
}();

inline constexpr auto kPatProgramFields = [] {
    using T = lib13818::PatProgram;
    return fieldList<T>(61261,
        "PROGRAM NUMBER,PROGRAM MAP PID",
        {{"%04X", &T::program_number},
         {"%04X", &T::program_map_PID}});
}();

inline constexpr auto kPmtFields = [] {
    using T = lib13818::Pmt;
    return fieldList<T>(61266,
        "TABLE ID,SECTION SYNTAX INDICATOR,RESERVED,SECTION LENGTH,PROGRAM NUMBER,RESERVED,VERSION NUMBER,CURRENT NEXT INDICATOR,SECTION NUMBER,LAST SECTION NUMBER,RESERVED,PCR PID,PROGRAM INFO LENGTH,CRC 32",
        {{"%02X", &T::table_id},
         {"%d",   &T::section_syntax_indicator},
         {kNotAvailable},
         {"%d",   &T::section_length},
         {"%04X", &T::table_id_extension},
         {kNotAvailable},
         {"%d",   &T::version_number},
         {"%d",   &T::current_next_indicator},
         {"%d",   &T::section_number},
         {"%d",   &T::last_section_number},
         {kNotAvailable},
         {"%04X", &T::PCR_PID},
         {kNotAvailable},
         {"%08X", &T::CRC_32}});
}();

// clang-format on

} // namespace tessaview
