#include "drivers/linuxdvb/receiver_settings.h"

#include "platform/settings.h"

#include <algorithm>

namespace tessaview {

namespace {

constexpr const char* kAdapter = "adapter";
constexpr const char* kFrontend = "frontend";
constexpr const char* kTunerType = "tunertype";
constexpr const char* kLockLimit = "locklimit";
constexpr const char* kReadCeiling = "readceiling";
constexpr const char* kLnb = "lnb";
constexpr const char* kSatellite = "satellite";
constexpr const char* kChannel = "channel";

Settings file()
{
    return Settings(defaultSettingsFile());
}

std::chrono::seconds within(std::optional<std::uint32_t> stored, std::chrono::seconds usual,
                            std::chrono::seconds least, std::chrono::seconds most)
{
    return stored ? std::clamp(std::chrono::seconds(*stored), least, most) : usual;
}

std::uint32_t number(std::chrono::seconds time)
{
    return static_cast<std::uint32_t>(time.count());
}

} // namespace

ReceiverStore::ReceiverStore(const std::string& driverKey)
    : key_(driverKey + "\\linuxdvb")
    , satellites_(key_ + "\\satellites")
{
}

ReceiverSettings ReceiverStore::settings() const
{
    const Settings stored = file();
    ReceiverSettings settings;
    settings.device.adapter = stored.number(key_, kAdapter).value_or(0);
    settings.device.frontend = stored.number(key_, kFrontend).value_or(0);
    settings.type = tunerTypeOf(stored.number(key_, kTunerType).value_or(0));
    settings.lockLimit = within(stored.number(key_, kLockLimit), settings.lockLimit,
                                kShortestLockLimit, kLongestLockLimit);
    settings.readCeiling = within(stored.number(key_, kReadCeiling), settings.readCeiling,
                                  kLowestReadCeiling, kHighestReadCeiling);
    if (const auto lnb = stored.text(key_, kLnb))
        settings.dish = tessaview::dishOf(*lnb).value_or(Dish());
    return settings;
}

void ReceiverStore::store(const ReceiverSettings& settings) const
{
    Settings stored = file();
    stored.setNumber(key_, kAdapter, settings.device.adapter);
    stored.setNumber(key_, kFrontend, settings.device.frontend);
    if (settings.type)
        stored.setNumber(key_, kTunerType, static_cast<std::uint32_t>(*settings.type));
    else
        stored.remove(key_, kTunerType);
    stored.setNumber(key_, kLockLimit, number(settings.lockLimit));
    stored.setNumber(key_, kReadCeiling, number(settings.readCeiling));
    stored.setText(key_, kLnb, storedText(settings.dish));
}

std::optional<Dish> ReceiverStore::dishOf(const std::string& satellite) const
{
    const auto stored = file().text(satellites_, satellite);
    return stored ? tessaview::dishOf(*stored) : std::nullopt;
}

void ReceiverStore::storeDish(const std::string& satellite, const std::optional<Dish>& dish) const
{
    Settings stored = file();
    if (dish)
        stored.setText(satellites_, satellite, storedText(*dish));
    else
        stored.remove(satellites_, satellite);
}

std::optional<Channel> ReceiverStore::channel() const
{
    const Settings stored = file();
    const auto text = stored.text(key_, kChannel);
    auto channel = text ? channelOf(*text) : std::nullopt;
    if (channel)
        channel->satellite = stored.text(key_, kSatellite).value_or("");
    return channel;
}

void ReceiverStore::storeChannel(const Channel& channel) const
{
    Settings stored = file();
    stored.setText(key_, kSatellite, channel.satellite);
    stored.setText(key_, kChannel, storedText(channel));
}

} // namespace tessaview
