#include "drivers/linuxdvb/dvb_tuner.h"

#include "drivers/linuxdvb/listed_parameters.h"
#include "platform/settings.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tessaview {

DvbTuner::~DvbTuner()
{
    close();
}

void DvbTuner::open(const std::string& driverKey)
{
    const ReceiverStore store(driverKey);
    const auto channel = store.channel();
    {
        const std::lock_guard lock(mutex_);
        store_ = store;
        state_.settings = store.settings();
        state_.channel = channel;
    }
    if (!channel || resuming_.joinable())
        return;
    isResuming_ = true;
    try {
        resuming_ = std::thread([this, channel, stop = resumeStop_.get_token()] {
            resume(*channel, stop);
            isResuming_ = false;
        });
    } catch (const std::system_error&) {
        isResuming_ = false;
        report("no thread to tune with; choose the channel again");
    }
}

void DvbTuner::close()
{
    isClosed_ = true;
    resumeStop_.request_stop();
    if (resuming_.joinable())
        resuming_.join();
    letGo();
    setSatelliteList(nullptr);
}

void DvbTuner::setSatelliteList(ISatListManager* list)
{
    auto shared = ComPtr<ISatListManager>::share(list);
    const std::lock_guard lock(mutex_);
    std::swap(list_, shared);
}

/// Asks what the device is, until it answers.
void DvbTuner::refreshFacts() const
{
    DeviceId device;
    {
        const std::lock_guard lock(mutex_);
        device = state_.settings.device;
        if (state_.facts.id == device && !state_.facts.systems.empty())
            return;
    }
    FrontendFacts facts = factsOf(kernel_, device);
    const std::lock_guard lock(mutex_);
    if (state_.settings.device == device)
        state_.facts = std::move(facts);
}

DvbState DvbTuner::state() const
{
    refreshFacts();
    const std::lock_guard lock(mutex_);
    DvbState now = state_;
    const std::vector<TunerType> types = now.facts.types();
    const bool isChosen =
        now.settings.type &&
        (types.empty() || std::find(types.begin(), types.end(), *now.settings.type) != types.end());
    if (isChosen)
        now.type = now.settings.type;
    else if (!types.empty())
        now.type = types.front();
    return now;
}

void DvbTuner::report(std::string problem)
{
    const std::lock_guard lock(mutex_);
    state_.problem = std::move(problem);
}

ComPtr<ISatListManager> DvbTuner::satelliteList() const
{
    const std::lock_guard lock(mutex_);
    return list_;
}

std::vector<std::string> DvbTuner::satellites() const
{
    return satelliteNames(satelliteList().get(), false);
}

std::vector<TransponderEntry> DvbTuner::transponders(const std::string& satellite) const
{
    std::vector<TransponderEntry> entries;
    const auto list = satelliteList();
    ComPtr<ISatellite> found;
    if (list && !failed(getSatellite(*list.get(), Bstr(satellite), found)))
        static_cast<void>(readTransponders(*found.get(), entries));
    return entries;
}

std::optional<Dish> DvbTuner::dishOf(const std::string& satellite) const
{
    const std::lock_guard lock(mutex_);
    return store_ ? store_->dishOf(satellite) : std::nullopt;
}

void DvbTuner::useAndStore(const ReceiverSettings& settings)
{
    bool isOther = false;
    std::optional<ReceiverStore> store;
    {
        const std::lock_guard lock(mutex_);
        isOther =
            state_.settings.device != settings.device || state_.settings.type != settings.type;
        state_.settings = settings;
        store = store_;
    }
    if (isOther) {
        resumeStop_.request_stop();
        const std::lock_guard operation(operation_);
        letGo();
    }
    if (store)
        store->store(settings);
}

void DvbTuner::storeDish(const std::string& satellite, const std::optional<Dish>& dish)
{
    const std::lock_guard lock(mutex_);
    if (store_)
        store_->storeDish(satellite, dish);
}

StopRequested DvbTuner::stopFor(const StopRequested& stop) const
{
    return [this, stop] { return isClosed_ || isInterrupted_ || (stop && stop()); };
}

std::shared_ptr<Frontend> DvbTuner::current() const
{
    const std::lock_guard lock(mutex_);
    return frontend_;
}

void DvbTuner::letGo()
{
    std::shared_ptr<Frontend> gone;
    const std::lock_guard lock(mutex_);
    std::swap(gone, frontend_);
    state_.system.reset();
    state_.facts = {};
}

std::shared_ptr<Frontend> DvbTuner::openFrontend()
{
    if (auto open = current())
        return open;
    const DeviceId device = state().settings.device;
    auto frontend = std::make_shared<Frontend>(kernel_, device);
    const std::lock_guard lock(mutex_);
    frontend_ = frontend;
    return frontend;
}

