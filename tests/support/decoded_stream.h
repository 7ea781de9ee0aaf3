#pragma once

#include "model/network_map.h"
#include "tests/support/bytes.h"

#include <utility>
#include <vector>

namespace test {

namespace stream {

inline void add(tessaview::NitMap& map, lib13818::Nit nit)
{
    map[static_cast<unsigned>(nit.table_id_extension)][static_cast<unsigned>(nit.section_number)] =
        std::move(nit);
}

inline void add(tessaview::SdtMap& map, lib13818::Sdt sdt)
{
    auto& streams = map[static_cast<unsigned>(sdt.original_network_id)];
    streams[static_cast<unsigned>(sdt.table_id_extension)]
           [static_cast<unsigned>(sdt.section_number)] = std::move(sdt);
}

inline void add(tessaview::EitMap& map, lib13818::Eit eit)
{
    auto& services = map[static_cast<unsigned>(eit.original_network_id)]
                        [static_cast<unsigned>(eit.transport_stream_id)];
    services[static_cast<unsigned>(eit.table_id_extension)]
            [static_cast<unsigned>(eit.section_number)] = std::move(eit);
}

template <class Table>
void take(Table& place, const Bytes& section)
{
    place = parsed<Table>(section);
}

} // namespace stream

/// Decodes a section and puts it where it belongs; the stream takes the PAT's identifier.
inline void addSection(tessaview::Transponder& to, const Bytes& section)
{
    using namespace lib13818;
    switch (const unsigned tableId = section.front()) {
    case 0x00:
        stream::take(to.pat, section);
        to.transport_stream_id = static_cast<unsigned>(to.pat.table_id_extension);
        return;
    case 0x01:
        return stream::take(to.cat, section);
    case 0x02:
        return to.pmts.push_back(parsed<Pmt>(section));
    case 0x40:
    case 0x41:
        return stream::add(tableId == 0x40 ? to.nitActual : to.nitOther, parsed<Nit>(section));
    case 0x42:
    case 0x46:
        return stream::add(tableId == 0x42 ? to.sdtActual : to.sdtOther, parsed<Sdt>(section));
    case 0x4A:
        return stream::take(to.bat, section);
    case 0x70:
        return stream::take(to.tdt, section);
    case 0x71:
        return stream::take(to.rst, section);
    case 0x73:
        return stream::take(to.tot, section);
    default:
        return stream::add(tableId == 0x4E   ? to.eitPfActual
                           : tableId == 0x4F ? to.eitPfOther
                           : tableId < 0x60  ? to.eitScheduleActual
                                             : to.eitScheduleOther,
                           parsed<Eit>(section));
    }
}

inline tessaview::Transponder decodedStream(const std::vector<Bytes>& sections)
{
    tessaview::Transponder made;
    for (const Bytes& section : sections)
        addSection(made, section);
    return made;
}

} // namespace test
