#include "si/texts/registry.h"

namespace lib13818 {

namespace {

// clang-format off
// data_broadcast_id (ETSI TS 101 162).
constexpr RegistryRow kDataBroadcasts[] = {
    {0x0000, 0x0000, "Reserved for future use"},
    {0x0001, 0x0001, "Data pipe"},
    {0x0002, 0x0002, "Asynchronous data stream"},
    {0x0003, 0x0003, "Synchronous data stream"},
    {0x0004, 0x0004, "Synchronised data stream"},
    {0x0005, 0x0005, "Multi protocol encapsulation"},
    {0x0006, 0x0006, "Data Carousel"},
    {0x0007, 0x0007, "Object Carousel"},
    {0x0008, 0x0008, "DVB ATM streams"},
    {0x0009, 0x0009, "Higher Protocols based on asynchronous data streams"},
    {0x000A, 0x00EF, "Reserved for future use by DVB"},
    {0x00F0, 0x00F0, "MHP Object Carousel"},
    {0x00F1, 0x00F1, "reserved for MHP Multi Protocol Encapsulation"},
    {0x00F2, 0x00FE, "Reserved for MHP use"},
    {0x00FF, 0x00FF, "Reserved for future use by DVB"},
    {0x0100, 0x0100, "Eutelsat Data Piping"},
    {0x0101, 0x0101, "Eutelsat Data Streaming"},
    {0x0102, 0x0102, "SAGEM IP encapsulation in MPEG-2 PES packets"},
    {0x0103, 0x0103, "BARCO Data Broadcasting"},
    {0x0104, 0x0104, "CyberCity Multiprotocol Encapsulation (New Media Communications Ltd.)"},
    {0x0105, 0x0105, "CyberSat Multiprotocol Encapsulation (New Media Communications Ltd.)"},
    {0x0106, 0x0106, "The Digital Network\xA0"},
    {0x0107, 0x0107, "OpenTV Data Carousel\xA0"},
    {0x0108, 0x0108, "Panasonic \xA0"},
    {0x0109, 0x0109, "MSG MediaServices GmbH  \xA0"},
    {0x010A, 0x010A, "TechnoTrend"},
    {0x0110, 0x0110, "Televizja Polsat \xA0"},
    {0x0111, 0x0111, "UK DTG \xA0"},
    {0x0112, 0x0112, "SkyMedia \xA0"},
    {0x0113, 0x0113, "Intellibyte DataBroadcasting"},
    {0x0114, 0x0114, "TeleWeb Data Carousel"},
    {0x0115, 0x0115, "TeleWeb Object Carousel"},
    {0x0116, 0x0116, "TeleWeb"},
    {0x4E4F, 0x4E4F, "Nokia IP based software delivery"},
    {0xBBB1, 0xBBB1, "BBG Data Caroussel \xA0"},
    {0xBBB2, 0xBBB2, "BBG Object Caroussel \xA0"},
    {0xBBBB, 0xBBBB, "Bertelsmann Broadband Group \xA0"},
    {0xFFFF, 0xFFFF, "Reserved for future use"},
};
// clang-format on

} // namespace

const Registry& dataBroadcasts()
{
    static const Registry registry(kDataBroadcasts);
    return registry;
}

} // namespace lib13818
