#include "si/bat.h"
#include "si/cat.h"
#include "si/eit.h"
#include "si/nit.h"
#include "si/pat.h"
#include "si/pmt.h"
#include "si/rst.h"
#include "si/sdt.h"
#include "si/tdt.h"
#include "si/tot.h"
#include "tests/support/section_cases.h"

#include <iomanip>

using namespace lib13818;
using test::dumpOfTable;
using test::expectFailures;
using test::failureOf;
using test::parsed;
using test::parsedBody;

TEST(Pat, listsProgramsAndTheNetworkPid)
{
    const auto pat = parsedBody<Pat>(0x00, "00 00 E0 10 FF FF FF FF");
    ASSERT_EQ(pat.programs.size(), 2U);
    EXPECT_EQ(pat.programs[0].program_map_PID, 0x10);
    EXPECT_EQ(pat.programs[1].program_number, 0xFFFF);
    EXPECT_EQ(pat.programs[1].program_map_PID, 0x1FFF);
    EXPECT_EQ(dumpOfTable(pat), "program_number:    0\nprogram_map_pid:   10\n"
                                "program_number: ffff\nprogram_map_pid: 1fff\n");
    expectFailures<Pat>(0x00, {{"", ""}, {"00", "3: Pat parse error"}});
}

TEST(Cat, takesCaDescriptorsOnly)
{
    const auto cat = parsedBody<Cat>(0x01, "09 04 01 00 E1 00");
    EXPECT_EQ(cat.descriptors.all<DescriptorCA>().front().CA_PID, 0x100);
    expectFailures<Cat>(0x01, {{"0A 04 01 00 E1 00", "-1: invalid descriptor tag"},
                               {"0A 05 01 00 E1 00", "-1: invalid descriptor size"},
                               {"09 04 01 00 E1 00 09", "-1: invalid descriptor size"}});
}

TEST(Pmt, readsProgramInfoAndStreams)
{
    const auto pmt = parsedBody<Pmt>(
        0x02, "FF FF F0 06 09 04 0B 00 FF FF 1B FF FF F0 03 52 01 FF 03 E1 00 F0 00");
    EXPECT_EQ(pmt.PCR_PID, 0x1FFF);
    EXPECT_EQ(pmt.descriptors.all<DescriptorCA>().front().CA_PID, 0x1FFF);
    ASSERT_EQ(pmt.streams.size(), 2U);
    EXPECT_EQ(pmt.streams[0].elementary_PID, 0x1FFF);
    EXPECT_EQ(pmt.streams[0].ES_info_length, 3);
    EXPECT_EQ(pmt.streams[0].descriptors.all<DescriptorStreamIdentifier>().size(), 1U);
    EXPECT_EQ(pmt.streams[1].stream_type, 3);
}

TEST(Pmt, reportsLoopsThatDoNotFit)
{
    expectFailures<Pmt>(0x02, {{"E1 00 F0 00 02 E1 00 F0 01", "-1: descriptor start end mismatch"},
                               {"E1 00 F0 00 02 E1 00 F0", "-1: too little data"},
                               {"E1 00 F0 03 52 02 01", "-1: descriptor start end mismatch"},
                               {"E1 00 F0 01", "-1: too little data"},
                               {"E1 00 F0", "-1: too little data"},
                               // An entry's own loop may end raggedly.
                               {"E1 00 F0 00 02 E1 00 F0 02 52 09", ""}});
}

TEST(Pmt, dumpsInItsOwnFormatAndPutsTheStreamsBack)
{
    const auto pmt = parsedBody<Pmt>(0x02, "E0 AB F0 02 11 00 02 E1 0C F0 05 52 01 0B 0A 00");
    std::ostringstream out;
    out << std::dec << std::setw(7);
    pmt.dump(out);
    out << 10;
    const std::string crc = out.str().substr(out.str().find("crc32"), 16);
    EXPECT_EQ(out.str(), "program_number: 1234\nversion_number: 00\nsection_number: 00\n"
                         "last_section_number: 00\ncurrent_next_indicator: 01\npcr_pid: AB\n"
                         "descriptor_tag: 11 STD_descriptor\nleak_valid_flag: 0\n"
                         "Dumping 1 stream infos\nstream_type: 02\nelementary_PID: 010C\n"
                         "descriptor_tag: 0A ISO_639_language_descriptor\n"
                         "descriptor_tag: 52 stream_identifier_descriptor\ncomponent_tag: B\n" +
                             crc + "0000010");
}

