#include "drivers/capture/capture_driver.h"

#include "component/bstr.h"
#include "drivers/capture/packet_file.h"
#include "drivers/capture/section_answers.h"
#include "drivers/capture/status_text.h"
#include "drivers/capture/tuning_match.h"
#include "platform/settings.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr const char* kName = "Captured transport streams";
constexpr const char* kStoredCaptures = "captures";
constexpr const char* kStoredTunerType = "tunertype";

Status giveText(std::string_view utf8, char16_t** out)
{
    if (!out)
        return status::kNullPointer;
    *out = Bstr(utf8).release();
    return status::kOk;
}

/// The tuner type that a tuning record belongs to.
std::optional<TunerType> typeOf(const CaptureTuning& tuning)
{
    switch (tuning.index()) {
    case 1:
        return TunerType::Satellite;
    case 2:
        return TunerType::Cable;
    case 3:
        return TunerType::Terrestrial;
    default:
        return std::nullopt;
    }
}

std::optional<TunerType> tunerType(std::optional<std::uint32_t> stored)
{
    if (!stored || *stored < 1 || *stored > 3)
        return std::nullopt;
    return static_cast<TunerType>(*stored);
}

std::string joinedLines(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    return text;
}

} // namespace

/// That of the stream it is set to, else that of any stream of the set.
TunerType CaptureDriver::State::type() const
{
    if (capture())
        if (const auto own = typeOf(capture()->tuning))
            return *own;
    for (const Capture& each : *captures)
        if (const auto own = typeOf(each.tuning))
            return *own;
    return fallbackType;
}

CaptureDriver::State CaptureDriver::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

/// The first one that could be opened is what the tuner is set to.
void CaptureDriver::setCaptures(std::vector<Capture> captures)
{
    auto shared = std::make_shared<const std::vector<Capture>>(std::move(captures));
    const std::lock_guard lock(mutex_);
    state_.current = shared->empty() ? std::nullopt : std::optional<std::size_t>(0);
    state_.captures = std::move(shared);
}

Status CaptureDriver::GetName(char16_t** name) noexcept
{
    return guarded([&] { return giveText(kName, name); });
}

Status CaptureDriver::Initialize(const char16_t* settingsKey, const char16_t* /*userFolder*/,
                                 const char16_t* /*commonFolder*/) noexcept
{
    return guarded([&] {
        const std::string key = bstrToUtf8(settingsKey);
        const Settings settings(defaultSettingsFile());
        const auto stored = settings.texts(key, kStoredCaptures);
        // A stored capture that has gone is no reason to refuse to start: the tuner has no lock.
        setCaptures(openCaptures({stored.begin(), stored.end()}).captures);
        if (const auto type = tunerType(settings.number(key, kStoredTunerType))) {
            const std::lock_guard lock(mutex_);
            state_.fallbackType = *type;
        }
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
        *type = static_cast<std::uint16_t>(state().type());
        return status::kOk;
    });
}

Status CaptureDriver::SetSatListManager(ISatListManager* /*manager*/) noexcept
{
    return status::kOk; // captures say themselves where they come from
}

Status CaptureDriver::lockOnto(const Captures& captures, std::optional<std::size_t> index)
{
    const std::lock_guard lock(mutex_);
    if (state_.captures != captures)
        return status::kNotReady; // the set was changed meanwhile
    state_.current = index;
    return index ? status::kOk : status::kNotFound;
}

Status CaptureDriver::SetSatelliteTuning(WindowHandle /*owner*/, const char16_t* satellite,
                                         const SatelliteTuning* tuning) noexcept
{
    return guarded([&] {
        if (!tuning)
            return status::kNullPointer;
        const State now = state();
        return lockOnto(now.captures, findCapture(*now.captures, bstrToUtf8(satellite), *tuning));
    });
}

Status CaptureDriver::SetCableTuning(WindowHandle /*owner*/, const CableTuning* tuning) noexcept
{
    return guarded([&] {
        if (!tuning)
            return status::kNullPointer;
        const State now = state();
        return lockOnto(now.captures, findCapture(*now.captures, *tuning));
    });
}

Status CaptureDriver::SetTerrestrialTuning(WindowHandle /*owner*/,
                                           const TerrestrialTuning* tuning) noexcept
{
    return guarded([&] {
        if (!tuning)
            return status::kNullPointer;
        const State now = state();
        return lockOnto(now.captures, findCapture(*now.captures, *tuning));
    });
}

/// The record of the stream it is set to; all zero where that carries none of its own.
template <class Tuning>
Status CaptureDriver::getTuning(TunerType type, Tuning* tuning) const
{
    if (!tuning)
        return status::kNullPointer;
    const State now = state();
    if (!now.capture() || now.type() != type)
        return status::kNotReady;
    const auto* const own = std::get_if<Tuning>(&now.capture()->tuning);
    *tuning = own ? *own : Tuning{};
    return status::kOk;
}

Status CaptureDriver::GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept
{
    return guarded([&] {
        if (!satellite)
            return status::kNullPointer;
        *satellite = nullptr;
        const Status result = getTuning(TunerType::Satellite, tuning);
        const State now = state();
        if (failed(result) || !now.capture())
            return result;
        return giveText(now.capture()->satellite, satellite);
    });
}

Status CaptureDriver::GetCableTuning(CableTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(TunerType::Cable, tuning); });
}

Status CaptureDriver::GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept
{
    return guarded([&] { return getTuning(TunerType::Terrestrial, tuning); });
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
    return guarded([&] {
        const State now = state();
        if (!now.capture())
            return status::kNotReady;
        try {
            const auto answers = readSections(now.capture()->file, {requests, count});
            std::vector<SectionList> lists;
            lists.reserve(answers.size());
            try {
                for (const auto& answer : answers)
                    lists.push_back(toTaskMemory(answer));
            } catch (...) {
                std::for_each(lists.begin(), lists.end(), release);
                throw;
            }
            std::copy(lists.begin(), lists.end(), results);
            return status::kOk;
        } catch (const CaptureError&) {
            return status::kNotFound;
        }
    });
}

Status CaptureDriver::IsLocked(std::int32_t* locked) noexcept
{
    return guarded([&] {
        if (!locked)
            return status::kNullPointer;
        *locked = state().capture() ? 1 : 0;
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
    return guarded([&] {
        const State now = state();
        return giveText(statusText(now.capture(), now.captures->size()), text);
    });
}

Status CaptureDriver::SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                                     char16_t** problem) noexcept
{
    return guarded([&] {
        if (problem)
            *problem = nullptr;
        if (!paths && count > 0)
            return status::kNullPointer;
        std::vector<std::filesystem::path> files;
        for (std::uint32_t i = 0; i < count; ++i)
            files.emplace_back(bstrToUtf8(paths[i]));
        CaptureSet set = openCaptures(files);
        const bool isUsable = !set.captures.empty();
        if (isUsable)
            setCaptures(std::move(set.captures));
        if (problem && !set.problems.empty())
            giveText(joinedLines(set.problems), problem);
        return isUsable ? status::kOk : status::kNotFound;
    });
}

} // namespace tessaview
