#include "si/eit.h"

#include "si/dump.h"
#include "si/error.h"

#include <type_traits>

namespace lib13818 {

namespace {

constexpr int kEventHeaderBytes = 12;

} // namespace

static_assert(std::is_nothrow_move_constructible_v<EitEvent>);

EitEvent::EitEvent(BitReader& loop)
    : event_id(loop.u16())
    , start_time(loop)
    , duration(loop)
    , running_status(loop.bits(3))
    , free_CA_mode(loop.bits(1))
    , descriptors_loop_length(loop.bits(12))
    , descriptors(walkEntry(loop.take(descriptors_loop_length)))
{
}

const char* Eit::name() const
{
    if (table_id == 0x4E)
        return "event_information_section - actual_transport_stream, present/following";
    if (table_id == 0x4F)
        return "event_information_section - other_transport_stream, present/following";
    if (table_id >= 0x50 && table_id <= 0x5F)
        return "event_information_section - actual_transport_stream, schedule";
    if (table_id >= 0x60 && table_id <= 0x6F)
        return "event_information_section - other_transport_stream, schedule";
    return "<unknown>";
}

void Eit::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    transport_stream_id = require(in, 6).u16();
    original_network_id = in.u16();
    segment_last_section_number = in.u8();
    last_table_id = in.u8();
    while (!in.atEnd()) {
        if (in.bytesLeft() < kEventHeaderBytes)
            throw error(-1, kStartEndMismatch, in.place());
        events.emplace_back(in);
    }
    requireExactEnd(in);
    events.shrink_to_fit(); // a schedule stays in memory for as long as the model lives
}

void Eit::dump(std::ostream& out) const
{
    line(out, "service_id: ", table_id_extension);
    line(out, "transport_stream_id: ", transport_stream_id);
    line(out, "original_network_id: ", original_network_id);
    line(out, "segment_last_section_number: ", segment_last_section_number);
    line(out, "last_table_id: ", last_table_id);
    for (const EitEvent& event : events) {
        out << std::hex;
        line(out, "event_id: ", event.event_id, 4);
        line(out, "running_status: ", event.running_status);
        line(out, "free_CA_mode: ", event.free_CA_mode);
        line(out, "descriptors_length: ", event.descriptors_loop_length);
        line(out, "start_time: ", event.start_time);
        line(out, "duration: ", event.duration);
    }
}

} // namespace lib13818
