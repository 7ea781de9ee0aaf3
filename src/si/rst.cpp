#include "si/rst.h"

#include "si/dump.h"
#include "si/error.h"

namespace lib13818 {

namespace {

constexpr int kEntryBytes = 9;

} // namespace

void Rst::parsePayload(const uint8_t* body)
{
    BitReader in = payload(body);
    while (!in.atEnd()) {
        if (in.bytesLeft() < kEntryBytes)
            throw error(kStartEndMismatch);
        entries.push_back({.transport_stream_id = in.u16(),
                           .original_network_id = in.u16(),
                           .service_id = in.u16(),
                           .event_id = in.u16(),
                           .running_status = in.skip(5).bits(3)});
    }
}

void Rst::dump(std::ostream& out) const
{
    ShortSection::dump(out);
    for (const RunningStatusEntry& entry : entries) {
        line(out, "transport_stream_id: ", entry.transport_stream_id);
        line(out, "original_network_id: ", entry.original_network_id);
        line(out, "service_id: ", entry.service_id);
        line(out, "event_id: ", entry.event_id);
        line(out, "running_status: ", entry.running_status);
    }
}

} // namespace lib13818
