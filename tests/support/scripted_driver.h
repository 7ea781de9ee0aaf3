#pragma once

#include "driver/tuner_driver.h"
#include "tools/multiplex/bytes_writer.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <variant>
#include <vector>

namespace test {

/// What a driver is asked for.
struct Wanted {
    std::uint32_t PID;
    std::uint8_t table_id;
    int extension = -1; ///< the table_id_extension of a request that names one

    // NOLINTNEXTLINE(modernize-use-nullptr): the check trips over the generated comparison
    friend auto operator<=>(const Wanted&, const Wanted&) = default;
};

/// The sections of one transport stream, by request.
using Air = std::map<Wanted, std::vector<Bytes>>;

/// One set operation as it arrived.
struct TuningCall {
    std::string satellite; ///< UTF-8
    std::variant<tessaview::SatelliteTuning, tessaview::CableTuning, tessaview::TerrestrialTuning>
        record;
    tessaview::WindowHandle owner;
};

/// What a tuner is set to: "Harbour 1110000", "cable 3460000".
std::string tunedText(const TuningCall& call);

/// A driver that does what a test says. Setting a tuning to a frequency of `streams` puts that
/// stream on the air and makes it the current tuning. While it is interrupted, set operations and
/// ReadTables fail. What it is and how it fares may be asked from any thread at any time.
class ScriptedDriver
    : public tessaview::Implements<
          ScriptedDriver, tessaview::IDriverInfo, tessaview::IDriverControl, tessaview::ISetTuner,
          tessaview::ISectionReader, tessaview::IInterrupt, tessaview::ITunerStatus,
          tessaview::IDeviceDialogs, tessaview::IReadReport, tessaview::IReadProgress> {
public:
    using Status = tessaview::Status;

    static tessaview::ComPtr<ScriptedDriver> make()
    {
        return tessaview::ComPtr<ScriptedDriver>::adopt(new ScriptedDriver);
    }

    // The script

    std::string driverName = "Scripted";
    std::string readProblem; ///< what may be missing from what was read
    std::string statusText = "61 dB\u00B5V";
    std::atomic<int> tunerType = 1;
    std::atomic<int> locked = 1;
    std::atomic<std::uint64_t> position = 0; ///< of what is read
    std::atomic<std::uint64_t> total = 0;
    Air air;                              ///< what the tuner is set to
    std::map<std::uint32_t, Air> streams; ///< by the frequency field of a tuning record
    std::string satellite;                ///< the current tuning's, UTF-8
    tessaview::SatelliteTuning satelliteTuning{};
    tessaview::CableTuning cableTuning{};
    tessaview::TerrestrialTuning terrestrialTuning{};
    /// Runs in mid-call, with the operation's name and its number of times before.
    std::function<void(std::string_view, int)> duringCall;
    /// Spoils what ReadTables is about to give.
    std::function<void(std::span<tessaview::SectionList>)> spoil;
    /// Interfaces that a query does not find.
    std::vector<tessaview::Guid> missing;

    // The record

    std::vector<std::string> calls; ///< the operations in their order
    std::vector<std::vector<tessaview::TableRequest>> batches;
    std::vector<std::uint32_t> waitLimits;
    std::vector<TuningCall> tunings;
    std::atomic<int> rounds = 0; ///< of questions for the kind of tuner
    std::atomic<bool> isInterrupted = false;
    /// Waits in mid-call until it is interrupted.
    void waitForInterrupt() const { isInterrupted.wait(false); }

    /// Lets a call of an operation, by its number of times before, answer so; others succeed.
    void failAt(const std::string& operation, Status answer, int time = 0)
    {
        const std::lock_guard lock(mutex_);
        answers_[{operation, time}] = answer;
    }
    /// The same for all its calls from now on.
    void failAlways(const std::string& operation, Status answer)
    {
        failAt(operation, answer, kAlways);
    }
    /// The calls of operations whose names begin so, in their order.
    std::vector<std::string> callsOf(std::string_view beginning) const;

    Status QueryInterface(const tessaview::Guid& iid, void** object) noexcept override;

    Status GetName(char16_t** name) noexcept override;
    Status Initialize(const char16_t*, const char16_t*, const char16_t*) noexcept override;
    Status Shutdown() noexcept override;
    Status GetTunerType(std::uint16_t* type) noexcept override;
    Status SetSatListManager(tessaview::ISatListManager*) noexcept override;

    Status SetSatelliteTuning(tessaview::WindowHandle owner, const char16_t* name,
                              const tessaview::SatelliteTuning* tuning) noexcept override;
    Status SetCableTuning(tessaview::WindowHandle owner,
                          const tessaview::CableTuning* tuning) noexcept override;
    Status SetTerrestrialTuning(tessaview::WindowHandle owner,
                                const tessaview::TerrestrialTuning* tuning) noexcept override;
    Status GetSatelliteTuning(char16_t** name,
                              tessaview::SatelliteTuning* tuning) noexcept override;
    Status GetCableTuning(tessaview::CableTuning* tuning) noexcept override;
    Status GetTerrestrialTuning(tessaview::TerrestrialTuning* tuning) noexcept override;

    Status ReservedSlot1() noexcept override { return tessaview::status::kNotImplemented; }
    Status ReadTables(std::uint32_t count, const tessaview::TableRequest* requests,
                      std::uint32_t waitLimit, tessaview::SectionList* results) noexcept override;

    Status SetInterrupted(std::int32_t interrupted) noexcept override;

    Status IsLocked(std::int32_t* flag) noexcept override;
    Status ReservedSlot2() noexcept override { return tessaview::status::kNotImplemented; }
    Status ReservedSlot3() noexcept override { return tessaview::status::kNotImplemented; }
    Status GetStatusText(char16_t** text) noexcept override;
    Status GetReadProblem(char16_t** problem) noexcept override;
    Status GetReadProgress(std::uint64_t* now, std::uint64_t* end) noexcept override
    {
        *now = position;
        *end = total;
        return tessaview::status::kOk;
    }

    Status ShowTuningDialog(tessaview::WindowHandle) noexcept override
    {
        return called("ShowTuningDialog");
    }
    Status ShowSettingsDialog(tessaview::WindowHandle) noexcept override
    {
        return called("ShowSettingsDialog");
    }
    Status ShowStreamingDialog(tessaview::WindowHandle) noexcept override
    {
        return called("ShowStreamingDialog");
    }

protected:
    friend Implements;
    ScriptedDriver() = default;
    virtual ~ScriptedDriver() = default;

private:
    static constexpr int kAlways = -1;

    /// Records the call and gives what it is to return.
    Status called(const char* operation);
    /// The same for one that can be interrupted.
    Status calledForLong(const char* operation);
    template <class Record>
    Status tune(const char* operation, TuningCall call, std::uint32_t frequency, Record& current);

    mutable std::mutex mutex_; ///< of the record and the answers
    std::map<std::string, int> times_;
    std::map<std::pair<std::string, int>, Status> answers_;
};

} // namespace test
