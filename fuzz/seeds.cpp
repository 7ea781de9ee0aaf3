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

/// The inputs of a text of cases below tests/: its lines that are neither indented nor comments.
Seeds inputsOf(const char* name)
{
    Seeds seeds;
    std::ifstream text(std::filesystem::path(TESSAVIEW_SOURCE_DIR "/tests") / name);
    for (std::string line; std::getline(text, line);)
        if (const auto input = line.substr(0, line.find('#')); !input.starts_with(' '))
            if (const Bytes descriptor = hex(input); !descriptor.empty())
                seeds.push_back(descriptor);
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
    const Seeds descriptors = inputsOf("support/every_descriptor.txt");
    const Seeds applicationDescriptors = inputsOf("si/ait_descriptors.txt");
    const auto tables = sections(descriptors);
    for (const auto& [name, seeds] : tables)
        write(folder / name, seeds);
    write(folder / "ait", aits(applicationDescriptors));
    write(folder / "descriptors", descriptors);
    write(folder / "ait_descriptors", applicationDescriptors);
    write(folder / "capture", captures(tables));
    write(folder / "collector", collected(tables));
    write(folder / "tree", collected(tables));
    write(folder / "settings", settings());
    return 0;
}
