#include "model/service_entry.h"

namespace tessaview {

const lib13818::SdtService* findService(const SdtMap& sdt, std::optional<std::uint32_t> network,
                                        std::uint32_t transport_stream_id, std::uint32_t service_id,
                                        bool isDescribed)
{
    for (const auto& [id, streams] : sdt) {
        const auto sections = streams.find(transport_stream_id);
        if (sections == streams.end() || id != network.value_or(id))
            continue;
        for (const auto& [number, section] : sections->second)
            for (const lib13818::SdtService& service : section.services)
                if (static_cast<std::uint32_t>(service.service_id) == service_id &&
                    (!isDescribed || serviceDescriptorOf(&service)))
                    return &service;
    }
    return nullptr;
}

std::optional<lib13818::DescriptorService> serviceDescriptorOf(const lib13818::SdtService* entry)
{
    return entry ? entry->descriptors.all<lib13818::DescriptorService>().first() : std::nullopt;
}

} // namespace tessaview
