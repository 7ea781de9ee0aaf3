// Writes what the fuzz targets start from: sections, descriptors and streams as broadcast.
//   tessaview_seeds FOLDER        one folder per target below it

#include "tests/support/bytes.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <string_view>

namespace {

using namespace test;

using Seeds = std::vector<Bytes>;

// One descriptor of every class.
constexpr const char* kDescriptors[] = {
    "02 03 4B 48 5F",
    "03 01 A8",
    "04 04 F5 EA D5 FF",
    "05 06 41 43 2D 33 01 02",
    "06 01 02",
    "07 04 0B 40 24 03",
    "08 04 0B 40 24 03",
    "09 06 06 04 E1 23 5A 31",
    "0A 08 65 6E 67 00 64 65 75 01",
    "0B 02 D5 BF",
    "0C 04 FF FE 7F FD",
    "0D 05 00 00 00 01 0A",
    "0E 03 FF FF FE",
    "0F 04 00 00 00 28",
    "10 06 FF FF FE C0 00 01",
    "11 01 01",
    "12 02 7F FE",
    "40 03 41 42 43",
    "41 06 00 01 02 FF FF FE",
    "42 02 FF FF",
    "43 0B 01 17 57 25 01 92 C1 02 75 00 03",
    "44 0B 03 46 00 00 FF F2 05 00 69 00 03",
    "45 07 81 03 C1 02 03 FF 00",
    "46 05 65 6E 67 11 88",
    "47 03 41 42 43",
    "48 08 01 02 05 42 03 41 42 43",
    "49 04 80 47 42 52",
    "4A 08 FF FE FF FD FF FC FB 01",
    "4B 06 80 01 90 02 A0 03",
    "4C 02 80 01",
    "4D 09 65 6E 67 02 05 41 02 20 41",
    "4E 0F 81 64 65 75 08 02 41 42 04 10 00 02 43 01 44",
    "4F 04 80 01 90 02",
    "50 09 F9 81 92 65 6E 67 01 41 42",
    "51 0D 2A 04 00 02 FF C1 02 80 01 90 02 A0 03",
    "51 0F FF 00 00 00 04 80 01 90 02 A0 03 B0 04 00 00",
    "52 01 81",
    "53 04 0B 00 17 02",
    "54 04 81 92 F0 0F",
    "55 04 47 42 52 81",
    "56 0A 65 6E 67 11 88 64 65 75 8F 01",
    "57 0C F1 A5 98 31 32 33 34 35 36 37 38 39",
    "58 0D 44 45 55 0D 01 00 C0 79 12 45 00 02 30",
    "59 08 65 6E 67 81 80 01 90 02",
    "5A 0B 02 D3 4B C0 1F 42 12 FF FF FF FF",
    "5B 0B 65 6E 67 03 05 41 42 64 65 75 00",
    "5C 0B 65 6E 67 03 05 41 42 64 65 75 00",
    "5D 08 65 6E 67 01 41 02 05 42",
    "5E 0C 81 65 6E 67 03 05 41 42 64 65 75 00",
    "5F 04 00 00 00 28",
    "60 06 FF FE FF FD FF FC",
    "61 03 A1 41 FF",
    "62 09 FE FF FF FF FF 00 00 00 01",
    "63 08 00 00 00 00 00 00 00 00",
    "64 0C 80 01 81 02 C1 C2 65 6E 67 02 05 41",
    "66 04 80 01 C1 C2",
    "67 03 81 82 83",
    "68 02 81 82",
    "69 03 F1 23 45",
    "6A 05 FF 81 82 83 84",
    "6B 01 81",
    "6C 12 80 01 90 02 A0 03 80 1F FE 08 81 80 04 90 05 80 19 02",
    "6D 0C 80 01 80 00 00 01 05 81 90 00 00 02",
    "6E 0B 80 01 11 80 01 90 02 A0 03 81 20",
    "6F 03 00 01 E5",
    "70 01 81",
    "71 03 41 42 43",
    "72 05 80 80 01 00 02",
    "80 04 01 02 03 04",
    "13 01 00",
};

// The same for an AIT.
constexpr const char* kApplicationDescriptors[] = {
    "00 09 05 00 01 01 00 00 80 05 03",
    "01 0B 65 6E 67 02 41 42 64 65 75 01 43",
    "02 05 00 01 07 00 2A",
    "02 0B 00 02 07 80 00 01 00 02 00 03 80",
    "03 06 02 2D 61 02 2D 62",
    "04 09 01 2F 02 2F 78 41 70 70 31",
    "05 07 00 00 00 01 40 01 05",
    "06 0B 01 E0 00 00 01 13 88 FF FF FF FF",
    ("07 23 01 FF 02 00 00 00 00 00 00 00 00 00 00 00 00 00 01 13 88 "
     "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF"),
    "08 06 02 40 01 70 3D 31",
    "09 05 01 2F 69 2E 68",
    "0A 06 02 61 62 5E 2E 2A",
    "0B 08 02 69 63 00 11 01 02 03",
    "0C 05 01 02 41 42 07",
    "0D 05 01 80 05 00 0B",
    "5F 04 00 00 00 28",
    "80 02 01 02",
};

template <std::size_t N>
Seeds parsed(const char* const (&texts)[N])
{
    Seeds seeds;
    for (const char* const text : texts)
        seeds.push_back(hex(text));
    return seeds;
}

Seeds aits(const Seeds& descriptors)
{
    Seeds seeds;
    for (const Bytes& each : descriptors) {
        const Writer application =
            Writer().u32(1).u16(0x4001).u8(1).loop(joined({each, hex("80 01 01")}));
        seeds.push_back(longSection(0x74, 1, Writer().loop(each).loop(application.get()).get()));
    }
    return seeds;
}

/// A table's seeds: of every descriptor one that holds it.
template <class Build>
Seeds aroundEach(const Seeds& descriptors, Build build)
{
    Seeds seeds;
    for (const Bytes& each : descriptors)
        seeds.push_back(build(each));
    return seeds;
}

std::map<std::string, Seeds> sections(const Seeds& descriptors)
{
    const unsigned day = 61368;
    return {
        {"pat", {pat(1, {{0, 0x10}, {1, 0x100}}), pat(1, {})}},
        {"cat", {cat({conditionalAccess(0x0B00, 0x500), conditionalAccess(1, 2, hex("01"))})}},
        {"pmt", aroundEach(descriptors,
                           [](const Bytes& each) {
                               return pmt(1, 0x101, {{0x02, 0x101, {each}}, {0x03, 0x102}}, {each});
                           })},
        {"nit", aroundEach(descriptors,
                           [](const Bytes& each) {
                               return nit(kNitActual, 1, {each, conditionalAccess(1, 2)},
                                          {{1, 1, {each}}, {2, 1}});
                           })},
        {"bat", aroundEach(descriptors,
                           [](const Bytes& each) {
                               return bat(1, {each, bouquetName("B")}, {{1, 1, {each}}});
                           })},
        {"sdt",
         aroundEach(descriptors,
                    [](const Bytes& each) {
                        return sdt(kSdtActual, 1, 1, {{1, {each}}, {2, {service(1, "a", "b")}}});
                    })},
        {"eit", aroundEach(descriptors,
                           [](const Bytes& each) {
                               return eit(
                                   0x50, 1, 1, 1,
                                   {{1, day, 120000, 10000, {each}}, {2, day, 130000, 3000}});
                           })},
        {"tdt", {tdt(day, 123456)}},
        {"tot", aroundEach(descriptors,
                           [](const Bytes& each) {
                               return tot(day, 123456, {localTimeOffset("GBR", 1), each});
                           })},
        {"rst", {rst({{1, 1, 1, 1, 4}, {2, 2, 2, 2, 1}}), rst({})}},
    };
}

/// One section of every kind of table.
Seeds oneOfEach(const std::map<std::string, Seeds>& tables)
{
    Seeds seeds;
    for (const auto& [name, all] : tables)
        seeds.push_back(all.front());
    return seeds;
}

Seeds captures(const std::map<std::string, Seeds>& tables)
{
    const std::map<std::string, unsigned> pids{
        {"pat", 0x00}, {"cat", 0x01}, {"pmt", 0x100}, {"nit", 0x10}, {"sdt", 0x11},
        {"bat", 0x11}, {"eit", 0x12}, {"rst", 0x13},  {"tdt", 0x14}, {"tot", 0x14}};
    StreamBuilder stream;
    for (const auto& [name, all] : tables)
        stream.put(pids.at(name), all.front(), name.size());
    stream.putPacked(0x12, tables.at("eit")).nullPackets(2).repeatLast();
    return {stream.build(), stream.build(192), stream.build(204)};
}

Seeds collected(const std::map<std::string, Seeds>& tables)
{
    Bytes run;
    for (const Bytes& each : oneOfEach(tables)) {
        run.push_back(0);
        run.insert(run.end(), each.begin(), each.end());
    }
    return {run};
}

Seeds settings()
{
    const auto bytes = [](std::string_view text) { return Bytes(text.begin(), text.end()); };
    return {
        bytes(R"({"SOFTWARE\\Team Tessaview\\Tessaview3":{"driverclsid":"{1}","sitables":7}})"),
        bytes(R"({"SOFTWARE\\Team Tessaview\\Tessaview3":{"files":["a.ts","b"],"sitables":"7"}})"),
        bytes(R"({"SOFTWARE\\Team Tessaview\\Tessaview3":{"sitables":-1.5}})"), bytes("[]")};
}

void write(const std::filesystem::path& folder, const Seeds& seeds)
{
    std::filesystem::create_directories(folder);
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        std::ofstream file(folder / std::to_string(i), std::ios::binary);
        file.write(reinterpret_cast<const char*>(seeds[i].data()),
                   static_cast<std::streamsize>(seeds[i].size()));
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: tessaview_seeds FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    const Seeds descriptors = parsed(kDescriptors);
    const Seeds applicationDescriptors = parsed(kApplicationDescriptors);
    const auto tables = sections(descriptors);
    for (const auto& [name, seeds] : tables)
        write(folder / name, seeds);
    write(folder / "ait", aits(applicationDescriptors));
    write(folder / "descriptors", descriptors);
    write(folder / "ait_descriptors", applicationDescriptors);
    write(folder / "capture", captures(tables));
    write(folder / "collector", collected(tables));
    write(folder / "settings", settings());
    return 0;
}