TEST(Nit, sortsCaDescriptorsOutOfTheFirstLoop)
{
    const auto nit = parsedBody<Nit>(
        0x41, "F0 0B 40 03 41 42 43 09 04 17 02 E1 00 F0 0B FF FE FF FD F0 05 41 03 FF FF 01");
    EXPECT_STREQ(nit.name(), "network_information_section - other_transport_network");
    EXPECT_EQ(nit.descriptors.all<DescriptorNetworkName>().front().network_name, "ABC");
    EXPECT_TRUE(nit.descriptors.all<DescriptorCA>().empty());
    ASSERT_EQ(nit.caDescriptors.size(), 1U);
    EXPECT_EQ(nit.caDescriptors[0].CA_system_id, 0x1702);
    ASSERT_EQ(nit.transportStreams.size(), 1U);
    EXPECT_EQ(nit.transportStreams[0].transport_stream_id, 0xFFFE);
    EXPECT_EQ(nit.transportStreams[0].original_network_id, 0xFFFD);
    EXPECT_EQ(dumpOfTable(nit), "stream_id 65534\noriginal_network_id 65533\n"
                                "descriptor_tag: 41 service_list_descriptor\n"
                                "service_id ffff\nservice_type 1\n");
}

TEST(NetworkTables, dumpSomeDescriptorsOfEachStream)
{
    constexpr const char* kBody = "F0 00 F0 2A 00 10 00 11 F0 1C 41 03 00 0A 01 00 01 41 "
                                  "43 0B 01 17 57 25 01 92 C1 02 75 00 03 80 00 48 03 01 00 00 "
                                  "FF FF 00 12 F0 02 00 00";
    std::ostringstream out;
    out << std::hex;
    parsedBody<Nit>(0x40, kBody).dump(out);
    // The delivery system turns the numbers decimal, the next descriptor hexadecimal again.
    EXPECT_EQ(out.str(), R"(stream_id 10
original_network_id 11
descriptor_tag: 00 Reserved
data:
41                                               : A
descriptor_tag: 43 satellite_delivery_system_descriptor
frequency 11.7573
orbital_position 19.2
west_east_flag 1
polarization 2
modulation 1
symbol_rate 27.5
FEC_inner 3
descriptor_tag: 41 service_list_descriptor
service_id a
service_type 1
stream_id ffff
original_network_id 12
descriptor_tag: 00 Reserved
data:
)");
    EXPECT_EQ(dumpOfTable(parsedBody<Bat>(0x4A, kBody)), R"(stream_id 16
original_network_id 17
descriptor_tag: 00 Reserved
data:
41                                               : A
stream_id ffff
original_network_id 12
descriptor_tag: 00 Reserved
data:
)");
}

TEST(NetworkTables, reportLoopsThatDoNotFit)
{
    const std::vector<test::FailingBody> cases{
        {"F0 00 F0 00", ""},
        {"F0 00 F0 00 FF", ""}, // the loop is bounded by its own length only
        {"F0 00 F0 06 00 01 00 02 F0 00", ""},
        {"F0 00 F0 09 00 01 00 02 F0 00 01 02 03", "-1: too little data"},
        {"F0 00 F0 08 00 01 00 02 F0 03 41 00", "-1: descriptor start end mismatch"},
        {"F0 01 40", "-1: too little data"},
        {"F0 05 F0 00", "-1: too little data"},
        {"F0 00 F0 01", "-1: too little data"},
        {"", "-1: too little data"}};
    expectFailures<Nit>(0x40, cases);
    expectFailures<Bat>(0x4A, cases);
    expectFailures<Nit>(0x4A, {{"F0 00 F0 00", "-1: invalid table id"}});
}

TEST(Sdt, reportsLoopsThatDoNotFit)
{
    expectFailures<Sdt>(0x42, {{"00 01 FF", ""},
                               {"00 01 FF 00 02 FD 90 00", ""},
                               {"00 01 FF 00 02 FD 90 00 01", "-1: too little data"},
                               {"00 01 FF 00 02 FD 90 01", "-1: descriptor start end mismatch"},
                               {"00 01", "-1: too little data"}});
    const auto sdt = parsedBody<Sdt>(0x46, "00 01 FF FF FF FD 90 05 48 03 01 00 00");
    EXPECT_STREQ(sdt.name(), "service_description_section - other_transport_stream");
    const SdtService& service = sdt.services.at(0);
    EXPECT_EQ(service.service_id, 0xFFFF);
    EXPECT_EQ(service.EIT_schedule_flag, 0);
    EXPECT_EQ(service.EIT_present_following_flag, 1);
    EXPECT_EQ(service.running_status, 4);
    EXPECT_EQ(service.free_CA_mode, 1);
    EXPECT_EQ(service.descriptors_loop_length, 5);
    EXPECT_EQ(service.descriptors.all<DescriptorService>().size(), 1U);
    EXPECT_EQ(dumpOfTable(sdt), "original_network_id 1\nservice_id 65535\nEIT_schedule_flag 0\n"
                                "EIT_present_following_flag 1\nrunning_status 4\n"
                                "free_CA_mode 1\ndescriptor_tag: 48 service_descriptor\n"
                                "service_type 1\nprovider_name \nservice_name \n");
}

