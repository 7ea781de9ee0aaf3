#include "tests/support/scripted_driver.h"

#include "component/bstr.h"
#include "component/task_memory.h"

#include <algorithm>
#include <iterator>

namespace test {

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace): the driver's own contract

SectionList handOver(const std::vector<Bytes>& sections)
{
    if (sections.empty())
        return {};
    auto** array =
        static_cast<std::uint8_t**>(TessaviewTaskMemAlloc(sections.size() * sizeof(std::uint8_t*)));
    for (std::size_t i = 0; i < sections.size(); ++i) {
        array[i] = static_cast<std::uint8_t*>(TessaviewTaskMemAlloc(sections[i].size()));
        std::copy(sections[i].begin(), sections[i].end(), array[i]);
    }
    return {.count = static_cast<std::int32_t>(sections.size()), .sections = array};
}

} // namespace

std::string tunedText(const TuningCall& call)
{
    if (const auto* s = std::get_if<SatelliteTuning>(&call.record))
        return call.satellite + " " + std::to_string(s->frequency);
    if (const auto* c = std::get_if<CableTuning>(&call.record))
        return "cable " + std::to_string(c->frequency);
    return "terrestrial " +
           std::to_string(std::get<TerrestrialTuning>(call.record).centre_frequency);
}

Status ScriptedDriver::called(const char* operation)
{
    int time = 0;
    Status answer = status::kOk;
    {
        const std::lock_guard lock(mutex_);
        calls.emplace_back(operation);
        time = times_[operation]++;
        for (const int each : {kAlways, time})
            if (const auto found = answers_.find({operation, each}); found != answers_.end())
                answer = found->second;
    }
    if (duringCall)
        duringCall(operation, time);
    return answer;
}

std::vector<std::string> ScriptedDriver::callsOf(std::string_view beginning) const
{
    const std::lock_guard lock(mutex_);
    std::vector<std::string> found;
    std::copy_if(calls.begin(), calls.end(), std::back_inserter(found),
                 [&](const std::string& call) { return call.starts_with(beginning); });
    return found;
}

Status ScriptedDriver::calledForLong(const char* operation)
{
    const Status result = called(operation);
    return isInterrupted && !failed(result) ? status::kFail : result;
}

Status ScriptedDriver::SetInterrupted(std::int32_t interrupted) noexcept
{
    const Status result = called(interrupted != 0 ? "interrupt" : "go on");
    isInterrupted = interrupted != 0;
    isInterrupted.notify_all();
    return result;
}

Status ScriptedDriver::QueryInterface(const Guid& iid, void** object) noexcept
{
    if (std::find(missing.begin(), missing.end(), iid) != missing.end()) {
        *object = nullptr;
        return status::kNoInterface;
    }
    return Implements::QueryInterface(iid, object);
}

Status ScriptedDriver::GetName(char16_t** name) noexcept
{
    const Status result = called("GetName");
    if (!failed(result))
        *name = Bstr(std::string_view(driverName)).release();
    return result;
}

Status ScriptedDriver::Initialize(const char16_t* /*key*/, const char16_t* /*user*/,
                                  const char16_t* /*common*/) noexcept
{
    return called("Initialize");
}

Status ScriptedDriver::Shutdown() noexcept
{
    return called("Shutdown");
}

Status ScriptedDriver::GetTunerType(std::uint16_t* type) noexcept
{
    ++rounds;
    const Status result = called("GetTunerType");
    *type = static_cast<std::uint16_t>(tunerType);
    return result;
}

Status ScriptedDriver::SetSatListManager(ISatListManager* /*manager*/) noexcept
{
    return called("SetSatListManager");
}

template <class Record>
Status ScriptedDriver::tune(const char* operation, TuningCall call, std::uint32_t frequency,
                            Record& current)
{
    const Record record = std::get<Record>(call.record);
    tunings.push_back(std::move(call));
    const Status result = calledForLong(operation);
    if (failed(result))
        return result;
    current = record;
    if (const auto stream = streams.find(frequency); stream != streams.end())
        air = stream->second;
    return result;
}

Status ScriptedDriver::SetSatelliteTuning(WindowHandle owner, const char16_t* name,
                                          const SatelliteTuning* tuning) noexcept
{
    const std::string wanted = bstrToUtf8(name);
    const Status result =
        tune("SetSatelliteTuning", {.satellite = wanted, .record = *tuning, .owner = owner},
             tuning->frequency, satelliteTuning);
    if (!failed(result))
        satellite = wanted;
    return result;
}

Status ScriptedDriver::SetCableTuning(WindowHandle owner, const CableTuning* tuning) noexcept
{
    return tune("SetCableTuning", {.satellite = {}, .record = *tuning, .owner = owner},
                tuning->frequency, cableTuning);
}

Status ScriptedDriver::SetTerrestrialTuning(WindowHandle owner,
                                            const TerrestrialTuning* tuning) noexcept
{
    return tune("SetTerrestrialTuning", {.satellite = {}, .record = *tuning, .owner = owner},
                tuning->centre_frequency, terrestrialTuning);
}

Status ScriptedDriver::GetSatelliteTuning(char16_t** name, SatelliteTuning* tuning) noexcept
{
    const Status result = called("GetSatelliteTuning");
    if (failed(result))
        return result;
    *name = Bstr(std::string_view(satellite)).release();
    *tuning = satelliteTuning;
    return result;
}

Status ScriptedDriver::GetCableTuning(CableTuning* tuning) noexcept
{
    const Status result = called("GetCableTuning");
    if (!failed(result))
        *tuning = cableTuning;
    return result;
}

Status ScriptedDriver::GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept
{
    const Status result = called("GetTerrestrialTuning");
    if (!failed(result))
        *tuning = terrestrialTuning;
    return result;
}

Status ScriptedDriver::ReadTables(std::uint32_t count, const TableRequest* requests,
                                  std::uint32_t waitLimit, SectionList* results) noexcept
{
    batches.emplace_back(requests, requests + count);
    waitLimits.push_back(waitLimit);
    const Status result = calledForLong("ReadTables");
    if (!failed(result))
        for (std::uint32_t i = 0; i < count; ++i) {
            const TableRequest& request = requests[i];
            const auto sections = air.find({.PID = request.PID,
                                            .table_id = request.table_id,
                                            .extension = request.match_table_id_extension != 0
                                                             ? request.table_id_extension
                                                             : -1});
            results[i] = sections == air.end() ? SectionList{} : handOver(sections->second);
        }
    if (spoil)
        spoil({results, count});
    return result;
}

Status ScriptedDriver::IsLocked(std::int32_t* flag) noexcept
{
    *flag = locked;
    return called("IsLocked");
}

Status ScriptedDriver::GetStatusText(char16_t** text) noexcept
{
    static char16_t rubbish[] = u"not to be freed"; // what a failure may leave
    const Status result = called("GetStatusText");
    *text = failed(result) ? rubbish : Bstr(std::string_view(statusText)).release();
    return result;
}

Status ScriptedDriver::GetReadProblem(char16_t** problem) noexcept
{
    *problem = Bstr(std::string_view(readProblem)).release();
    return status::kOk;
}

} // namespace test
