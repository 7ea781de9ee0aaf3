#include "tools/multiplex/descriptors.h"

namespace test {

Bytes descriptor(unsigned tag, std::span<const uint8_t> payload)
{
    return Writer().u8(tag).u8(static_cast<unsigned>(payload.size())).bytes(payload);
}

Bytes networkName(std::string_view name)
{
    return descriptor(0x40, Writer().text(name).get());
}

Bytes bouquetName(std::string_view name)
{
    return descriptor(0x47, Writer().text(name).get());
}

Bytes service(unsigned type, std::string_view provider, std::string_view name)
{
    return descriptor(0x48, Writer().u8(type).countedText(provider).countedText(name).get());
}

Bytes serviceList(const std::vector<ListedService>& services)
{
    Writer payload;
    for (const ListedService& each : services)
        payload.u16(each.id).u8(each.type);
    return descriptor(0x41, payload.get());
}

Bytes satelliteDelivery(const SatelliteParameters& p)
{
    const unsigned flags = (p.isEast ? 1U : 0U) << 7 | p.polarization << 5 | p.modulation;
    return descriptor(0x43, Writer()
                                .bcd(p.frequency, 8)
                                .bcd(p.orbitalPosition, 4)
                                .u8(flags)
                                .bcd(p.symbolRate * 10 + p.fecInner, 8)
                                .get());
}

Bytes cableDelivery(const CableParameters& p)
{
    return descriptor(0x44, Writer()
                                .bcd(p.frequency, 8)
                                .u16(0xFFF2)
                                .u8(p.modulation)
                                .bcd(p.symbolRate * 10 + 3, 8)
                                .get());
}

Bytes terrestrialDelivery(uint32_t centreFrequency)
{
    return descriptor(0x5A,
                      Writer().u32(centreFrequency).u8(0x1F).u8(0x81).u8(0x0A).u32(~0U).get());
}

Bytes conditionalAccess(unsigned system, unsigned pid, std::span<const uint8_t> privateData)
{
    return descriptor(0x09, Writer().u16(system).u16(0xE000 | pid).bytes(privateData).get());
}

Bytes language(std::string_view code, unsigned audioType)
{
    return descriptor(0x0A, Writer().text(code).u8(audioType).get());
}

Bytes shortEvent(std::string_view languageCode, std::string_view name, std::string_view text)
{
    return descriptor(0x4D, Writer().text(languageCode).countedText(name).countedText(text).get());
}

Bytes content(unsigned nibbles, unsigned userNibbles)
{
    return descriptor(0x54, Writer().u8(nibbles).u8(userNibbles).get());
}

Bytes parentalRating(std::string_view country, unsigned rating)
{
    return descriptor(0x55, Writer().text(country).u8(rating).get());
}

Bytes component(unsigned streamContent, unsigned type, unsigned tag, std::string_view languageCode,
                std::string_view text)
{
    return descriptor(
        0x50,
        Writer().u8(0xF0 | streamContent).u8(type).u8(tag).text(languageCode).text(text).get());
}

Bytes teletext(std::string_view languageCode, unsigned type, unsigned magazine, unsigned page)
{
    return descriptor(0x56, Writer().text(languageCode).u8(type << 3 | magazine).u8(page).get());
}

Bytes linkage(unsigned stream, unsigned network, unsigned serviceId, unsigned type)
{
    return descriptor(0x4A, Writer().u16(stream).u16(network).u16(serviceId).u8(type).get());
}

Bytes localTimeOffset(std::string_view country, unsigned hours)
{
    constexpr unsigned kLastDay = 0xFFFF;
    return descriptor(0x58, Writer()
                                .text(country)
                                .u8(0x02)
                                .bcd(hours * 100, 4)
                                .u16(kLastDay)
                                .bcd(0, 6)
                                .bcd(hours * 100, 4)
                                .get());
}

} // namespace test
