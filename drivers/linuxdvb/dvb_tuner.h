#pragma once

#include "component/unknown.h"
#include "drivers/linuxdvb/frontend.h"
#include "drivers/linuxdvb/receiver_settings.h"
#include "drivers/linuxdvb/section_reader.h"
#include "satlist/list_access.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

namespace tessaview {

/// What the tuner is set to at one moment; the parts belong together.
struct DvbState {
    ReceiverSettings settings;
    FrontendFacts facts;            ///< of the device in the settings
    std::optional<TunerType> type;  ///< none while neither settings nor device tell
    std::optional<Channel> channel; ///< that was tuned to last, here or in an earlier run
    /// That the channel came in by; none while the receiver is not tuned.
    std::optional<fe_delivery_system> system;
    bool isTuning = false;
    std::string problem; ///< what went wrong last
};

/// A receiver of the kernel's DVB API, shared by the driver's interfaces and its dialogs. Every
/// operation may be called from any thread. One tuning or reading goes on at a time; all else
/// returns at once.
class DvbTuner {
public:
    explicit DvbTuner(Kernel& kernel = systemKernel()) : kernel_(kernel) {}
    DvbTuner(const DvbTuner&) = delete;
    DvbTuner& operator=(const DvbTuner&) = delete;
    ~DvbTuner();

    /// Takes up what is stored below the key that the driver was given, and begins to tune to what
    /// the receiver was tuned to last.
    void open(const std::string& driverKey);
    /// Ends what goes on, for good, and lets go of the device.
    void close();
    void setSatelliteList(ISatListManager* list);

    Kernel& kernel() const { return kernel_; }
    DvbState state() const;
    /// Tells the user through the status text.
    void report(std::string problem);

    std::vector<FrontendFacts> frontends() const { return listFrontends(kernel_); }
    /// The names of the satellite list, in its order.
    std::vector<std::string> satellites() const;
    /// The transponders that the list has of a satellite, as far as they can be read.
    std::vector<TransponderEntry> transponders(const std::string& satellite) const;
    /// The dish of a satellite; none where it has none of its own.
    std::optional<Dish> dishOf(const std::string& satellite) const;
    /// Uses the settings, and stores them for later runs too. Another device is let go of. Throws
    /// SettingsError when they cannot be stored; they are used all the same in this run.
    void useAndStore(const ReceiverSettings& settings);
    /// Throws SettingsError.
    void storeDish(const std::string& satellite, const std::optional<Dish>& dish);

    /// Tunes and waits for the lock. Throws DeviceError, whose text is reported too, and
    /// Interrupted.
    void tune(Channel channel, const StopRequested& stop = {});
    /// Reads from what the receiver is tuned to; what went wrong is reported. Throws Interrupted,
    /// and DeviceError when nothing could be read.
    Answers read(std::span<const TableRequest> requests, std::chrono::seconds waitLimit,
                 const StopRequested& stop = {});
    /// While interrupted, tuning and reading end soon, and new ones at once.
    void setInterrupted(bool interrupted) { isInterrupted_ = interrupted; }

    /// What the receiver tells about its signal, whether it is locked or not, so that a dish can be
    /// pointed by it; nothing while it was not asked to tune.
    std::optional<SignalReport> signal();
    /// Where sections and streams of the receiver come from: "adapter0/demux0".
    std::string demultiplexer() const;

private:
    StopRequested stopFor(const StopRequested& stop) const;
    ComPtr<ISatListManager> satelliteList() const;
    std::shared_ptr<Frontend> current() const;
    std::shared_ptr<Frontend> openFrontend();
    Channel completed(Channel channel) const;
    Dish dishFor(const Channel& channel) const;
    void tuneNow(const Channel& channel, const StopRequested& stop);
    void resume(const Channel& channel, const std::stop_token& stop);
    void awaitLock(const StopRequested& stop);
    std::string lossOfSignal();
    void refreshFacts() const;
    void handle(const DeviceError& error);
    void letGo();

    Kernel& kernel_;
    std::mutex operation_;     // held while tuning or reading goes on
    mutable std::mutex mutex_; // held for moments only, and never while the device is asked
    mutable DvbState state_;
    std::shared_ptr<Frontend> frontend_; // asked for its signal by others meanwhile
    std::optional<ReceiverStore> store_;
    ComPtr<ISatListManager> list_;
    std::atomic<bool> isInterrupted_ = false;
    std::atomic<bool> isClosed_ = false;
    std::atomic<bool> isResuming_ = false;
    std::stop_source resumeStop_;
    std::thread resuming_;
};

} // namespace tessaview
