#include "drivers/capture/capture_driver.h"

#include "component/bstr.h"
#include "component/path_text.h"
#include "drivers/capture/packet_file.h"
#include "drivers/capture/status_text.h"
#include "drivers/common/answers.h"

namespace tessaview {

namespace {

constexpr const char* kName = "Captured transport streams";

std::string joinedLines(const std::vector<CaptureProblem>& problems)
{
    std::string text;
    for (const CaptureProblem& problem : problems) {
        if (!text.empty())
            text += '\n';
        text += problem.line();
    }
    return text;
}

/// Work that may be interrupted.
template <class Work>
Status interruptible(Work work) noexcept
{
    return guarded([&] {
        try {
            return work();
        } catch (const Interrupted&) {
            return status::kCancelled;
        }
    });
}

} // namespace

Status CaptureDriver::GetName(char16_t** name) noexcept
{
    return guarded([&] { return giveText(kName, name); });
}

Status CaptureDriver::Initialize(const char16_t* settingsKey, const char16_t* /*userFolder*/,
                                 const char16_t* /*commonFolder*/) noexcept
{
    return interruptible([&] {
        tuner_.open(bstrToUtf8(settingsKey));
        return status::kOk;
    });
}

Status CaptureDriver::Shutdown() noexcept
{
    return status::kOk;
}

Status CaptureDriver::GetTunerType(std::uint16_t* type) noexcept
{
    return guarded([&] {
        if (!type)
            return status::kNullPointer;
        *type = static_cast<std::uint16_t>(tuner_.state().type());
        return status::kOk;
    });
}

Status CaptureDriver::SetSatListManager(ISatListManager* /*manager*/) noexcept
{
    return status::kOk; // captures say themselves where they come from
}

Status CaptureDriver::SetSatelliteTuning(WindowHandle /*owner*/, const char16_t* satellite,
                                         const SatelliteTuning* tuning) noexcept
{
    return guarded([&] {
        return tuning ? tuner_.tune(*tuning, bstrToUtf8(satellite)) : status::kNullPointer;
    });
}

Status CaptureDriver::SetCableTuning(WindowHandle /*owner*/, const CableTuning* tuning) noexcept
{
    return guarded([&] { return tuning ? tuner_.tune(*tuning) : status::kNullPointer; });
}

Status CaptureDriver::SetTerrestrialTuning(WindowHandle /*owner*/,
                                           const TerrestrialTuning* tuning) noexcept
{
    return guarded([&] { return tuning ? tuner_.tune(*tuning) : status::kNullPointer; });
}

/// The record of a capture. One that carries none has no answer: zeros would be shown and stored
/// as if it had been received so.
template <class Record>
Status CaptureDriver::getTuning(const Capture* capture, Record* tuning) const
{
    if (!tuning)
        return status::kNullPointer;
    if (!capture)
        return status::kNotReady;
    const auto* const own = std::get_if<Record>(&capture->tuning);
    if (!own)
        return status::kNotFound;
    *tuning = *own;
    return status::kOk;
}

Status CaptureDriver::GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept
{
    return guarded([&] {
        if (!satellite)
            return status::kNullPointer;
        *satellite = nullptr;
        const TunerState now = tuner_.state();
        const Status result = getTuning(now.capture(), tuning);
        return failed(result) ? result : giveText(now.capture()->satellite, satellite);
    });
}

Status CaptureDriver::GetCableTuning(CableTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(tuner_.state().capture(), tuning); });
}

Status CaptureDriver::GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(tuner_.state().capture(), tuning); });
}

Status CaptureDriver::ReservedSlot1() noexcept
{
    return status::kNotImplemented;
}

/// A capture's whole time is there at once: the wait limit has no meaning.
Status CaptureDriver::ReadTables(std::uint32_t count, const TableRequest* requests,
                                 std::uint32_t /*waitLimit*/, SectionList* results) noexcept
{
    if (count == 0)
        return status::kOk;
    if (!requests || !results)
        return status::kNullPointer;
    return interruptible([&] {
        if (!tuner_.state().capture())
            return status::kNotReady;
        try {
            Answers answers = tuner_.read({requests, count});
            giveSections(answers.lists, results);
            return status::kOk;
        } catch (const CaptureError&) {
            return status::kNotFound;
        }
    });
}

