#include "acquisition/scan_controller.h"

#include "acquisition/read_watch.h"
#include "log/log_file.h"
#include "log/output.h"

#include <system_error>
#include <utility>

namespace tessaview {

namespace {

TunerNow tunerOf(IUnknown* driver)
{
    const DriverAccess access(driver);
    TunerNow now;
    now.isTypeKnown = !failed(access.tunerType(now.type));
    if (!now.isSatellite())
        return now;
    TunerSetting setting;
    const Status result = access.currentSetting(now.type, setting);
    now.satellite = setting.satellite;
    if (failed(result))
        LogPrint(g_log, log_level::kInformation, "failed to get current satellite: %#X",
                 statusCode(result));
    else
        LogPrint(g_log, log_level::kDetail, "current satellite: %s", now.satellite.c_str());
    return now;
}

} // namespace

ScanController::ScanController(ScanContext context, ScanMode mode, ScanEvents& events)
    : context_(std::move(context))
    , mode_(mode)
    , events_(events)
    , driver_(ComPtr<IUnknown>::share(context_.driver))
    , satellites_(ComPtr<ISatListManager>::share(context_.satellites))
    , cancellation_(context_.driver)
    , opening_([this] {
        tuner_ = tunerOf(driver_.get());
        answered_.set_value();
        events_.tunerKnown();
    })
{
}

ScanController::~ScanController()
{
    cancel();
}

bool ScanController::openedWithin(std::chrono::milliseconds patience)
{
    if (answer_.wait_for(patience) != std::future_status::ready)
        return false;
    completeOpening();
    return true;
}

bool ScanController::completeOpening()
{
    if (!opening_.joinable())
        return false;
    opening_.join();
    state_ = State::Idle;
    return true;
}

void ScanController::start(std::optional<std::string> satellite)
{
    if (state_ != State::Idle)
        return;
    // A cable or terrestrial network is not on a satellite, so there is none to choose.
    if (!satellite && mode_ == ScanMode::CurrentNit && tuner_.isCableOrTerrestrial())
        satellite.emplace();
    context_.satellite = std::move(satellite);
    cancellation_.lower();
    scan_ = std::jthread([this] {
        OutputClear();
        {
            const Cancellation::Work work(cancellation_);
            const ReadWatch watch(driver_.get(), events_);
            summary_ = Scanner(context_, events_, cancellation_.flag()).run(mode_);
            tellOutcome();
        }
        events_.scanFinished();
    });
    state_ = State::Scanning; // not without a thread, whose end would never come
}

/// What the lines of a scan do not tell already: the reason of a single stream, and the cancelling.
void ScanController::tellOutcome() const
{
    if (mode_ == ScanMode::CurrentTransponder)
        for (const auto& [stream, unstored] : summary_.unstored())
            OutputPrint("Nothing was stored: %s", unstored.text.c_str());
    if (cancellation_.flag())
        OutputPrint("Cancelled");
}

void ScanController::cancel()
{
    if (state_ != State::Scanning)
        return;
    cancellation_.raise();
    state_ = State::Cancelling;
    try {
        interrupting_ = std::jthread([this] { cancellation_.tellDriver(); });
    } catch (const std::system_error&) { // NOLINT(bugprone-empty-catch)
        // There can be no thread: the scan ends when the driver's call does.
    }
}

void ScanController::completeScan()
{
    if (!scan_.joinable())
        return;
    scan_.join();
    if (interrupting_.joinable())
        interrupting_.join();
    state_ = State::Idle;
}

bool ScanController::requestClose()
{
    closeRequested_ = true;
    cancel();
    return !isBusy();
}

} // namespace tessaview
