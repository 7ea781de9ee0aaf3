#include "si/texts/registry.h"

namespace lib13818 {

namespace {

// clang-format off
// CA_system_id (ETSI TS 101 162).
constexpr RegistryRow kCaSystems[] = {
    {0x0000, 0x0000, "Reserved"},
    {0x0001, 0x00FF, "Standardized systems"},
    {0x0100, 0x01FF, "Canal Plus"},
    {0x0200, 0x02FF, "CCETT"},
    {0x0300, 0x03FF, "MSG MediaServices GmbH &nbsp;"},
    {0x0400, 0x04FF, "Eurodec"},
    {0x0500, 0x05FF, "France Telecom"},
    {0x0600, 0x06FF, "Irdeto"},
    {0x0700, 0x07FF, "Jerrold/GI/Motorola &nbsp;"},
    {0x0800, 0x08FF, "Matra Communication"},
    {0x0900, 0x09FF, "News Datacom"},
    {0x0A00, 0x0AFF, "Nokia"},
    {0x0B00, 0x0BFF, "Norwegian Telekom"},
    {0x0C00, 0x0CFF, "NTL"},
    {0x0D00, 0x0DFF, "Philips"},
    {0x0E00, 0x0EFF, "Scientific Atlanta"},
    {0x0F00, 0x0FFF, "Sony"},
    {0x1000, 0x10FF, "Tandberg Television"},
    {0x1100, 0x11FF, "Thomson"},
    {0x1200, 0x12FF, "TV/Com"},
    {0x1300, 0x13FF, "HPT - Croatian Post and Telecommunications"},
    {0x1400, 0x14FF, "HRT - Croatian Radio and Television"},
    {0x1500, 0x15FF, "IBM"},
    {0x1600, 0x16FF, "Nera"},
    {0x1700, 0x17FF, "BetaTechnik"},
    {0x1800, 0x18FF, "Kudelski SA"},
    {0x1900, 0x19FF, "Titan Information Systems"},
    {0x2000, 0x20FF, "Telef\xF3nica Servicios Audiovisuales"},
    {0x2100, 0x21FF, "STENTOR (France Telecom, CNES and DGA)"},
    {0x2200, 0x22FF, "Scopus Network Technologies"},
    {0x2300, 0x23FF, "BARCO AS&nbsp;"},
    {0x2400, 0x24FF, "StarGuide Digital Networks &nbsp;"},
    {0x2500, 0x25FF, "Mentor Data System, Inc&nbsp;."},
    {0x2600, 0x26FF, "European Broadcasting Union &nbsp;"},
    {0x4700, 0x47FF, "General Instrument &nbsp;"},
    {0x4800, 0x48FF, "Telemann &nbsp;"},
    {0x4900, 0x49FF, "Digital TV Industry Alliance of China &nbsp;"},
    {0x4A00, 0x4A0F, "Tsinghua TongFang &nbsp;"},
    {0x4A10, 0x4A1F, "Easycas &nbsp;"},
    {0x4A20, 0x4A2F, "AlphaCrypt &nbsp;"},
    {0x4A30, 0x4A3F, "DVN Holdings"},
    {0x4A40, 0x4A4F, "Shanghai Advanced Digital Technology Co. Ltd. (ADT)"},
    {0x4A50, 0x4A5F, "Shenzhen Kingsky Company (China) Ltd."},
    {0x4A60, 0x4A6F, "@Sky"},
    {0x4A70, 0x4A7F, "Dreamcrypt"},
    {0x4A80, 0x4A8F, "THALESCrypt"},
};
// clang-format on

} // namespace

const Registry& caSystems()
{
    static const Registry registry(kCaSystems);
    return registry;
}

} // namespace lib13818
