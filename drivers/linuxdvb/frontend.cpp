#include "drivers/linuxdvb/frontend.h"

#include "platform/format.h"
#include "tuning/tuning_text.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

namespace tessaview {

namespace {

using std::chrono::milliseconds;

// What the DiSEqC bus specification asks for between a change on the line and a message, and about
// what switches need after one.
constexpr milliseconds kVoltageSettles{20};
constexpr milliseconds kMessageSettles{100};

constexpr milliseconds kStatusInterval{50};

/// Receivers whose cable is not theirs to feed cannot do some of these things; what they need is
/// then done elsewhere.
bool isUnsupported(int result)
{
    return result == -EOPNOTSUPP || result == -ENOTTY || result == -ENOSYS;
}

} // namespace

Frontend::Frontend(Kernel& kernel, DeviceId id)
    : device_(kernel, id.name(), O_RDWR | O_NONBLOCK)
    , facts_(factsOf(device_, id))
{
}

void Frontend::point(const DishPlan& plan, const StopRequested& stop) const
{
    const auto step = [&](const char* name, int result) {
        if (result < 0 && !isUnsupported(result))
            throw device_.error(name, result);
    };
    step("switching the 22 kHz tone", device_.controlValue(FE_SET_TONE, SEC_TONE_OFF));
    step(
        "switching the LNB's voltage",
        device_.controlValue(FE_SET_VOLTAGE, plan.isHighVoltage ? SEC_VOLTAGE_18 : SEC_VOLTAGE_13));
    pause(device_.kernel(), kVoltageSettles, stop);
    for (const auto& message : plan.messages) {
        dvb_diseqc_master_cmd command{};
        std::copy(message.begin(), message.end(), std::begin(command.msg));
        command.msg_len = static_cast<std::uint8_t>(message.size());
        step("switching by DiSEqC", device_.control(FE_DISEQC_SEND_MASTER_CMD, command));
        pause(device_.kernel(), kMessageSettles, stop);
    }
    if (plan.hasTone)
        step("switching the 22 kHz tone", device_.controlValue(FE_SET_TONE, SEC_TONE_ON));
}

void Frontend::send(const Attempt& attempt) const
{
    std::vector<dtv_property> properties;
    const auto add = [&](std::uint32_t command, std::uint32_t value) {
        dtv_property property{};
        property.cmd = command;
        property.u.data = value;
        properties.push_back(property);
    };
    add(DTV_CLEAR, 0);
    add(DTV_DELIVERY_SYSTEM, attempt.system);
    for (const auto& [command, value] : attempt.properties)
        add(command, value);
    add(DTV_TUNE, 0);
    dtv_properties all{.num = static_cast<std::uint32_t>(properties.size()),
                       .props = properties.data()};
    const int result = device_.control(FE_SET_PROPERTY, all);
    const std::string step = std::string("tuning to ") + systemName(attempt.system);
    if (result == -EINVAL)
        throw DeviceError(
            device_.name() + ": " + step +
                ": the receiver refuses the parameters; is the frequency in its range?",
            EINVAL);
    if (result < 0)
        throw device_.error(step, result);
}

bool Frontend::locksWithin(milliseconds limit, const StopRequested& stop) const
{
    const Kernel::Clock::time_point end = device_.kernel().now() + limit;
    for (;;) {
        fe_status_t status{};
        if (const int result = device_.control(FE_READ_STATUS, status); result < 0)
            throw device_.error("waiting for the lock", result);
        if ((status & FE_HAS_LOCK) != 0)
            return true;
        if (device_.kernel().now() >= end)
            return false;
        pause(device_.kernel(), kStatusInterval, stop);
    }
}

DeviceError Frontend::noSignal(const Channel& channel, milliseconds waited) const
{
    return {formatted("%s: no signal at %s within %g s", device_.name().c_str(),
                      tuningName(channel.tuning).c_str(),
                      std::chrono::duration<double>(waited).count()),
            0};
}

fe_delivery_system Frontend::tune(const Channel& channel, const Dish& dish, milliseconds lockLimit,
                                  const StopRequested& stop)
{
    DishPlan plan;
    const auto* const satellite = std::get_if<SatelliteTuning>(&channel.tuning);
    if (satellite)
        plan = planFor(dish, *satellite);
    const std::vector<Attempt> attempts = attemptsFor(channel, facts_, plan.frequency);
    if (attempts.empty())
        throw DeviceError(device_.name() + ": no receiver for " + tuningName(channel.tuning) +
                              "; choose another under Device, Settings...",
                          0);
    if (satellite)
        point(plan, stop);
    milliseconds waited{0};
    for (std::size_t i = 0; i < attempts.size(); ++i) {
        try {
            send(attempts[i]);
        } catch (const DeviceError& e) {
            if (e.error() == EINVAL && i + 1 < attempts.size())
                continue; // a parameter that this delivery system cannot have
            throw;
        }
        // What it may still say at once is about the channel before.
        pause(device_.kernel(), kStatusInterval, stop);
        if (locksWithin(lockLimit, stop))
            return attempts[i].system;
        waited += lockLimit;
    }
    throw noSignal(channel, waited);
}

} // namespace tessaview
