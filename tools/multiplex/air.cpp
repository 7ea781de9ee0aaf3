#include "tools/multiplex/air.h"

#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace test {

namespace {

void save(const std::filesystem::path& file, std::string_view content)
{
    std::ofstream out(file, std::ios::binary);
    out << content << std::flush;
    if (!out)
        throw std::runtime_error("cannot write " + file.string());
}

constexpr unsigned kPatPid = 0x00;
constexpr unsigned kNitPid = 0x10;
constexpr unsigned kSdtPid = 0x11;
constexpr unsigned kEitPid = 0x12;
constexpr unsigned kTdtPid = 0x14;
constexpr unsigned kDay = 61368; // 24 November 2026
constexpr unsigned kServices = 3;
constexpr std::size_t kEntriesPerSection = 10;

std::string hexText(unsigned value)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "%04X", value);
    return text.data();
}

/// Streams side by side in frequency, polarizations taking turns.
std::vector<AirStream> streamsFrom(unsigned first, unsigned count, unsigned network, unsigned orbit,
                                   bool isEast)
{
    std::vector<AirStream> streams;
    for (unsigned i = 0; i < count; ++i)
        streams.push_back({.stream = first + i,
                           .network = network,
                           .tuning = {.frequency = 1072900 + i * 1950ULL,
                                      .orbitalPosition = orbit,
                                      .isEast = isEast,
                                      .polarization = i % 2}});
    return streams;
}

Bytes deliveryOf(const AirStream& stream)
{
    return stream.fault == AirFault::CableOnly ? cableDelivery({.frequency = 3460000})
                                               : satelliteDelivery(stream.tuning);
}

/// The NIT of a satellite, ten streams to a section; the last section has none.
std::vector<Bytes> nitOf(const AirSatellite& satellite)
{
    std::vector<std::vector<ListedStream>> entries(1);
    for (const AirStream& stream : satellite.streams) {
        if (entries.back().size() == kEntriesPerSection)
            entries.emplace_back();
        entries.back().push_back({.stream = stream.stream,
                                  .network = stream.network,
                                  .descriptors = {deliveryOf(stream)}});
    }
    entries.emplace_back();
    std::vector<Bytes> sections;
    const auto last = static_cast<unsigned>(entries.size() - 1);
    for (unsigned i = 0; i <= last; ++i)
        sections.push_back(nit(kNitActual, satellite.networkId, {networkName(satellite.name)},
                               entries[i], {.number = i, .last = last}));
    return sections;
}

unsigned serviceId(const AirStream& stream, unsigned index)
{
    return (stream.stream << 2 | index) & 0xFFFF;
}

Bytes sdtOf(const AirStream& stream, const std::string& provider)
{
    std::vector<Service> services;
    for (unsigned i = 0; i < kServices; ++i)
        services.push_back(
            {.id = serviceId(stream, i),
             .descriptors = {service(1, provider, "Channel " + hexText(serviceId(stream, i)))}});
    Bytes section = sdt(kSdtActual, stream.stream, stream.network, services);
    if (stream.fault == AirFault::DamagedSdt)
        section.back() ^= 1;
    return section;
}

void putPrograms(StreamBuilder& out, const AirStream& stream)
{
    std::vector<Program> programs{{.number = 0, .pid = kNitPid}};
    for (unsigned i = 0; i < kServices; ++i)
        programs.push_back({.number = serviceId(stream, i), .pid = 0x100 + i});
    out.put(kPatPid, pat(stream.stream, programs));
    if (stream.fault != AirFault::NoPmts)
        for (unsigned i = 0; i < kServices; ++i)
            out.put(0x100 + i,
                    pmt(serviceId(stream, i), 0x200 + i,
                        {{.type = 2, .pid = 0x200 + i},
                         {.type = 3, .pid = 0x300 + i, .descriptors = {language("eng")}}}));
}

