#include "tests/linuxdvb/fake_frontend.h"

#include "platform/format.h"

#include <algorithm>
#include <cerrno>
#include <span>
#include <sys/ioctl.h>
#include <utility>

namespace test {

namespace {

bool isLocked(const FakeFrontend& frontend, milliseconds now)
{
    return !frontend.tunings.empty() && now >= frontend.tunedAt + frontend.lockTime &&
           frontend.receives(frontend.tunings.back());
}

int setProperties(FakeFrontend& frontend, const dtv_properties& properties, milliseconds now)
{
    Tuned tuned;
    for (const dtv_property& property : std::span(properties.props, properties.num))
        tuned[property.cmd] = property.u.data;
    const auto system = static_cast<fe_delivery_system>(tuned[DTV_DELIVERY_SYSTEM]);
    const auto end = frontend.systems.end();
    if (std::find(frontend.systems.begin(), end, system) == end || tuned[DTV_FREQUENCY] == 0)
        return -EINVAL;
    if (frontend.tuneProblem != 0)
        return -frontend.tuneProblem;
    frontend.tunings.push_back(std::move(tuned));
    frontend.tunedAt = now;
    return 0;
}

int getProperties(const FakeFrontend& frontend, const dtv_properties& properties)
{
    for (dtv_property& property : std::span(properties.props, properties.num)) {
        const auto kept = frontend.statistics.find(property.cmd);
        if (property.cmd == DTV_ENUM_DELSYS) {
            property.u.buffer.len = static_cast<__u32>(frontend.systems.size());
            std::copy(frontend.systems.begin(), frontend.systems.end(), property.u.buffer.data);
        } else if (kept != frontend.statistics.end()) {
            property.u.st.len = 1;
            property.u.st.stat[0].scale = kept->second.scale;
            property.u.st.stat[0].svalue = kept->second.value;
        }
    }
    return 0;
}

std::string hexOf(const dvb_diseqc_master_cmd& command)
{
    std::string text;
    for (const unsigned byte : std::span(command.msg, command.msg_len))
        text += tessaview::formatted("%02X", byte);
    return text;
}

} // namespace

int FakeFrontend::open(bool toTune)
{
    if (isGone)
        return -ENOENT;
    if (openProblem != 0)
        return -openProblem;
    return toTune && std::exchange(isInUse, true) ? -EBUSY : 0;
}

int FakeFrontend::control(unsigned long request, std::uintptr_t argument, milliseconds now)
{
    if (isGone)
        return -ENODEV;
    switch (request) {
    case FE_GET_INFO: {
        auto& info = recordAt<dvb_frontend_info>(argument);
        name.copy(info.name, sizeof info.name);
        info.caps = static_cast<fe_caps>(capabilities);
        return 0;
    }
    case FE_GET_PROPERTY:
        return getProperties(*this, recordAt<dtv_properties>(argument));
    case FE_SET_PROPERTY:
        return setProperties(*this, recordAt<dtv_properties>(argument), now);
    case FE_READ_STATUS:
        recordAt<fe_status_t>(argument) =
            isLocked(*this, now) ? static_cast<fe_status_t>(0x1F) : FE_NONE;
        return 0;
    case FE_READ_SIGNAL_STRENGTH:
        recordAt<std::uint16_t>(argument) = 0x8000;
        return 0;
    case FE_READ_SNR:
        recordAt<std::uint16_t>(argument) = 0x4000;
        return 0;
    case FE_SET_TONE:
        lineCalls.emplace_back(argument == SEC_TONE_ON ? "tone on" : "tone off");
        return 0;
    case FE_SET_VOLTAGE:
        lineCalls.emplace_back(argument == SEC_VOLTAGE_18 ? "18 V" : "13 V");
        return -voltageProblem;
    case FE_DISEQC_SEND_MASTER_CMD:
        lineCalls.push_back(hexOf(recordAt<dvb_diseqc_master_cmd>(argument)));
        return 0;
    default:
        return -ENOTTY;
    }
}

} // namespace test
