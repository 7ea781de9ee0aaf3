// Writes the sample multiplex: one transport stream of an invented satellite network, with a look
// at its neighbours, for a first look at the explorer.

#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <fstream>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace test;

constexpr unsigned kNetwork = 0x0001;
constexpr unsigned kOtherNetwork = 0x013F;
constexpr unsigned kStream = 0x0451;
constexpr unsigned kNeighbour = 0x0452;
constexpr unsigned kDay = 61368; // 24 November 2026
constexpr unsigned kTelevision = 0x01;
constexpr unsigned kRadio = 0x02;
constexpr unsigned kTelevisionHd = 0x19;
constexpr unsigned kCaSystem = 0x0B00;

constexpr unsigned kPatPid = 0x00;
constexpr unsigned kCatPid = 0x01;
constexpr unsigned kNitPid = 0x10;
constexpr unsigned kSdtBatPid = 0x11;
constexpr unsigned kEitPid = 0x12;
constexpr unsigned kRstPid = 0x13;
constexpr unsigned kTdtTotPid = 0x14;

struct Channel {
    unsigned id;
    unsigned type;
    const char* name;
    const char* now;
    const char* next;
    bool isScrambled = false;

    bool hasVideo() const { return type != kRadio; }
    unsigned pmtPid() const { return 0x100 + (id & 0xFF) * 0x10; }
    unsigned videoPid() const { return pmtPid() + 1; }
    unsigned audioPid() const { return pmtPid() + 2; }
    unsigned teletextPid() const { return pmtPid() + 3; }
};

const std::vector<Channel> kChannels{
    {0x1001, kTelevision, "Harbour One", "Morning Tide", "The Lighthouse Keepers"},
    {0x1002, kTelevisionHd, "Harbour One HD", "Morning Tide", "The Lighthouse Keepers"},
    {0x1003, kTelevision, "Meadow Kids", "Counting Clouds", "The Brave Hedgehog", true},
    {0x1004, kTelevision,
     "\x05"
     "Do\xF0"
     "a TV",
     "\x05"
     "G\xFCn\xFCn \xD6zeti",
     "\x05"
     "Ye\xFEil Yol"},
    {0x1005, kRadio, "Radio Quay", "Quiet Hours", "News at Noon"},
    {0x1006, kRadio,
     "Caf\xC2"
     "e Classic",
     "Strings", "Piano Evening"},
};

/// What the provider of the scrambled service tells its cards.
Bytes cardData()
{
    constexpr std::string_view data = "\x01\x2B\x14\xA0"
                                      "Meadow Kids|area 07|valid to 2027-12-31"
                                      "\xC3\x7E\x91\x08";
    return {data.begin(), data.end()};
}

Bytes own(uint64_t frequency, unsigned polarization)
{
    return satelliteDelivery(
        {.frequency = frequency, .orbitalPosition = 192, .polarization = polarization});
}

std::vector<ElementaryStream> streamsOf(const Channel& channel)
{
    std::vector<ElementaryStream> streams;
    if (channel.hasVideo())
        streams.push_back({.type = channel.type == kTelevisionHd ? 0x1BU : 0x02U,
                           .pid = channel.videoPid(),
                           .descriptors = {descriptor(0x52, Bytes{1})}});
    streams.push_back({.type = 0x03,
                       .pid = channel.audioPid(),
                       .descriptors = {language("eng"), descriptor(0x52, Bytes{2})}});
    if (channel.hasVideo())
        streams.push_back({.type = 0x06,
                           .pid = channel.teletextPid(),
                           .descriptors = {teletext("eng", 1, 1, 0x00)}});
    return streams;
}

void patAndPmts(StreamBuilder& stream)
{
    std::vector<Program> programs{{.number = 0, .pid = kNitPid}};
    for (const Channel& channel : kChannels)
        programs.push_back({.number = channel.id, .pid = channel.pmtPid()});
    stream.put(kPatPid, pat(kStream, programs));
    for (const Channel& channel : kChannels) {
        std::vector<Bytes> programInfo;
        if (channel.isScrambled)
            programInfo.push_back(conditionalAccess(kCaSystem, channel.pmtPid() + 4, cardData()));
        stream.put(channel.pmtPid(),
                   pmt(channel.id, channel.hasVideo() ? channel.videoPid() : channel.audioPid(),
                       streamsOf(channel), programInfo));
    }
}

std::vector<ListedService> listedServices()
{
    std::vector<ListedService> services;
    services.reserve(kChannels.size());
    for (const Channel& channel : kChannels)
        services.push_back({.id = channel.id, .type = channel.type});
    return services;
}