void putEvents(StreamBuilder& out, const AirStream& stream)
{
    for (unsigned i = 0; i < kServices; ++i)
        for (unsigned number = 0; number < 2; ++number)
            out.put(kEitPid, eit(0x4E, serviceId(stream, i), stream.stream, stream.network,
                                 {{.id = number,
                                   .mjd = kDay,
                                   .start = 100000 + number * 10000,
                                   .duration = 10000,
                                   .descriptors = {shortEvent("eng", "Programme", "")},
                                   .runningStatus = number == 0 ? 4U : 1U}},
                                 {.number = number, .last = 1}));
}

Bytes contentOf(const AirSatellite& satellite, const AirStream& stream)
{
    StreamBuilder out;
    if (stream.fault == AirFault::Unlocked)
        return out.nullPackets(500).build();
    for (unsigned second = 0; second < 3; ++second) {
        putPrograms(out, stream);
        for (const Bytes& section : nitOf(satellite))
            out.put(kNitPid, section);
        if (stream.fault != AirFault::NoSdt)
            out.put(kSdtPid, sdtOf(stream, satellite.name));
        putEvents(out, stream);
        out.put(kTdtPid, tdt(kDay, 101500 + second)).nullPackets(100);
    }
    return out.build();
}

std::string listOf(const std::vector<AirSatellite>& air)
{
    std::ostringstream xml;
    xml << R"(<?xml version="1.0" encoding="UTF-8"?>)"
        << "\n<satellites version=\"1\">\n";
    for (const AirSatellite& satellite : air) {
        xml << R"(  <satellite name=")" << satellite.name << R"(" selected="1">)" << '\n';
        unsigned tsid = 1;
        for (const SatelliteParameters& each : satellite.transponders)
            xml << R"(    <transponder nid="0x0000" tsid="0x)" << hexText(tsid++)
                << R"(" frequency=")" << each.frequency << R"(" polarization=")"
                << each.polarization << R"(" symbolrate=")" << each.symbolRate << R"(" fec=")"
                << each.fecInner << R"("/>)" << '\n';
        xml << "  </satellite>\n";
    }
    xml << "</satellites>\n";
    return xml.str();
}

} // namespace

std::vector<AirSatellite> testAir()
{
    AirSatellite harbour{.name = "Harbour 19E",
                         .networkId = 0x3001,
                         .streams = streamsFrom(0x0401, 20, 0x0001, 192, true),
                         .transponders = {}};
    harbour.streams[4].fault = AirFault::Missing;
    harbour.streams[8].fault = AirFault::Unlocked;
    harbour.streams[12].fault = AirFault::NoSdt;
    harbour.streams[15].fault = AirFault::DamagedSdt;
    harbour.transponders = {harbour.streams[0].tuning,
                            harbour.streams[17].tuning,
                            {.frequency = 1274900, .orbitalPosition = 0}};

    AirSatellite meadow{.name = "Meadow 13E",
                        .networkId = 0x3002,
                        .streams = streamsFrom(0x2001, 14, 0x013F, 130, true),
                        .transponders = {}};
    meadow.streams[3].fault = AirFault::NoPmts;
    meadow.streams[7].fault = AirFault::CableOnly;
    meadow.streams[13].fault = AirFault::Missing;
    meadow.transponders = {meadow.streams[1].tuning};

    AirSatellite quay{.name = "Quay 5W",
                      .networkId = 0x3003,
                      .streams = streamsFrom(0x0501, 10, 0x013F, 50, false),
                      .transponders = {}};
    for (AirStream& stream : quay.streams)
        stream.tuning.polarization += 2;
    quay.streams[0].network = 0x0001;
    quay.transponders = {{.frequency = 1072900, .orbitalPosition = 0}, quay.streams[9].tuning};
    return {harbour, meadow, quay};
}

void writeAir(const std::vector<AirSatellite>& air, const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    save(folder / "satlist.xml", listOf(air));
    for (const AirSatellite& satellite : air) {
        std::filesystem::create_directories(folder / satellite.name);
        for (const AirStream& stream : satellite.streams) {
            if (stream.fault == AirFault::Missing || stream.fault == AirFault::CableOnly)
                continue;
            const Bytes content = contentOf(satellite, stream);
            save(folder / satellite.name / (hexText(stream.stream) + ".ts"),
                 std::string(content.begin(), content.end()));
        }
    }
}

} // namespace test
