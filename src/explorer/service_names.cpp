#include "explorer/service_names.h"

namespace tessaview {

namespace {

std::optional<std::string_view> nameIn(const lib13818::Sdt& sdt, std::uint32_t service_id)
{
    for (const lib13818::SdtService& service : sdt.services) {
        if (static_cast<std::uint32_t>(service.service_id) != service_id)
            continue;
        if (const auto first = service.descriptors.all<lib13818::DescriptorService>().first())
            return first->service_name;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string_view> lookupServiceName(const Transponder& transponder,
                                                  std::uint32_t original_network_id,
                                                  std::uint32_t transport_stream_id,
                                                  std::uint32_t service_id)
{
    const auto network = transponder.sdtActual.find(original_network_id);
    if (network == transponder.sdtActual.end())
        return std::nullopt;
    const auto stream = network->second.find(transport_stream_id);
    if (stream == network->second.end())
        return std::nullopt;
    for (const auto& [number, sdt] : stream->second)
        if (const auto name = nameIn(sdt, service_id))
            return name;
    return std::nullopt;
}

} // namespace tessaview
