#include "explorer/commands.h"

#include "explorer/driver_monitor.h"
#include "tests/support/tests.h"

namespace {

using Set = std::set<Command>;

/// The commands that depend on the driver and are enabled.
Set enabledWith(const EnablingFacts& facts)
{
    Set enabled;
    for (const CommandInfo& info : commands())
        if (info.enabledWhen != EnabledWhen::Always && isEnabled(info.enabledWhen, facts))
            enabled.insert(info.id);
    return enabled;
}

TEST(Commands, dependOnTheDriverAndOnWhatItHasAndDoes)
{
    const Set locked{Command::ScanTransponder, Command::ScanNit};
    const Set satellite{Command::ScanSatellite, Command::ScanAllSatellites, Command::DatabaseExport,
                        Command::SatelliteList};
    const Set dialogs{Command::DeviceSettings, Command::DeviceTuning, Command::Streaming};
    const auto both = [](Set one, const Set& other) {
        one.insert(other.begin(), other.end());
        return one;
    };
    const auto driver = [](std::optional<TunerType> type, bool isLocked) {
        return DriverState{
            .wasAsked = true, .tunerType = type, .isLocked = isLocked, .statusText = {}};
    };
    const auto enabledFor = [&](std::optional<TunerType> type, bool isLocked) {
        const DriverState state = driver(type, isLocked);
        return enabledWith({.driver = state, .hasSatelliteList = true});
    };
    EXPECT_EQ(enabledFor(TunerType::Satellite, true), both(locked, satellite));
    EXPECT_EQ(enabledFor(TunerType::Satellite, false), satellite);
    for (const auto other : {std::optional(TunerType::Cable), {static_cast<TunerType>(4)}, {}}) {
        EXPECT_EQ(enabledFor(other, true), locked);
        EXPECT_EQ(enabledFor(other, false), Set());
    }
    const DriverState tuned = driver(TunerType::Satellite, true);
    EXPECT_FALSE(enabledWith({.driver = tuned}).contains(Command::SatelliteList));
    EXPECT_EQ(enabledWith({.driver = tuned, .hasDeviceDialogs = true, .hasSatelliteList = true}),
              both(both(locked, satellite), dialogs));
    EXPECT_EQ(enabledWith({.driver = tuned, .hasDeviceDialogs = true, .isDriverBusy = true}),
              Set());
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
