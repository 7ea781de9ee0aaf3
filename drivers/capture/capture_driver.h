#pragma once

#include "drivers/capture/capture_tuner.h"
#include "drivers/common/driver_object.h"

namespace tessaview {

/// The class of this driver.
constexpr Guid kCaptureDriverClass = "{8F6E0A52-3B1D-4C7E-9A64-D20B71C5E3F8}"_guid;

/// A tuner whose air is a set of captured transport streams. Tuning locks onto the stream that
/// was received under those parameters; until then the tuner is set to the one that was chosen, or
/// the first. Tuning and reading show no window, whatever the owner: nothing has to be asked.
class CaptureDriver final
    : public DriverObject<CaptureDriver, CaptureTuner, ISourceFiles, ISourceList, IReadProgress> {
    using Base =
        DriverObject<CaptureDriver, CaptureTuner, ISourceFiles, ISourceList, IReadProgress>;

public:
    Status SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                          char16_t** problem) noexcept override;

    Status GetSourceCount(std::uint32_t* count) noexcept override;
    Status GetCurrentSource(std::uint32_t* index) noexcept override;
    Status GetSourceName(std::uint32_t index, char16_t** name) noexcept override;
    Status SelectSource(std::uint32_t index) noexcept override;

    Status GetReadProgress(std::uint64_t* position, std::uint64_t* total) noexcept override;

private:
    friend Base;
    friend Base::Object;
    ~CaptureDriver() = default;

    static constexpr const char* kName = "Captured transport streams";
    static constexpr const char* kDialogs = "capture_dialogs.so";
    /// A capture that carries no record has no answer: zeros would be shown and stored as if it had
    /// been received so.
    static constexpr Status kOtherTuning = status::kNotFound;
    using Error = CaptureError;

    static Status statusOf(const CaptureError& /*error*/) { return status::kNotFound; }
    std::optional<TunerType> tunerType() const { return tuner_.state().type(); }
    Status tune(const Tuning& tuning, const std::string& satellite);
    std::optional<Tuning> tunedTo(std::string& satellite) const;
    Status read(std::span<const TableRequest> requests, std::chrono::seconds waitLimit,
                Answers& answers);
    bool isLocked() const { return tuner_.state().capture() != nullptr; }
    std::string statusLine() const;
};

} // namespace tessaview
