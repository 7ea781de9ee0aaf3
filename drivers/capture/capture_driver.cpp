#include "drivers/capture/capture_driver.h"

#include "component/path_text.h"
#include "drivers/capture/status_text.h"

namespace tessaview {

namespace {

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

} // namespace

Status CaptureDriver::tune(const Tuning& tuning, const std::string& satellite)
{
    return tuner_.tune(tuning, satellite);
}

std::optional<Tuning> CaptureDriver::tunedTo(std::string& satellite) const
{
    const TunerState now = tuner_.state();
    if (!now.capture())
        return std::nullopt;
    satellite = now.capture()->satellite;
    return now.capture()->tuning;
}

/// A capture's whole time is there at once: the wait limit has no meaning.
Status CaptureDriver::read(std::span<const TableRequest> requests,
                           std::chrono::seconds /*waitLimit*/, Answers& answers)
{
    if (!tuner_.state().capture())
        return status::kNotReady;
    answers = tuner_.read(requests);
    return status::kOk;
}

std::string CaptureDriver::statusLine() const
{
    return statusText(tuner_.state());
}

Status CaptureDriver::SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                                     char16_t** problem) noexcept
{
    return answer([&] {
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
    return answer([&] {
        if (!count)
            return status::kNullPointer;
        *count = static_cast<std::uint32_t>(tuner_.state().set->captures.size());
        return status::kOk;
    });
}

Status CaptureDriver::GetCurrentSource(std::uint32_t* index) noexcept
{
    return answer([&] {
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
    return answer([&] {
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
    return answer([&] { return tuner_.select(index); });
}

Status CaptureDriver::GetReadProgress(std::uint64_t* position, std::uint64_t* total) noexcept
{
    return answer([&] {
        if (!position || !total)
            return status::kNullPointer;
        const CaptureTuner::Progress now = tuner_.progress();
        *position = now.position;
        *total = now.total;
        return status::kOk;
    });
}

} // namespace tessaview
