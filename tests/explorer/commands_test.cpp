#include "explorer/commands.h"

#include "explorer/driver_monitor.h"

#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace tessaview; // NOLINT(google-build-using-namespace)

/// The commands that depend on the driver and are enabled.
std::set<Command> enabledWith(const DriverState& driver, EnablingFacts facts)
{
    std::set<Command> enabled;
    for (const CommandInfo& info : commands()) {
        if (info.enabledWhen != EnabledWhen::Always &&
            isEnabled(info.enabledWhen, {.driver = driver,
                                         .hasDeviceDialogs = facts.hasDeviceDialogs,
                                         .hasSatelliteList = facts.hasSatelliteList,
                                         .isDriverBusy = facts.isDriverBusy}))
            enabled.insert(info.id);
    }
    return enabled;
}

std::set<Command> enabledFor(std::optional<TunerType> type, bool isLocked)
{
    const DriverState driver{
        .wasAsked = true, .tunerType = type, .isLocked = isLocked, .statusText = {}};
    return enabledWith(driver, {.driver = driver, .hasSatelliteList = true});
}

const std::set<Command> kLockedCommands{Command::ScanTransponder, Command::ScanNit};
const std::set<Command> kSatelliteCommands{Command::ScanSatellite, Command::ScanAllSatellites,
                                           Command::DatabaseExport, Command::SatelliteList};
const std::set<Command> kDialogCommands{Command::DeviceSettings, Command::DeviceTuning,
                                        Command::Streaming};

TEST(Commands, dependOnTheTunerAndItsLock)
{
    std::set<Command> both = kSatelliteCommands;
    both.insert(kLockedCommands.begin(), kLockedCommands.end());
    EXPECT_EQ(enabledFor(TunerType::Satellite, true), both);
    EXPECT_EQ(enabledFor(TunerType::Satellite, false), kSatelliteCommands);
    for (const auto other : {std::optional(TunerType::Cable),
                             {TunerType::Terrestrial},
                             {static_cast<TunerType>(4)},
                             {}}) {
        EXPECT_EQ(enabledFor(other, true), kLockedCommands);
        EXPECT_EQ(enabledFor(other, false), std::set<Command>());
    }
}

TEST(Commands, dependOnWhatTheDriverHasAndDoes)
{
    const DriverState driver{
        .wasAsked = true, .tunerType = TunerType::Cable, .isLocked = true, .statusText = {}};
    std::set<Command> dialogs = kDialogCommands;
    dialogs.insert(kLockedCommands.begin(), kLockedCommands.end());
    EXPECT_EQ(enabledWith(driver, {.driver = driver, .hasDeviceDialogs = true}), dialogs);
    EXPECT_EQ(
        enabledWith(driver, {.driver = driver, .hasDeviceDialogs = true, .isDriverBusy = true}),
        std::set<Command>());
}

TEST(Commands, areEachInTheTableOnceAndNoKeyHasTwo)
{
    std::set<Command> ids;
    std::set<std::string_view> keys;
    for (const CommandInfo& info : commands()) {
        EXPECT_TRUE(ids.insert(info.id).second) << info.text;
        EXPECT_FALSE(info.prompt.empty()) << info.text;
        for (const std::string_view key : info.keys)
            EXPECT_TRUE(key.empty() || keys.insert(key).second) << key;
    }
    for (const Menu& menu : menuBar()) {
        for (const MenuLine& line : menu.lines) {
            if (line.kind == MenuLine::Kind::Item) {
                EXPECT_TRUE(ids.contains(line.command)) << static_cast<int>(line.command);
            }
        }
    }
}

} // namespace