TEST(Eit, readsEvents)
{
    const auto eit = parsedBody<Eit>(0x5A, "FF FE FF FD FC FB C0 01 C0 79 12 45 00 01 30 00 80 00 "
                                           "00 02 00 00 00 00 00 00 00 00 F0 02 54 00");
    EXPECT_STREQ(eit.name(), "event_information_section - actual_transport_stream, schedule");
    EXPECT_EQ(eit.transport_stream_id, 0xFFFE);
    EXPECT_EQ(eit.original_network_id, 0xFFFD);
    EXPECT_EQ(eit.segment_last_section_number, 0xFC);
    EXPECT_EQ(eit.last_table_id, 0xFB);
    ASSERT_EQ(eit.events.size(), 2U);
    EXPECT_EQ(eit.events[1].running_status, 7);
    EXPECT_EQ(eit.events[1].free_CA_mode, 1);
    EXPECT_EQ(eit.events[1].descriptors.all<DescriptorContent>().size(), 1U);
    EXPECT_EQ(dumpOfTable(eit),
              "service_id: 4660\ntransport_stream_id: 65534\noriginal_network_id: 65533\n"
              "segment_last_section_number: 252\nlast_table_id: 251\n"
              "event_id: c001\nrunning_status: 4\nfree_CA_mode: 0\ndescriptors_length: 0\n"
              "start_time: 13/10-1993 12:45:0\nduration: 1:30:0\n"
              "event_id:    2\nrunning_status: 7\nfree_CA_mode: 1\ndescriptors_length: 2\n"
              "start_time: 19/-1-1859 0:0:0\nduration: 0:0:0\n");
}

TEST(Eit, reportsEventsThatDoNotFit)
{
    const std::string head = "00 01 00 02 00 4E ";
    const std::string event = "C0 01 C0 79 12 45 00 01 30 00 80 ";
    for (const auto& [rest, failure] :
         {std::pair<std::string, std::string>{"", ""},
          {event + "00", ""},
          {event + "00 01 02 03 04 05", "-1: descriptor start end mismatch"},
          {event + "02 54", "-1: descriptor start end mismatch"},
          {event + "03 54 00 01", ""}})
        EXPECT_EQ(failureOf<Eit>(test::longSection(0x4E, 1, test::hex(head + rest))), failure)
            << rest;
    EXPECT_EQ(failureOf<Eit>(test::longSection(0x70, 1, test::hex(head))), "-1: invalid table id");
    EXPECT_EQ(failureOf<Eit>(test::longSection(0x4E, 1, test::hex("00 01"))),
              "-1: too little data");
}

TEST(Tdt, holdsTheTime)
{
    EXPECT_EQ(dumpOfTable(parsed<Tdt>(test::hex("70 70 05 C0 79 12 45 00"))),
              "table_id: 112\nsection_length: 5\nUTC_time: 13/10-1993 12:45:0\n");
}

TEST(Tot, keepsItsCrcWithoutTestingIt)
{
    const auto tot = parsed<Tot>(test::hex("73 70 0B C0 79 12 45 00 F0 00 FF FE FD FC"));
    EXPECT_EQ(tot.CRC_32, 0xFFFEFDFCU);
    EXPECT_EQ(dumpOfTable(tot), "table_id: 115\nsection_length: 11\n"
                                "UTC_time: 13/10-1993 12:45:0\ncrc32: 4294901244\n");
    EXPECT_EQ(failureOf<Tot>(test::hex("73 70 0D C0 79 12 45 00 F0 02 58 01 00 00 00 00")),
              "-1: descriptor start end mismatch");
    // Short of the time, of the loop, of the CRC_32.
    for (const char* section :
         {"73 70 06 C0 79 12 45 00 F0", "73 70 0B C0 79 12 45 00 F0 05 58 02 00 00",
          "73 70 0A C0 79 12 45 00 F0 00 00 00 00"})
        EXPECT_EQ(failureOf<Tot>(test::hex(section)), "-1: too little data") << section;
}

TEST(Rst, holdsWholeEntries)
{
    const auto rst = parsed<Rst>(test::hex("71 70 09 00 01 00 85 FF FE FF FD FC"));
    const RunningStatusEntry& entry = rst.entries.at(0);
    EXPECT_EQ(entry.original_network_id, 0x85);
    EXPECT_EQ(entry.service_id, 0xFFFE);
    EXPECT_EQ(entry.event_id, 0xFFFD);
    EXPECT_EQ(entry.running_status, 4);
    EXPECT_EQ(dumpOfTable(rst), "table_id: 113\nsection_length: 9\ntransport_stream_id: 1\n"
                                "original_network_id: 133\nservice_id: 65534\nevent_id: 65533\n"
                                "running_status: 4\n");
    EXPECT_EQ(failureOf<Rst>(test::hex("71 70 0A 00 01 00 85 00 02 00 03 FC 00")),
              "-1: descriptor start end mismatch");
}
