#include "acquisition/stream_identity.h"

#include "acquisition/section_decoding.h"

#include <utility>

namespace tessaview {

namespace {

/// The first stream of an event table: its original_network_id and transport_stream_id.
std::optional<std::pair<std::uint32_t, std::uint32_t>> firstStream(const EitMap& events)
{
    for (const auto& [network, streams] : events)
        for (const auto& [stream, services] : streams)
            return std::pair(network, stream);
    return std::nullopt;
}

} // namespace

void identifyStream(Transponder& transponder, std::optional<std::uint32_t>& original_network_id)
{
    std::optional<std::uint32_t> stream;
    if (transponder.pat.parsed)
        stream = transponder.transport_stream_id;
    for (const auto& [network, streams] : transponder.sdtActual)
        if (!stream && !streams.empty())
            stream = streams.begin()->first;
    const lib13818::TransportStreamEntry* own = nullptr;
    std::size_t entries = 0;
    for (const auto& [network, sections] : transponder.nitActual)
        for (const auto& [number, nit] : sections)
            for (const auto& entry : nit.transportStreams) {
                ++entries;
                if (!own && (!stream || sectionKey(entry.transport_stream_id) == *stream))
                    own = &entry;
            }
    auto events = firstStream(transponder.eitPfActual);
    if (!events)
        events = firstStream(transponder.eitScheduleActual);
    if (!stream && entries != 1) // then its entry is not known to be its own
        own = nullptr;
    if (!original_network_id && own)
        original_network_id = sectionKey(own->original_network_id);
    if (!original_network_id && events && (!stream || events->second == *stream))
        original_network_id = events->first;
    if (!stream && own)
        stream = sectionKey(own->transport_stream_id);
    if (!stream && events)
        stream = events->second;
    transponder.transport_stream_id = stream.value_or(kLastIdentifier + 1);
}

bool isEmpty(const Transponder& t)
{
    return !t.pat.parsed && !t.cat.parsed && !t.bat.parsed && !t.rst.parsed && !t.tdt.parsed &&
           !t.tot.parsed && t.pmts.empty() && t.nitActual.empty() && t.nitOther.empty() &&
           t.sdtActual.empty() && t.sdtOther.empty() && t.eitPfActual.empty() &&
           t.eitPfOther.empty() && t.eitScheduleActual.empty() && t.eitScheduleOther.empty();
}

} // namespace tessaview
