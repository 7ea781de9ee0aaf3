#pragma once

#include "driver/tuner_driver.h"
#include "tests/multiplex/bytes_writer.h"

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

/// A driver that does what a test says. Setting a tuning to a frequency of `streams` puts that
/// stream on the air and makes it the current tuning. While it is interrupted, set operations and
/// ReadTables fail.
class ScriptedDriver final
    : public tessaview::Implements<ScriptedDriver, tessaview::IDriverInfo,
                                   tessaview::IDriverControl, tessaview::ISetTuner,
                                   tessaview::ISectionReader, tessaview::IInterrupt> {
public:
    using Status = tessaview::Status;

    static tessaview::ComPtr<ScriptedDriver> make()
    {
        return tessaview::ComPtr<ScriptedDriver>::adopt(new ScriptedDriver);
    }

    // The script

    Air air;                              ///< what the tuner is set to
    std::map<std::uint32_t, Air> streams; ///< by the frequency field of a tuning record
    std::uint16_t tunerType = 1;
    std::string satellite; ///< the current tuning's, UTF-8
    tessaview::SatelliteTuning satelliteTuning{};
    tessaview::CableTuning cableTuning{};
    tessaview::TerrestrialTuning terrestrialTuning{};
    /// The answers of an operation's calls, by its name and its number of times before; others
    /// succeed.
    std::map<std::pair<std::string, int>, Status> answers;
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
    std::atomic<bool> isInterrupted = false;
    /// Waits in mid-call until it is interrupted.
    void waitForInterrupt() const { isInterrupted.wait(false); }

    void failAt(const std::string& operation, Status answer, int time = 0)
    {
        answers[{operation, time}] = answer;
    }

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

private:
    friend Implements;
    ScriptedDriver() = default;
    ~ScriptedDriver() = default;

    /// Records the call and gives what it is to return.
    Status called(const char* operation);
    /// The same for one that can be interrupted.
    Status calledForLong(const char* operation);
    template <class Record>
    Status tune(const char* operation, TuningCall call, std::uint32_t frequency, Record& current);

    std::mutex mutex_; ///< of the record: SetInterrupted comes from a thread of its own
    std::map<std::string, int> times_;
};

} // namespace test
