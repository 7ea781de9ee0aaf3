#include "acquisition/satellite_access.h"

#include "component/bstr.h"

namespace tessaview {

namespace {

/// Takes over what a call that answered `result` left in `object`.
template <class Interface>
Status received(Status result, Interface* object, ComPtr<Interface>& out)
{
    out.reset();
    if (failed(result))
        return result;
    out = ComPtr<Interface>::adopt(object);
    return object ? result : status::kNoInterface;
}

} // namespace

Status enumSatellites(ISatListManager* manager, bool selectedOnly, ComPtr<IEnumSatellite>& out)
{
    if (!manager)
        return status::kNoInterface;
    IEnumSatellite* found = nullptr;
    const Status result = manager->EnumSatellites(1, selectedOnly ? 1 : 0, &found);
    return received(result, found, out);
}

Status findSatellite(ISatListManager* manager, const std::string& name, ComPtr<ISatellite>& out)
{
    if (!manager)
        return status::kNoInterface;
    const Bstr text{std::string_view(name)};
    ISatellite* found = nullptr;
    const Status result = manager->GetSatellite(text.get(), &found);
    return received(result, found, out);
}

Status enumTransponders(ISatellite& satellite, ComPtr<IEnumSatTransponder>& out)
{
    IEnumSatTransponder* found = nullptr;
    const Status result = satellite.EnumTransponders(1, &found);
    return received(result, found, out);
}

Status nameOf(ISatellite& satellite, std::string& name)
{
    Bstr text;
    const Status result = satellite.get_Name(text.put());
    if (failed(result))
        static_cast<void>(text.release());
    else
        name = text.utf8();
    return result;
}

std::vector<std::string> satelliteNames(ISatListManager* manager, bool selectedOnly)
{
    std::vector<std::string> names;
    ComPtr<IEnumSatellite> satellites;
    if (failed(enumSatellites(manager, selectedOnly, satellites)))
        return names;
    while (const auto satellite = nextOf<ISatellite>(*satellites.get())) {
        std::string name;
        if (!failed(nameOf(*satellite.get(), name)))
            names.push_back(std::move(name));
    }
    return names;
}

} // namespace tessaview