/// A channel of a NIT names no satellite: it is one of that which is received now. What the list
/// knows of a channel is added to it.
Channel DvbTuner::completed(Channel channel) const
{
    ComPtr<ISatListManager> list;
    {
        const std::lock_guard lock(mutex_);
        if (typeOf(channel.tuning) == TunerType::Satellite && channel.satellite.empty() &&
            state_.channel)
            channel.satellite = state_.channel->satellite;
        list = list_;
    }
    if (channel.s2 == S2Parameters())
        channel.s2 = listedParameters(list.get(), channel);
    return channel;
}

Dish DvbTuner::dishFor(const Channel& channel) const
{
    const auto own = channel.satellite.empty() ? std::nullopt : dishOf(channel.satellite);
    const std::lock_guard lock(mutex_);
    Dish dish = own.value_or(state_.settings.dish);
    if (dish.lnb.kind == Lnb::Kind::Default)
        dish.lnb = state_.settings.dish.lnb;
    return dish;
}

/// Tells the user, and lets go of a device that is not there any more.
void DvbTuner::handle(const DeviceError& error)
{
    report(error.what());
    if (error.isGone())
        letGo();
}

void DvbTuner::tuneNow(const Channel& channel, const StopRequested& stop)
{
    const auto setTuning = [this](bool isTuning) {
        const std::lock_guard lock(mutex_);
        state_.isTuning = isTuning;
        if (isTuning)
            state_.system.reset();
    };
    try {
        if (stop())
            throw Interrupted();
        setTuning(true);
        const auto frontend = openFrontend();
        const auto limit = state().settings.lockLimit;
        const fe_delivery_system system = frontend->tune(channel, dishFor(channel), limit, stop);
        const std::lock_guard lock(mutex_);
        state_.isTuning = false;
        state_.channel = channel;
        state_.system = system;
        state_.problem.clear();
    } catch (const DeviceError& e) {
        setTuning(false);
        handle(e);
        throw;
    } catch (...) {
        setTuning(false);
        throw;
    }
}

void DvbTuner::tune(Channel channel, const StopRequested& stop)
{
    resumeStop_.request_stop(); // what was received last does not matter any more
    const std::lock_guard operation(operation_);
    const Channel wanted = completed(std::move(channel));
    tuneNow(wanted, stopFor(stop));
    try {
        const std::lock_guard lock(mutex_);
        if (store_)
            store_->storeChannel(wanted);
    } catch (const SettingsError& e) {
        report(std::string("the channel is not kept for the next start: ") + e.what());
    }
}

void DvbTuner::resume(const Channel& channel, const std::stop_token& stop)
{
    const std::lock_guard operation(operation_);
    try {
        tuneNow(completed(channel), stopFor([&] { return stop.stop_requested(); }));
    } catch (const DeviceError&) { // was reported
    } catch (const Interrupted&) { // another channel is wanted
    } catch (const std::exception& e) {
        report(e.what());
    }
}

/// Nothing can be read without a lock; a short fade is waited out.
void DvbTuner::awaitLock(const StopRequested& stop)
{
    const DvbState now = state();
    const auto frontend = current();
    if (!now.channel || !now.system || !frontend) {
        throw DeviceError(now.problem.empty()
                              ? now.settings.device.name() + ": not tuned; choose a channel under "
                                                             "Device, Tuning..."
                              : now.problem,
                          0);
    }
    if (!frontend->locksWithin(now.settings.lockLimit, stop))
        throw frontend->noSignal(*now.channel, now.settings.lockLimit);
}

/// What ended the reception meanwhile; empty when it goes on.
std::string DvbTuner::lossOfSignal()
{
    const auto now = signal();
    return now && now->isLocked() ? "" : state().settings.device.name() + ": the signal was lost";
}

Answers DvbTuner::read(std::span<const TableRequest> requests, std::chrono::seconds waitLimit,
                       const StopRequested& stop)
{
    const StopRequested ends = stopFor(stop);
    while (isResuming_)
        pause(kernel_, kStopInterval / 10, ends);
    const std::lock_guard operation(operation_);
    try {
        if (ends())
            throw Interrupted();
        awaitLock(ends);
        const auto ceiling = std::max(state().settings.readCeiling, waitLimit);
        Answers answers =
            readTables(kernel_, demultiplexer(), requests, {waitLimit, ceiling}, ends);
        if (answers.problem.empty())
            answers.problem = lossOfSignal();
        report(answers.problem);
        return answers;
    } catch (const DeviceError& e) {
        handle(e);
        throw;
    }
}

std::optional<SignalReport> DvbTuner::signal()
{
    const auto frontend = current();
    if (!frontend)
        return std::nullopt;
    try {
        return frontend->signal();
    } catch (const DeviceError& e) {
        handle(e);
        return std::nullopt;
    }
}

std::string DvbTuner::demultiplexer() const
{
    const DeviceId device = state().settings.device;
    const std::string adapter = "adapter" + std::to_string(device.adapter);
    const std::string own = "demux" + std::to_string(device.frontend);
    const auto names = kernel_.entries("/dev/dvb/" + adapter);
    // Frontends of which one can be used at a time share the first.
    return adapter + "/" +
           (std::find(names.begin(), names.end(), own) == names.end() ? "demux0" : own);
}

} // namespace tessaview
