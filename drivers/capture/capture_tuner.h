#pragma once

#include "component/status.h"
#include "drivers/capture/section_answers.h"
#include "drivers/capture/tuning_match.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tessaview {

/// What the tuner is set to at one moment; the parts belong together.
struct TunerState {
    std::shared_ptr<const CaptureSet> set = std::make_shared<const CaptureSet>();
    std::optional<std::size_t> current;            ///< an index into the captures; none: no lock
    TunerType fallbackType = TunerType::Satellite; ///< where the captures carry none
    std::string problem;                           ///< what went wrong last

    const Capture* capture() const { return current ? &set->captures[*current] : nullptr; }
    /// That of the capture, else that of any capture of the set, else the fallback.
    TunerType type() const;
};

/// A set of captures as a tuner sees it, shared by the driver's interfaces and its dialogs. Every
/// operation may be called from any thread; none keeps another waiting for long.
class CaptureTuner {
public:
    /// Takes up what is stored below a settings key, and stores there from now on. A stored
    /// capture that has gone is no error: the tuner just lacks it. Throws Interrupted.
    void open(std::string settingsKey);

    void close() {}
    void setSatelliteList(ISatListManager*) {} // captures say themselves where they come from

    TunerState state() const;

    /// Sets the tuner to a capture of another set, or to the first where there is none such.
    void use(CaptureSet set, const std::filesystem::path& current = {});
    /// The same for later runs too. Throws SettingsError when it cannot be stored; it is used all
    /// the same.
    void useAndStore(CaptureSet set, const std::filesystem::path& current);
    /// Throws SettingsError.
    void storeFallbackType(TunerType type);
    /// Tells the user through the status text.
    void report(std::string problem);

    /// Opens files and folders, and tells meanwhile how far it is. Throws Interrupted.
    CaptureSet look(const std::vector<std::filesystem::path>& sources);

    /// While interrupted, what takes long ends between two blocks of a file, or does not begin.
    void setInterrupted(bool interrupted) { isInterrupted_ = interrupted; }
    /// How far the reading under way is, in bytes, or the look at files, in files; zeros for none.
    struct Progress {
        std::uint64_t position = 0;
        std::uint64_t total = 0;
    };
    Progress progress() const;

    /// Sets the tuner to the capture that `findCapture` finds for what is wanted. When there is
    /// none, fails and leaves the tuner as it was; where it names no frequency, that is reported.
    Status tune(const Tuning& wanted, std::string_view satellite = {});

    /// Sets the tuner to a capture of the set by its index.
    Status select(std::size_t index);

    /// Answers requests from the capture the tuner is set to; what went wrong is reported. Throws
    /// CaptureError when nothing could be read, and Interrupted.
    Answers read(std::span<const TableRequest> requests);

private:
    class Task;

    std::string settingsKey() const;
    Status lockOnto(const TunerState& basis, std::optional<std::size_t> index);

    mutable std::mutex mutex_; // held for moments only, so that a long read keeps no one waiting
    TunerState state_;
    Progress progress_;
    std::string settingsKey_;
    std::atomic<bool> isInterrupted_ = false;
};

} // namespace tessaview