Status CaptureDriver::show(DriverDialog dialog, WindowHandle owner)
{
    std::string problem;
    const Status result = dialogs_.show(dialog, &tuner_, owner, problem);
    if (!problem.empty())
        tuner_.report(std::move(problem));
    return result;
}

Status CaptureDriver::ShowTuningDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Tune, owner); });
}

Status CaptureDriver::ShowSettingsDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Settings, owner); });
}

Status CaptureDriver::ShowStreamingDialog(WindowHandle owner) noexcept
{
    return guarded([&] { return show(DriverDialog::Streaming, owner); });
}

Status CaptureDriver::IsLocked(std::int32_t* locked) noexcept
{
    return guarded([&] {
        if (!locked)
            return status::kNullPointer;
        *locked = tuner_.state().capture() ? 1 : 0;
        return status::kOk;
    });
}

Status CaptureDriver::ReservedSlot2() noexcept
{
    return status::kNotImplemented;
}

Status CaptureDriver::ReservedSlot3() noexcept
{
    return status::kNotImplemented;
}

Status CaptureDriver::GetStatusText(char16_t** text) noexcept
{
    return guarded([&] { return giveText(statusText(tuner_.state()), text); });
}

Status CaptureDriver::SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                                     char16_t** problem) noexcept
{
    return interruptible([&] {
        if (problem)
            *problem = nullptr;
        if (!paths && count > 0)
            return status::kNullPointer;
        std::vector<std::filesystem::path> files;
        for (std::uint32_t i = 0; i < count; ++i)
            files.push_back(pathFromText(bstrToUtf8(paths[i])));
        CaptureSet set = tuner_.look(files);
        if (problem && !set.problems.empty())
            giveText(joinedLines(set.problems), problem);
        if (set.captures.empty())
            return status::kNotFound;
        tuner_.use(std::move(set));
        return status::kOk;
    });
}

Status CaptureDriver::GetSourceCount(std::uint32_t* count) noexcept
{
    return guarded([&] {
        if (!count)
            return status::kNullPointer;
        *count = static_cast<std::uint32_t>(tuner_.state().set->captures.size());
        return status::kOk;
    });
}

Status CaptureDriver::GetCurrentSource(std::uint32_t* index) noexcept
{
    return guarded([&] {
        if (!index)
            return status::kNullPointer;
        const TunerState now = tuner_.state();
        if (!now.current)
            return status::kNotReady;
        *index = static_cast<std::uint32_t>(*now.current);
        return status::kOk;
    });
}

Status CaptureDriver::GetSourceName(std::uint32_t index, char16_t** name) noexcept
{
    return guarded([&] {
        if (!name)
            return status::kNullPointer;
        *name = nullptr;
        const TunerState now = tuner_.state();
        return index < now.set->captures.size()
                   ? giveText(now.set->captures[index].file.string(), name)
                   : status::kInvalidArgument;
    });
}

Status CaptureDriver::SelectSource(std::uint32_t index) noexcept
{
    return guarded([&] { return tuner_.select(index); });
}

Status CaptureDriver::GetReadProblem(char16_t** problem) noexcept
{
    return guarded([&] { return giveText(tuner_.state().problem, problem); });
}

Status CaptureDriver::SetInterrupted(std::int32_t interrupted) noexcept
{
    tuner_.setInterrupted(interrupted != 0);
    return status::kOk;
}

Status CaptureDriver::GetReadProgress(std::uint64_t* position, std::uint64_t* total) noexcept
{
    return guarded([&] {
        if (!position || !total)
            return status::kNullPointer;
        const CaptureTuner::Progress now = tuner_.progress();
        *position = now.position;
        *total = now.total;
        return status::kOk;
    });
}

} // namespace tessaview
