#include "drivers/linuxdvb/linuxdvb_driver.h"

#include "component/bstr.h"
#include "drivers/common/answers.h"
#include "drivers/linuxdvb/status_text.h"

#include <cerrno>
#include <utility>

namespace tessaview {

namespace {

constexpr const char* kName = "Linux DVB";

/// What a failure of the device means to the caller; the text is in the status.
Status statusOf(const DeviceError& error)
{
    switch (error.error()) {
    case EACCES:
    case EPERM:
        return status::kAccessDenied;
    case EBUSY:
        return status::kNotReady;
    default:
        return error.isGone() ? status::kNotFound : status::kFail;
    }
}

} // namespace

Status LinuxDvbDriver::GetName(char16_t** name) noexcept
{
    return guarded([&] { return giveText(kName, name); });
}

Status LinuxDvbDriver::Initialize(const char16_t* settingsKey, const char16_t* /*userFolder*/,
                                  const char16_t* /*commonFolder*/) noexcept
{
    return guarded([&] {
        tuner_.open(bstrToUtf8(settingsKey));
        return status::kOk;
    });
}

Status LinuxDvbDriver::Shutdown() noexcept
{
    return guarded([&] {
        tuner_.close();
        return status::kOk;
    });
}

Status LinuxDvbDriver::GetTunerType(std::uint16_t* type) noexcept
{
    return guarded([&] {
        if (!type)
            return status::kNullPointer;
        const auto known = tuner_.state().type;
        if (!known)
            return status::kNotFound;
        *type = static_cast<std::uint16_t>(*known);
        return status::kOk;
    });
}

Status LinuxDvbDriver::SetSatListManager(ISatListManager* manager) noexcept
{
    return guarded([&] {
        tuner_.setSatelliteList(manager);
        return status::kOk;
    });
}

template <class Record>
Status LinuxDvbDriver::tune(const std::string& satellite, const Record* tuning)
{
    if (!tuning)
        return status::kNullPointer;
    try {
        tuner_.tune({.satellite = satellite, .tuning = *tuning, .s2 = {}});
        return status::kOk;
    } catch (const DeviceError& e) {
        return statusOf(e);
    } catch (const Interrupted&) {
        return status::kCancelled;
    }
}

Status LinuxDvbDriver::SetSatelliteTuning(WindowHandle /*owner*/, const char16_t* satellite,
                                          const SatelliteTuning* tuning) noexcept
{
    return guarded([&] { return tune(bstrToUtf8(satellite), tuning); });
}

Status LinuxDvbDriver::SetCableTuning(WindowHandle /*owner*/, const CableTuning* tuning) noexcept
{
    return guarded([&] { return tune({}, tuning); });
}

Status LinuxDvbDriver::SetTerrestrialTuning(WindowHandle /*owner*/,
                                            const TerrestrialTuning* tuning) noexcept
{
    return guarded([&] { return tune({}, tuning); });
}

template <class Record>
Status LinuxDvbDriver::getTuning(Record* tuning, std::string* satellite) const
{
    if (!tuning)
        return status::kNullPointer;
    const DvbState now = tuner_.state();
    const auto* const current = now.channel ? std::get_if<Record>(&now.channel->tuning) : nullptr;
    if (!current)
        return status::kNotReady;
    *tuning = *current;
    if (satellite)
        *satellite = now.channel->satellite;
    return status::kOk;
}

Status LinuxDvbDriver::GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept
{
    return guarded([&] {
        if (!satellite)
            return status::kNullPointer;
        *satellite = nullptr;
        std::string name;
        const Status result = getTuning(tuning, &name);
        return failed(result) ? result : giveText(name, satellite);
    });
}

Status LinuxDvbDriver::GetCableTuning(CableTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(tuning); });
}

Status LinuxDvbDriver::GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(tuning); });
}

Status LinuxDvbDriver::ReservedSlot1() noexcept
{
    return status::kNotImplemented;
}

/// The wait limit is in seconds.
Status LinuxDvbDriver::ReadTables(std::uint32_t count, const TableRequest* requests,
                                  std::uint32_t waitLimit, SectionList* results) noexcept
{
    if (count == 0)
        return status::kOk;
    if (!requests || !results)
        return status::kNullPointer;
    return guarded([&] {
        try {
            ReadAnswers answers = tuner_.read({requests, count}, std::chrono::seconds(waitLimit));
            giveSections(answers.lists, results);
            return status::kOk;
        } catch (const DeviceError& e) {
            return statusOf(e);
        } catch (const Interrupted&) {
            return status::kCancelled;
        }
    });
}

Status LinuxDvbDriver::show(DriverDialog dialog, WindowHandle owner)
{
    std::string problem;
    const Status result = dialogs_.show(dialog, &tuner_, owner, problem);
    if (!problem.empty())
        tuner_.report(std::move(problem));
    return result;
}

Status LinuxDvbDriver::ShowTuningDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Tune, owner); });
}

Status LinuxDvbDriver::ShowSettingsDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Settings, owner); });
}

Status LinuxDvbDriver::ShowStreamingDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Streaming, owner); });
}

Status LinuxDvbDriver::IsLocked(std::int32_t* locked) noexcept
{
    return guarded([&] {
        if (!locked)
            return status::kNullPointer;
        const auto signal = tuner_.signal();
        *locked = tuner_.state().system && signal && signal->isLocked() ? 1 : 0;
        return status::kOk;
    });
}

Status LinuxDvbDriver::ReservedSlot2() noexcept
{
    return status::kNotImplemented;
}

Status LinuxDvbDriver::ReservedSlot3() noexcept
{
    return status::kNotImplemented;
}

Status LinuxDvbDriver::GetStatusText(char16_t** text) noexcept
{
    return guarded([&] {
        const auto signal = tuner_.signal();
        return giveText(statusText(tuner_.state(), signal), text);
    });
}

Status LinuxDvbDriver::SetInterrupted(std::int32_t interrupted) noexcept
{
    return guarded([&] {
        tuner_.setInterrupted(interrupted != 0);
        return status::kOk;
    });
}

Status LinuxDvbDriver::GetReadProblem(char16_t** problem) noexcept
{
    return guarded([&] { return giveText(tuner_.state().problem, problem); });
}

} // namespace tessaview
