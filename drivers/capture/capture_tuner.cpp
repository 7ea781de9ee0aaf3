#include "drivers/capture/capture_tuner.h"

#include "component/path_text.h"
#include "drivers/capture/packet_file.h"
#include "platform/settings.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr const char* kStoredCaptures = "captures";
constexpr const char* kStoredCurrent = "capture";
constexpr const char* kStoredTunerType = "tunertype";

std::optional<std::size_t> indexOf(const CaptureSet& set, const std::filesystem::path& file)
{
    if (set.captures.empty())
        return std::nullopt;
    const auto found = std::find_if(set.captures.begin(), set.captures.end(),
                                    [&](const Capture& each) { return each.file == file; });
    return found == set.captures.end() ? 0 : static_cast<std::size_t>(found - set.captures.begin());
}

} // namespace

/// What takes long, for as long as it lives. Throws Interrupted where it is not to begin or go on.
class CaptureTuner::Task {
public:
    explicit Task(CaptureTuner& tuner) : tuner_(tuner) { tell(0, 0); }
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() { publish({}); }

    void tell(std::uintmax_t position, std::uintmax_t total)
    {
        publish({position, total});
        if (tuner_.isInterrupted_)
            throw Interrupted();
    }

private:
    void publish(Progress progress)
    {
        const std::lock_guard lock(tuner_.mutex_);
        tuner_.progress_ = progress;
    }

    CaptureTuner& tuner_;
};

CaptureTuner::Progress CaptureTuner::progress() const
{
    const std::lock_guard lock(mutex_);
    return progress_;
}

CaptureSet CaptureTuner::look(const std::vector<std::filesystem::path>& sources)
{
    Task task(*this);
    CaptureSet set = openCaptures(
        sources, [&](std::size_t done, std::size_t total) { task.tell(done, total); },
        [this] { return isInterrupted_.load(); });
    if (isInterrupted_)
        throw Interrupted();
    return set;
}

TunerType TunerState::type() const
{
    if (capture() && isGiven(capture()->tuning))
        return typeOf(capture()->tuning);
    for (const Capture& each : set->captures)
        if (isGiven(each.tuning))
            return typeOf(each.tuning);
    return fallbackType;
}

void CaptureTuner::open(std::string settingsKey)
{
    const Settings settings(defaultSettingsFile());
    const auto stored = settings.texts(settingsKey, kStoredCaptures);
    std::vector<std::filesystem::path> sources;
    sources.reserve(stored.size());
    for (const std::string& each : stored)
        sources.push_back(pathFromText(each));
    CaptureSet set = look(sources);
    std::string problem;
    if (set.captures.empty() && !set.problems.empty())
        problem = set.problems.front().line();
    const auto current = settings.text(settingsKey, kStoredCurrent);
    const auto type = settings.number(settingsKey, kStoredTunerType);
    use(std::move(set), pathFromText(current.value_or("")));
    const std::lock_guard lock(mutex_);
    state_.problem = std::move(problem);
    state_.fallbackType = tunerTypeOf(type.value_or(0)).value_or(TunerType::Satellite);
    settingsKey_ = std::move(settingsKey);
}

TunerState CaptureTuner::state() const
{
    const std::lock_guard lock(mutex_);
    return state_;
}

std::string CaptureTuner::settingsKey() const
{
    const std::lock_guard lock(mutex_);
    return settingsKey_;
}

void CaptureTuner::use(CaptureSet set, const std::filesystem::path& current)
{
    const auto index = indexOf(set, current);
    auto shared = std::make_shared<const CaptureSet>(std::move(set));
    const std::lock_guard lock(mutex_);
    state_.current = index;
    state_.set = std::move(shared);
    state_.problem.clear();
}

void CaptureTuner::useAndStore(CaptureSet set, const std::filesystem::path& current)
{
    std::vector<std::string> sources;
    for (const auto& source : set.sources)
        sources.push_back(pathText(source));
    use(std::move(set), current);
    const std::string key = settingsKey();
    Settings settings(defaultSettingsFile());
    settings.setTexts(key, kStoredCaptures, sources);
    settings.setText(key, kStoredCurrent, pathText(current));
}

void CaptureTuner::storeFallbackType(TunerType type)
{
    {
        const std::lock_guard lock(mutex_);
        state_.fallbackType = type;
    }
    Settings(defaultSettingsFile())
        .setNumber(settingsKey(), kStoredTunerType, static_cast<std::uint32_t>(type));
}

void CaptureTuner::report(std::string problem)
{
    const std::lock_guard lock(mutex_);
    state_.problem = std::move(problem);
}

Status CaptureTuner::tune(const Tuning& wanted, std::string_view satellite)
{
    if (isInterrupted_)
        return status::kCancelled;
    const TunerState now = state();
    if (!hasFrequency(wanted))
        report("the frequency is not known, so there is nothing to tune to");
    return lockOnto(now, findCapture(now.set->captures, wanted, satellite));
}

Status CaptureTuner::lockOnto(const TunerState& basis, std::optional<std::size_t> index)
{
    if (!index)
        return status::kNotFound;
    const std::lock_guard lock(mutex_);
    if (state_.set != basis.set)
        return status::kNotReady; // another set was chosen meanwhile
    state_.current = index;
    state_.problem.clear();
    return status::kOk;
}

Status CaptureTuner::select(std::size_t index)
{
    const TunerState now = state();
    return index < now.set->captures.size() ? lockOnto(now, index) : status::kInvalidArgument;
}

Answers CaptureTuner::read(std::span<const TableRequest> requests)
{
    const TunerState now = state();
    if (!now.capture())
        throw CaptureError("no capture is chosen");
    Task task(*this);
    try {
        Answers answers = readSections(
            now.capture()->file, requests, kCollectedBytes,
            [&](std::uintmax_t position, std::uintmax_t total) { task.tell(position, total); });
        report(answers.problem);
        return answers;
    } catch (const CaptureError& e) {
        report(e.what());
        throw;
    }
}

} // namespace tessaview
