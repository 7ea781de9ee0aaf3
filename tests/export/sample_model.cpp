#include "tests/export/sample_model.h"

#include "tests/support/tuning_records.h"

#include <string>
#include <utility>

namespace test {

using tessaview::Transponder;

Transponder decoded(const StreamSections& sections)
{
    Transponder stream;
    stream.pat.parse(sections.pat);
    stream.transport_stream_id = static_cast<uint32_t>(stream.pat.table_id_extension);
    if (!sections.cat.empty())
        stream.cat.parse(sections.cat);
    for (const Bytes& section : sections.sdts) {
        lib13818::Sdt sdt;
        sdt.parse(section);
        const auto network = static_cast<uint32_t>(sdt.original_network_id);
        const auto id = static_cast<uint32_t>(sdt.table_id_extension);
        const auto number = static_cast<uint32_t>(sdt.section_number);
        stream.sdtActual[network][id][number] = std::move(sdt);
    }
    for (const Bytes& section : sections.pmts)
        stream.pmts.emplace_back().parse(section);
    return stream;
}

void addSatelliteStream(tessaview::NetworkMap& model, unsigned network,
                        const StreamSections& sections)
{
    Transponder stream = decoded(sections);
    stream.setSatelliteTuning(satelliteRecord(1218700, 1, 275000, 3), "");
    model.store(network, std::move(stream));
}

tessaview::NetworkMap manyServices(unsigned streams, unsigned servicesPerStream)
{
    tessaview::NetworkMap model;
    for (unsigned stream = 1; stream <= streams; ++stream) {
        const unsigned network = 1 + (stream - 1) / 10;
        std::vector<Program> programs{{0, 0x0010}};
        std::vector<Service> services;
        StreamSections sections;
        for (unsigned id = 1; id <= servicesPerStream; ++id) {
            const unsigned pid = id * 0x10;
            programs.push_back({id, pid});
            services.push_back({id, {service(1, "Provider", "Service " + std::to_string(id))}});
            sections.pmts.push_back(pmt(id, pid + 1, {{2, pid + 1}, {4, pid + 2}},
                                        {conditionalAccess(0x0500, pid + 3, Bytes(20, 0xA5))}));
        }
        sections.pat = pat(stream, programs);
        sections.cat = cat({conditionalAccess(0x0500, 0x1F00)});
        sections.sdts = {sdt(kSdtActual, stream, network, services)};
        addSatelliteStream(model, network, sections);
    }
    return model;
}

} // namespace test
