#pragma once

#include "drivers/linuxdvb/channel.h"
#include "drivers/linuxdvb/device.h"
#include "drivers/linuxdvb/dish.h"

#include <chrono>
#include <optional>
#include <string>

namespace tessaview {

/// What the user chooses once.
struct ReceiverSettings {
    DeviceId device;
    /// For a receiver with several delivery systems; none: the first that it has.
    std::optional<TunerType> type;
    std::chrono::seconds lockLimit{5}; ///< for one delivery system
    /// How long a table may go on bringing new sections until reading ends all the same.
    std::chrono::seconds readCeiling{120};
    Dish dish; ///< of satellites that have none of their own
};

// The ranges of the times.
constexpr std::chrono::seconds kShortestLockLimit{1};
constexpr std::chrono::seconds kLongestLockLimit{60};
constexpr std::chrono::seconds kLowestReadCeiling{30};
constexpr std::chrono::seconds kHighestReadCeiling{3600};

/// The driver's part of the settings, below the key that the driver is given. Every read looks at
/// the file afresh. What is missing or out of range has its usual value. Writing throws
/// SettingsError.
class ReceiverStore {
public:
    explicit ReceiverStore(const std::string& driverKey);

    ReceiverSettings settings() const;
    void store(const ReceiverSettings& settings) const;

    /// The dish of a satellite; none where it has none of its own.
    std::optional<Dish> dishOf(const std::string& satellite) const;
    /// Stores it, or removes it.
    void storeDish(const std::string& satellite, const std::optional<Dish>& dish) const;

    /// What the receiver was tuned to last.
    std::optional<Channel> channel() const;
    void storeChannel(const Channel& channel) const;

private:
    std::string key_;
    std::string satellites_;
};

} // namespace tessaview
