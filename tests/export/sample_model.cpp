#include "tests/export/sample_model.h"

#include "tests/support/decoded_stream.h"
#include "tests/support/tuning_records.h"

#include <string>
#include <utility>

namespace test {

using tessaview::Transponder;

void addSatelliteStream(tessaview::NetworkMap& model, unsigned network,
                        const std::vector<Bytes>& sections)
{
    Transponder stream = decodedStream(sections);
    stream.tuning = satelliteRecord(1218700, 1, 275000, 3);
    model.store(network, std::move(stream));
}

tessaview::NetworkMap manyServices(unsigned streams, unsigned servicesPerStream)
{
    tessaview::NetworkMap model;
    for (unsigned stream = 1; stream <= streams; ++stream) {
        const unsigned network = 1 + (stream - 1) / 10;
        std::vector<Program> programs{{0, 0x0010}};
        std::vector<Service> services;
        std::vector<Bytes> sections{cat({conditionalAccess(0x0500, 0x1F00)})};
        for (unsigned id = 1; id <= servicesPerStream; ++id) {
            const unsigned pid = id * 0x10;
            programs.push_back({id, pid});
            services.push_back({id, {service(1, "Provider", "Service " + std::to_string(id))}});
            sections.push_back(pmt(id, pid + 1, {{2, pid + 1}, {4, pid + 2}},
                                   {conditionalAccess(0x0500, pid + 3, Bytes(20, 0xA5))}));
        }
        sections.push_back(pat(stream, programs));
        sections.push_back(sdt(kSdtActual, stream, network, services));
        addSatelliteStream(model, network, sections);
    }
    return model;
}

} // namespace test
