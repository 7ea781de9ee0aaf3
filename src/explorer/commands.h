#pragma once

#include "driver/tuner_driver.h"
#include "tree/node_kind.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace tessaview {

struct DriverState;

/// The commands of the main window by their ids.
enum class Command : std::uint16_t {
    FileNew = 57600,
    FileOpen = 57601,
    FileSave = 57603,
    FileSaveAs = 57604,
    FilePrint = 57607,
    RecentFile = 57616,
    Copy = 57634,
    Cut = 57635,
    Paste = 57637,
    Undo = 57643,
    About = 57664,
    Exit = 57665,
    NextPane = 57680,
    PreviousPane = 57681,
    ToolbarToggle = 59392,
    StatusBarToggle = 59393,
    OutputToggle = 32771,
    ScanTransponder = 32772,
    ScanNit = 32773,
    ScanSatellite = 32774,
    ScanAllSatellites = 32775,
    DeviceSettings = 32776,
    DeviceTuning = 32777,
    GeneralSettings = 32778,
    OptionsSiTables = 32779,
    IncompleteStreams = 33024,
    SiTables = 32780,
    SatelliteList = 32781,
    Streaming = 32782,
    DatabaseExport = 32783,
    DriverSelection = 32784,
    Homepage = 32792,
    EmailAuthor = 32793,
    CheckForUpdates = 32805,
    Find = 32900,
    FindNext = 32901,
    FindPrevious = 32902,
};

/// When a command can be chosen.
enum class EnabledWhen : std::uint8_t {
    Always,
    Never, ///< nothing handles it
    Locked,
    SatelliteTuner,
    SatelliteList, ///< a satellite tuner, and a list of satellites
    DeviceDialogs, ///< the driver has windows of its own
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order in which rows are read
struct CommandInfo {
    Command id;
    std::string_view text; ///< with the mnemonic behind an ampersand
    EnabledWhen enabledWhen;
    std::string_view prompt; ///< for the status bar
    std::string_view tip = {};
    std::array<std::string_view, 2> keys = {}; ///< the first is shown in the menu
    bool isCheckable = false;
    const char* icon = nullptr; ///< the name of its image; null for a command without one
};

std::span<const CommandInfo> commands();
const CommandInfo& commandInfo(Command id);

/// What the rules look at.
struct EnablingFacts {
    const DriverState& driver;
    bool hasDeviceDialogs = false;
    bool hasSatelliteList = false;
    bool isDriverBusy = false; ///< with a call that nobody waits for any more
};

bool isEnabled(EnabledWhen rule, const EnablingFacts& facts);

/// One line of a menu: a command, a separator or the start of a submenu, whose items follow until
/// the line that ends it.
struct MenuLine {
    enum class Kind : std::uint8_t { Item, Separator, Submenu, EndOfSubmenu };
    Kind kind = Kind::Item;
    Command command = {};
    std::string_view title = {};
};

struct Menu {
    std::string_view title;
    std::span<const MenuLine> lines;
};

/// The menu bar from left to right.
std::span<const Menu> menuBar();
/// The toolbar from left to right.
std::span<const MenuLine> toolbar();

/// An item of a context menu.
struct ContextItem {
    std::string_view text;
    /// The tuner that "Set tuner..." needs; nothing handles the other items.
    TunerType tuner = {};
};

/// The items of a context menu; none for `ContextMenu::None`.
std::span<const ContextItem> contextItems(ContextMenu menu);
/// The menu of a row that shows a PID.
std::span<const ContextItem> pidMenuItems();

} // namespace tessaview