void networks(StreamBuilder& stream)
{
    stream.put(kNitPid,
               nit(kNitActual, kNetwork, {networkName("Harbour Satellite Network")},
                   {{.stream = kStream,
                     .network = kNetwork,
                     .descriptors = {own(1175725, 1), serviceList(listedServices())}},
                    {.stream = kNeighbour,
                     .network = kNetwork,
                     .descriptors = {own(1179350, 0), serviceList({{0x2001, kTelevision}})}}}));
    stream.put(kNitPid,
               nit(kNitOther, kOtherNetwork, {networkName("Northern Islands Network")},
                   {{.stream = 0x0901,
                     .network = kOtherNetwork,
                     .descriptors = {satelliteDelivery(
                         {.frequency = 1214900, .orbitalPosition = 130, .polarization = 1})}}}));
    stream.put(kCatPid, cat({conditionalAccess(kCaSystem, 0x0B0)}));
    stream.put(kSdtBatPid,
               bat(0x0061, {bouquetName("Harbour Family")},
                   {{.stream = kStream,
                     .network = kNetwork,
                     .descriptors = {serviceList({{0x1001, kTelevision}, {0x1005, kRadio}})}}}));
}

void services(StreamBuilder& stream)
{
    std::vector<Service> own;
    own.reserve(kChannels.size());
    for (const Channel& channel : kChannels)
        own.push_back({.id = channel.id,
                       .descriptors = {service(channel.type, "Harbour Media", channel.name)},
                       .isScrambled = channel.isScrambled});
    stream.put(kSdtBatPid, sdt(kSdtActual, kStream, kNetwork, own));
    stream.put(kSdtBatPid,
               sdt(kSdtOther, kNeighbour, kNetwork,
                   {{.id = 0x2001,
                     .descriptors = {service(kTelevision, "Harbour Media", "Harbour Two")}}}));
}

Event programme(unsigned id, unsigned start, const char* name, unsigned genre)
{
    return {.id = id,
            .mjd = kDay,
            .start = start,
            .duration = 10000,
            .descriptors = {shortEvent("eng", name, "Every day at this time."), content(genre),
                            parentalRating("GBR", 3)}};
}

void events(StreamBuilder& stream)
{
    for (const Channel& channel : kChannels) {
        const unsigned id = (channel.id & 0xFF) << 8;
        const auto pf = [&](unsigned number, const char* name) {
            Event event = programme(id + number, 100000 + number * 10000, name, 0x20);
            event.runningStatus = number == 0 ? 4 : 1;
            event.descriptors.push_back(component(1, 3, 1, "eng", ""));
            stream.put(kEitPid, eit(0x4E, channel.id, kStream, kNetwork, {event},
                                    {.number = number, .last = 1}));
        };
        pf(0, channel.now);
        pf(1, channel.next);
        for (unsigned part = 0; part < 3; ++part)
            stream.put(
                kEitPid,
                eit(0x50, channel.id, kStream, kNetwork,
                    {programme(id + 0x10 + 2 * part, 120000 + part * 20000, channel.now, 0x21),
                     programme(id + 0x11 + 2 * part, 130000 + part * 20000, channel.next, 0x23)},
                    {.number = part * 8, .last = 16}));
    }
    stream.put(kEitPid, eit(0x4F, 0x2001, kNeighbour, kNetwork,
                            {programme(0x0100, 100000, "Across the Bay", 0x30)}));
    stream.put(kEitPid, eit(0x60, 0x2001, kNeighbour, kNetwork,
                            {programme(0x0101, 110000, "Evening Ferry", 0x14)}));
}

void timeTables(StreamBuilder& stream, unsigned second)
{
    stream.put(kTdtTotPid, tdt(kDay, 101500 + second));
    stream.put(kTdtTotPid, tot(kDay, 101500 + second, {localTimeOffset("GBR", 1)}));
    stream.put(kRstPid, rst({{.stream = kStream,
                              .network = kNetwork,
                              .service = 0x1001,
                              .event = 0x0101,
                              .status = 2}}));
}

StreamBuilder sampleStream()
{
    StreamBuilder stream;
    const Bytes picture(184, 0x5A);
    for (unsigned second = 0; second < 4; ++second) {
        for (int repeat = 0; repeat < 5; ++repeat) {
            patAndPmts(stream);
            for (int i = 0; i < 200; ++i)
                stream.payload(kChannels[static_cast<std::size_t>(i) % 4].videoPid(), picture);
        }
        networks(stream);
        services(stream);
        events(stream);
        timeTables(stream, second);
        stream.nullPackets(400);
    }
    return stream;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: tessaview3-sample FILE\n";
        return 2;
    }
    const Bytes bytes = sampleStream().build();
    std::ofstream file(argv[1], std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << argv[1] << ": cannot be written\n";
        return 1;
    }
    return 0;
}
