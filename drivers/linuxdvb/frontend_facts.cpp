#include "drivers/linuxdvb/frontend_facts.h"

#include "platform/number.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <optional>
#include <string_view>

namespace tessaview {

namespace {

struct System {
    fe_delivery_system system;
    TunerType type;
    const char* name;
};

constexpr std::array kSystems{
    System{SYS_DVBS, TunerType::Satellite, "DVB-S"},
    System{SYS_DVBS2, TunerType::Satellite, "DVB-S2"},
    System{SYS_DVBC_ANNEX_A, TunerType::Cable, "DVB-C"},
    System{SYS_DVBC_ANNEX_B, TunerType::Cable, "DVB-C/B"},
    System{SYS_DVBC_ANNEX_C, TunerType::Cable, "DVB-C/C"},
    System{SYS_DVBT, TunerType::Terrestrial, "DVB-T"},
    System{SYS_DVBT2, TunerType::Terrestrial, "DVB-T2"},
};

const System* find(fe_delivery_system system)
{
    const auto* const found = std::find_if(kSystems.begin(), kSystems.end(),
                                           [&](const System& s) { return s.system == system; });
    return found == kSystems.end() ? nullptr : found;
}

/// The number that a name has behind its prefix.
std::optional<unsigned> numberOf(std::string_view name, std::string_view prefix)
{
    if (!name.starts_with(prefix))
        return std::nullopt;
    return wholeNumber<unsigned>(name.substr(prefix.size()));
}

std::vector<unsigned> numbersIn(Kernel& kernel, const std::string& folder, std::string_view prefix)
{
    std::vector<unsigned> numbers;
    for (const std::string& name : kernel.entries(folder))
        if (const auto number = numberOf(name, prefix))
            numbers.push_back(*number);
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

bool FrontendFacts::supports(fe_delivery_system system) const
{
    return std::find(systems.begin(), systems.end(), system) != systems.end();
}

std::vector<TunerType> FrontendFacts::types() const
{
    std::vector<TunerType> found;
    for (const System& each : kSystems)
        if (supports(each.system) && (found.empty() || found.back() != each.type))
            found.push_back(each.type);
    return found;
}

const char* systemName(fe_delivery_system system)
{
    const System* const known = find(system);
    return known ? known->name : "";
}

FrontendFacts factsOf(const Device& frontend, DeviceId id)
{
    FrontendFacts facts{.id = id, .name = {}, .systems = {}, .capabilities = 0, .problem = {}};
    dvb_frontend_info info{};
    if (const int result = frontend.control(FE_GET_INFO, info); result < 0)
        throw frontend.error("asking what it is", result);
    facts.name.assign(std::begin(info.name),
                      std::find(std::begin(info.name), std::end(info.name), '\0'));
    facts.capabilities = info.caps;

    dtv_property property{};
    property.cmd = DTV_ENUM_DELSYS;
    dtv_properties properties{.num = 1, .props = &property};
    if (const int result = frontend.control(FE_GET_PROPERTY, properties); result < 0)
        throw frontend.error("asking for its delivery systems", result);
    const std::size_t count =
        std::min<std::size_t>(property.u.buffer.len, sizeof property.u.buffer.data);
    for (std::size_t i = 0; i < count; ++i)
        facts.systems.push_back(static_cast<fe_delivery_system>(property.u.buffer.data[i]));
    return facts;
}

FrontendFacts factsOf(Kernel& kernel, DeviceId id)
{
    try {
        return factsOf(Device(kernel, id.name(), O_RDONLY | O_NONBLOCK), id);
    } catch (const DeviceError& e) {
        return {.id = id, .name = {}, .systems = {}, .capabilities = 0, .problem = e.what()};
    }
}

std::vector<FrontendFacts> listFrontends(Kernel& kernel)
{
    std::vector<FrontendFacts> found;
    for (const unsigned adapter : numbersIn(kernel, "/dev/dvb", "adapter"))
        for (const unsigned frontend :
             numbersIn(kernel, "/dev/dvb/adapter" + std::to_string(adapter), "frontend"))
            found.push_back(factsOf(kernel, {adapter, frontend}));
    return found;
}

} // namespace tessaview
