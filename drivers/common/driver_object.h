#pragma once

#include "component/bstr.h"
#include "component/unknown.h"
#include "driver/tuner_driver.h"
#include "drivers/common/answers.h"
#include "drivers/common/dialogs_library.h"
#include "drivers/common/interrupted.h"
#include "tuning/tuning.h"

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <type_traits>
#include <utility>

namespace tessaview {

/// The class of a driver: it hands what its interfaces are asked for on to a tuner of the driver's
/// own and turns what that throws into a status. `More` are the interfaces that only this driver
/// has. What differs between drivers `Self` says:
///
///     static constexpr const char* kName;    // of the driver
///     static constexpr const char* kDialogs; // the library of its dialogs
///     static Status statusOf(const Error&);  // with the `Error` that its tuner throws
///     std::optional<TunerType> tunerType();
///     Status tune(const Tuning& tuning, const std::string& satellite);
///     std::optional<Tuning> tunedTo(std::string& satellite); // none while it is not tuned
///     static constexpr Status kOtherTuning; // for a record that it has none of
///     Status read(std::span<const TableRequest>, std::chrono::seconds waitLimit, Answers&);
///     bool isLocked();
///     std::string statusLine();
template <class Self, class Tuner, class... More>
class DriverObject
    : public Implements<Self, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                        IDeviceDialogs, ITunerStatus, IInterrupt, IReadReport, More...> {
public:
    Status GetName(char16_t** name) noexcept override
    {
        return answer([&] { return giveText(Self::kName, name); });
    }

    Status Initialize(const char16_t* settingsKey, const char16_t* /*userFolder*/,
                      const char16_t* /*commonFolder*/) noexcept override
    {
        return answer([&] { tuner_.open(bstrToUtf8(settingsKey)); });
    }
    Status Shutdown() noexcept override
    {
        return answer([&] { tuner_.close(); });
    }
    Status GetTunerType(std::uint16_t* type) noexcept override
    {
        return answer([&] {
            if (!type)
                return status::kNullPointer;
            const std::optional<TunerType> known = self().tunerType();
            if (!known)
                return status::kNotFound;
            *type = static_cast<std::uint16_t>(*known);
            return status::kOk;
        });
    }
    Status SetSatListManager(ISatListManager* manager) noexcept override
    {
        return answer([&] { tuner_.setSatelliteList(manager); });
    }

    Status SetSatelliteTuning(WindowHandle /*owner*/, const char16_t* satellite,
                              const SatelliteTuning* tuning) noexcept override
    {
        return tune(tuning, satellite);
    }
    Status SetCableTuning(WindowHandle /*owner*/, const CableTuning* tuning) noexcept override
    {
        return tune(tuning);
    }
    Status SetTerrestrialTuning(WindowHandle /*owner*/,
                                const TerrestrialTuning* tuning) noexcept override
    {
        return tune(tuning);
    }
    Status GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept override
    {
        return answer([&] {
            if (!satellite)
                return status::kNullPointer;
            *satellite = nullptr;
            std::string name;
            const Status result = tunedTo(tuning, &name);
            return failed(result) ? result : giveText(name, satellite);
        });
    }
    Status GetCableTuning(CableTuning* tuning) noexcept override
    {
        return answer([&] { return tunedTo(tuning); });
    }
    Status GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept override
    {
        return answer([&] { return tunedTo(tuning); });
    }

    Status ReservedSlot1() noexcept override { return status::kNotImplemented; }
    /// The wait limit is in seconds.
    Status ReadTables(std::uint32_t count, const TableRequest* requests, std::uint32_t waitLimit,
                      SectionList* results) noexcept override
    {
        return answer([&] {
            if (count == 0)
                return status::kOk;
            if (!requests || !results)
                return status::kNullPointer;
            Answers answers;
            const Status result =
                self().read({requests, count}, std::chrono::seconds(waitLimit), answers);
            if (!failed(result))
                giveSections(answers.lists, results);
            return result;
        });
    }

    Status ShowTuningDialog(WindowHandle owner) noexcept override
    {
        return show(DriverDialog::Tune, owner);
    }
    Status ShowSettingsDialog(WindowHandle owner) noexcept override
    {
        return show(DriverDialog::Settings, owner);
    }
    Status ShowStreamingDialog(WindowHandle owner) noexcept override
    {
        return show(DriverDialog::Streaming, owner);
    }

    Status IsLocked(std::int32_t* locked) noexcept override
    {
        return answer([&] {
            if (!locked)
                return status::kNullPointer;
            *locked = self().isLocked() ? 1 : 0;
            return status::kOk;
        });
    }
    Status ReservedSlot2() noexcept override { return status::kNotImplemented; }
    Status ReservedSlot3() noexcept override { return status::kNotImplemented; }
    Status GetStatusText(char16_t** text) noexcept override
    {
        return answer([&] { return giveText(self().statusLine(), text); });
    }

    Status SetInterrupted(std::int32_t interrupted) noexcept override
    {
        return answer([&] { tuner_.setInterrupted(interrupted != 0); });
    }

    Status GetReadProblem(char16_t** problem) noexcept override
    {
        return answer([&] { return giveText(tuner_.state().problem, problem); });
    }

protected:
    using Object = Implements<Self, IDriverInfo, IDriverControl, ISetTuner, ISectionReader,
                              IDeviceDialogs, ITunerStatus, IInterrupt, IReadReport, More...>;

    ~DriverObject() = default;

    /// The status of work that returns one, or nothing when it cannot fail but by what it throws.
    template <class Work>
    static Status answer(Work work) noexcept
    {
        return guarded([&]() -> Status {
            try {
                if constexpr (std::is_void_v<decltype(work())>)
                    return work(), status::kOk;
                else
                    return work();
            } catch (const Interrupted&) {
                return status::kCancelled;
            } catch (const typename Self::Error& e) {
                return Self::statusOf(e);
            }
        });
    }

    Tuner tuner_;

private:
    Self& self() { return static_cast<Self&>(*this); }

    template <class Record>
    Status tune(const Record* tuning, const char16_t* satellite = nullptr) noexcept
    {
        return answer([&] {
            return tuning ? self().tune(*tuning, bstrToUtf8(satellite)) : status::kNullPointer;
        });
    }

    /// The record of what the tuner is set to, and the name of its satellite.
    template <class Record>
    Status tunedTo(Record* tuning, std::string* satellite = nullptr)
    {
        if (!tuning)
            return status::kNullPointer;
        std::string name;
        const std::optional<Tuning> now = self().tunedTo(name);
        if (!now)
            return status::kNotReady;
        const auto* const own = std::get_if<Record>(&*now);
        if (!own)
            return Self::kOtherTuning;
        *tuning = *own;
        if (satellite)
            *satellite = std::move(name);
        return status::kOk;
    }

    Status show(DriverDialog dialog, WindowHandle owner) noexcept
    {
        return answer([&] {
            std::string problem;
            const Status result = dialogs_.show(dialog, &tuner_, owner, problem);
            if (!problem.empty())
                tuner_.report(std::move(problem));
            return result;
        });
    }

    DialogsLibrary dialogs_{Self::kDialogs};
};

} // namespace tessaview
