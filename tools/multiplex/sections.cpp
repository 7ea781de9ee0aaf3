#include "tools/multiplex/sections.h"

namespace test {

uint32_t crc32(std::span<const uint8_t> bytes)
{
    uint32_t crc = 0xFFFFFFFF;
    for (const uint32_t byte : bytes) {
        crc ^= byte << 24;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80000000) != 0 ? crc << 1 ^ 0x04C11DB7 : crc << 1;
    }
    return crc;
}

Bytes longSection(unsigned tableId, unsigned extension, std::span<const uint8_t> body,
                  const Header& header)
{
    Writer section;
    section.u8(tableId)
        .u16(0xB000 | static_cast<unsigned>(body.size() + 9))
        .u16(extension)
        .u8(0xC0 | header.version << 1 | header.currentNext)
        .u8(header.number)
        .u8(header.last)
        .bytes(body);
    return section.u32(crc32(section.get()));
}

Bytes shortSection(unsigned tableId, std::span<const uint8_t> body)
{
    return Writer().u8(tableId).loop(body, 0x7);
}

Bytes pat(unsigned stream, const std::vector<Program>& programs, const Header& header)
{
    Writer body;
    for (const Program& program : programs)
        body.u16(program.number).u16(0xE000 | program.pid);
    return longSection(0x00, stream, body.get(), header);
}

Bytes cat(const std::vector<Bytes>& descriptors, const Header& header)
{
    return longSection(0x01, 0xFFFF, joined(descriptors), header);
}

Bytes pmt(unsigned program, unsigned pcrPid, const std::vector<ElementaryStream>& streams,
          const std::vector<Bytes>& descriptors, const Header& header)
{
    Writer body;
    body.u16(0xE000 | pcrPid).loop(joined(descriptors));
    for (const ElementaryStream& stream : streams)
        body.u8(stream.type).u16(0xE000 | stream.pid).loop(joined(stream.descriptors));
    return longSection(0x02, program, body.get(), header);
}

namespace {

Bytes networkTable(unsigned tableId, unsigned id, const std::vector<Bytes>& descriptors,
                   const std::vector<ListedStream>& streams, const Header& header)
{
    Writer entries;
    for (const ListedStream& stream : streams)
        entries.u16(stream.stream).u16(stream.network).loop(joined(stream.descriptors));
    return longSection(tableId, id, Writer().loop(joined(descriptors)).loop(entries.get()).get(),
                       header);
}

} // namespace

Bytes nit(unsigned tableId, unsigned network, const std::vector<Bytes>& descriptors,
          const std::vector<ListedStream>& streams, const Header& header)
{
    return networkTable(tableId, network, descriptors, streams, header);
}

Bytes bat(unsigned bouquet, const std::vector<Bytes>& descriptors,
          const std::vector<ListedStream>& streams, const Header& header)
{
    return networkTable(0x4A, bouquet, descriptors, streams, header);
}

Bytes sdt(unsigned tableId, unsigned stream, unsigned network, const std::vector<Service>& services,
          const Header& header)
{
    Writer body;
    body.u16(network).u8(0xFF);
    for (const Service& service : services)
        body.u16(service.id)
            .u8(0xFC | service.eitFlags)
            .loop(joined(service.descriptors),
                  service.runningStatus << 1 | (service.isScrambled ? 1 : 0));
    return longSection(tableId, stream, body.get(), header);
}

Bytes eit(unsigned tableId, unsigned service, unsigned stream, unsigned network,
          const std::vector<Event>& events, const Header& header)
{
    Writer body;
    body.u16(stream).u16(network).u8(header.last).u8(tableId);
    for (const Event& event : events)
        body.u16(event.id)
            .u16(event.mjd)
            .bcd(event.start, 6)
            .bcd(event.duration, 6)
            .loop(joined(event.descriptors), event.runningStatus << 1);
    return longSection(tableId, service, body.get(), header);
}

Bytes tdt(unsigned mjd, unsigned time)
{
    return shortSection(0x70, Writer().u16(mjd).bcd(time, 6).get());
}

Bytes tot(unsigned mjd, unsigned time, const std::vector<Bytes>& descriptors)
{
    const Bytes body = Writer().u16(mjd).bcd(time, 6).loop(joined(descriptors));
    Writer section;
    section.u8(0x73).u16(0x7000 | static_cast<unsigned>(body.size() + 4)).bytes(body);
    return section.u32(crc32(section.get()));
}

Bytes rst(const std::vector<RunningStatus>& entries)
{
    Writer body;
    for (const RunningStatus& entry : entries)
        body.u16(entry.stream)
            .u16(entry.network)
            .u16(entry.service)
            .u16(entry.event)
            .u8(0xF8 | entry.status);
    return shortSection(0x71, body.get());
}

} // namespace test
