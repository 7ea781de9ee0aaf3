#pragma once

#include "acquisition/scanner.h"
#include "driver/cancellation.h"

#include <chrono>
#include <future>
#include <thread>

namespace tessaview {

/// What a scan tells the window that it belongs to. All but the progress comes once each, as the
/// last thing that its thread does; called on that thread, never on the window's.
struct ScanEvents : ScanProgress {
    /// `ScanController::completeOpening` is due.
    virtual void tunerKnown() = 0;
    /// `ScanController::completeScan` is due.
    virtual void scanFinished() = 0;

protected:
    ~ScanEvents() = default;
};

/// What the driver tells about its tuner.
struct TunerNow {
    bool isTypeKnown = false; ///< else the driver did not tell it
    TunerType type{};
    std::string satellite; ///< a satellite tuner's current one, UTF-8; may be empty

    bool isSatellite() const { return isTypeKnown && type == TunerType::Satellite; }
    bool isCableOrTerrestrial() const
    {
        return isTypeKnown && (type == TunerType::Cable || type == TunerType::Terrestrial);
    }
};

/// The scans that one window starts and cancels: asks the driver about its tuner, then is idle or
/// runs one scan after the other, each on a thread of its own. All calls come from the window's
/// thread. None but `openedWithin` waits for the driver.
class ScanController {
public:
    enum class State { Opening, Idle, Scanning, Cancelling };

    /// Starts asking the driver. `events` outlives this.
    ScanController(ScanContext context, ScanMode mode, ScanEvents& events);
    ScanController(const ScanController&) = delete;
    ScanController& operator=(const ScanController&) = delete;
    /// Cancels and waits for what still runs; so nobody may destroy it whom that waits for.
    ~ScanController();

    State state() const { return state_; }
    ScanMode mode() const { return mode_; }
    /// Whether a thread is at work; the window must not go before.
    bool isBusy() const { return state_ != State::Idle; }

    /// Waits a while for the driver's answer, so that a window over a quick driver need not be
    /// seen without it. True when it is there: the opening is then complete.
    bool openedWithin(std::chrono::milliseconds patience);
    /// Answers `tunerKnown`; false when the opening was complete already.
    bool completeOpening();
    /// What the driver said; not before the opening is complete.
    const TunerNow& tuner() const { return tuner_; }

    /// Starts a scan with the satellite that the user chose, if any. Only when idle, and stays so
    /// when there can be no thread: then throws std::system_error.
    void start(std::optional<std::string> satellite);
    /// Asks the scan under way to end, and interrupts a driver that can be.
    void cancel();
    /// Answers `scanFinished`.
    void completeScan();
    /// What became of the streams of the last scan that is complete.
    const ScanSummary& summary() const { return summary_; }

    /// The user wants the window to go: true when it may at once, else as soon as nothing is
    /// under way any more, which is then asked to end.
    bool requestClose();
    bool isCloseRequested() const { return closeRequested_; }
    /// How the window ends: with OK unless the last scan was cancelled.
    bool endsWithOk() const { return !cancellation_.flag(); }

private:
    void tellOutcome() const;

    ScanContext context_;
    ScanMode mode_;
    ScanEvents& events_;
    ComPtr<IUnknown> driver_;
    ComPtr<ISatListManager> satellites_;
    Cancellation cancellation_;
    State state_ = State::Opening;
    bool closeRequested_ = false;
    TunerNow tuner_;
    ScanSummary summary_; ///< written by the scan's thread
    std::promise<void> answered_;
    std::future<void> answer_ = answered_.get_future();
    std::jthread opening_;
    std::jthread interrupting_; ///< of the scan's; once that has ended, it calls the driver no more
    std::jthread scan_;
};

} // namespace tessaview
