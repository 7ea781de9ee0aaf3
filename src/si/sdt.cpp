#include "si/sdt.h"

#include "si/dump.h"

#include <type_traits>

namespace lib13818 {

static_assert(std::is_nothrow_move_constructible_v<SdtService>);

SdtService::SdtService(BitReader& loop)
    : service_id(require(loop, 5).u16())
    , EIT_schedule_flag(loop.skip(6).bits(1))
    , EIT_present_following_flag(loop.bits(1))
    , running_status(loop.bits(3))
    , free_CA_mode(loop.bits(1))
    , descriptors_loop_length(loop.bits(12))
    , descriptors(walkEntry(loop.take(descriptors_loop_length)))
{
}

const char* Sdt::name() const
{
    switch (table_id) {
    case 0x42:
        return "service_description_section - actual_transport_stream";
    case 0x46:
        return "service_description_section - other_transport_stream";
    default:
        return "ERROR";
    }
}

void Sdt::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    original_network_id = require(in, 3).u16();
    in.skip(8);
    while (!in.atEnd())
        services.emplace_back(in);
    requireExactEnd(in);
}

void Sdt::dump(std::ostream& out) const
{
    line(out, "original_network_id ", original_network_id);
    for (const SdtService& service : services) {
        line(out, "service_id ", service.service_id);
        line(out, "EIT_schedule_flag ", service.EIT_schedule_flag);
        line(out, "EIT_present_following_flag ", service.EIT_present_following_flag);
        line(out, "running_status ", service.running_status);
        line(out, "free_CA_mode ", service.free_CA_mode);
        dumpList<LowUserPrivate>(out, service.descriptors);
        dumpList<DescriptorService>(out, service.descriptors);
    }
}

} // namespace lib13818
