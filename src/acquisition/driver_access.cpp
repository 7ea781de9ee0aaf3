#include "acquisition/driver_access.h"

#include "component/received_text.h"
#include "log/log_file.h"
#include "log/output.h"

namespace tessaview {

DriverAccess::DriverAccess(IUnknown* driver)
{
    // A query that fails leaves its pointer null, and that is tested where it is used.
    static_cast<void>(query(driver, reader_));
    static_cast<void>(query(driver, tuner_));
    static_cast<void>(query(driver, control_));
    static_cast<void>(query(driver, status_));
    static_cast<void>(query(driver, report_));
    static_cast<void>(query(driver, sources_));
}

Status DriverAccess::read(SectionBatch& batch, std::span<const TableRequest> requests,
                          bool& mayLackSome) const
{
    if (!reader_)
        return status::kNoInterface;
    const Status result = batch.read(*reader_.get(), requests);
    std::string problem;
    if (!failed(result) && report_)
        static_cast<void>(
            receivedText(problem, [&](char16_t** out) { return report_->GetReadProblem(out); }));
    if (!problem.empty()) {
        mayLackSome = true;
        OutputProblem("The driver reports: %s", problem.c_str());
        LogPrint(g_log, log_level::kInformation, "the driver reports: %s", problem.c_str());
    }
    return result;
}

Status DriverAccess::tunerType(TunerType& type) const
{
    if (!control_)
        return status::kNoInterface;
    std::uint16_t code = 0;
    const Status result = control_->GetTunerType(&code);
    type = static_cast<TunerType>(code);
    return result;
}

Status DriverAccess::currentSetting(TunerType type, TunerSetting& setting) const
{
    return tuner_ ? getSetting(*tuner_.get(), type, setting) : status::kNoInterface;
}

std::string DriverAccess::statusText() const
{
    std::string text;
    if (status_)
        static_cast<void>(
            receivedText(text, [&](char16_t** out) { return status_->GetStatusText(out); }));
    return text;
}

std::uint32_t DriverAccess::sourceCount() const
{
    std::uint32_t count = 0;
    return sources_ && !failed(sources_->GetSourceCount(&count)) ? count : 0;
}

std::optional<std::uint32_t> DriverAccess::currentSource() const
{
    std::uint32_t index = 0;
    if (!sources_ || failed(sources_->GetCurrentSource(&index)))
        return std::nullopt;
    return index;
}

std::string DriverAccess::sourceName(std::uint32_t index) const
{
    std::string name;
    if (sources_)
        static_cast<void>(receivedText(
            name, [&](char16_t** out) { return sources_->GetSourceName(index, out); }));
    return name.empty() ? "source " + std::to_string(index + 1) : name;
}

Status DriverAccess::selectSource(std::uint32_t index) const
{
    return sources_ ? sources_->SelectSource(index) : status::kNoInterface;
}

Status DriverAccess::tune(WindowHandle owner, const TunerSetting& setting) const
{
    return tuner_ ? setTuner(*tuner_.get(), owner, setting) : status::kNoInterface;
}

} // namespace tessaview
