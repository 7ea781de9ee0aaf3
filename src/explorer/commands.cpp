#include "explorer/commands.h"

#include "explorer/driver_monitor.h"
#include "tree/value_row.h"

#include <algorithm>
#include <stdexcept>

namespace tessaview {

namespace {

constexpr auto Always = EnabledWhen::Always;
constexpr auto Never = EnabledWhen::Never;
constexpr auto Locked = EnabledWhen::Locked;
constexpr auto SatelliteTuner = EnabledWhen::SatelliteTuner;
constexpr auto DeviceDialogs = EnabledWhen::DeviceDialogs;

// clang-format off
constexpr CommandInfo kCommands[] = {
    {Command::FileNew, "&New", Never, "Start a new document", "New", {"Ctrl+N"}, false, "new"},
    {Command::FileOpen, "&Open...", Never, "Open a document", "Open", {"Ctrl+O"}, false, "open"},
    {Command::FileSave, "&Save", Always, "Save the active document", "Save", {"Ctrl+S"}, false, "save"},
    {Command::FileSaveAs, "Save &As...", Always, "Save the active document under another name"},
    {Command::RecentFile, "Recent File", Never, "Open this document"},
    {Command::DatabaseExport, "Database export...", SatelliteTuner, "Write everything that was read into a new database"},
    {Command::Exit, "E&xit", Always, "Leave Tessaview"},
    {Command::Undo, "&Undo", Never, "Take back the last change", "Undo", {"Ctrl+Z", "Alt+Backspace"}},
    {Command::Cut, "Cu&t", Never, "Move the selection to the clipboard", "Cut", {"Ctrl+X", "Shift+Del"}, false, "cut"},
    {Command::Copy, "&Copy", Never, "Copy the selection to the clipboard", "Copy", {"Ctrl+C", "Ctrl+Ins"}, false, "copy"},
    {Command::Paste, "&Paste", Never, "Insert what is on the clipboard", "Paste", {"Ctrl+V", "Shift+Ins"}, false, "paste"},
    {Command::Find, "&Find...", Always, "Look for a text in labels, names and values", "Find", {"Ctrl+F"}},
    {Command::FindNext, "Find &next", Always, "Go to the next place where the text stands", "Find next", {"F3"}, false, "down"},
    {Command::FindPrevious, "Find p&revious", Always, "Go to the place before", "Find previous", {"Shift+F3"}, false, "up"},
    {Command::FilePrint, "&Print...", Never, "Print the active document", "Print", {}, false, "print"},
    {Command::ToolbarToggle, "&Toolbar", Always, "Show or hide the toolbar", {}, {}, true},
    {Command::StatusBarToggle, "&Status Bar", Always, "Show or hide the status bar", {}, {}, true},
    {Command::OutputToggle, "&Output window", Always, "Show or hide the output window", {}, {}, true},
    {Command::NextPane, "Next pane", Always, "Go to the next pane", {}, {"F6"}},
    {Command::PreviousPane, "Previous pane", Always, "Go to the previous pane", {}, {"Shift+F6"}},
    {Command::ScanTransponder, "Current transponder...", Locked, "Read the transport stream that the tuner is set to"},
    {Command::ScanNit, "Current NIT...", Locked, "Read every transport stream of the network that is being received"},
    {Command::ScanSatellite, "Single satellite...", SatelliteTuner, "Read every transport stream of one satellite"},
    {Command::ScanAllSatellites, "All configured satellites...", SatelliteTuner, "Read every transport stream of all selected satellites"},
    {Command::SiTables, "SI Tables...", Always, "Choose the tables that are read"},
    {Command::Streaming, "Streaming to file...", DeviceDialogs, "Write the transport stream to a file"},
    {Command::GeneralSettings, "General settings...", Never, "General settings"},
    {Command::OptionsSiTables, "SI tables...", Never, "SI tables"},
    {Command::IncompleteStreams, "Show &incomplete streams", Always, "Store streams that lack PAT, NIT or SDT, too", {}, {}, true},
    {Command::SatelliteList, "Satellite list manager...", EnabledWhen::SatelliteList, "Edit the satellites and their start transponders"},
    {Command::DeviceSettings, "Settings...", DeviceDialogs, "Change the settings of the tuner driver"},
    {Command::DeviceTuning, "Tuning...", DeviceDialogs, "Set the tuner by hand"},
    {Command::DriverSelection, "Driver selection...", Always, "Choose the tuner driver for the next start"},
    {Command::About, "&About Tessaview3...", Always, "Show the version of this program", "About", {}, false, "about"},
    {Command::Homepage, "Tessaview homepage...", Always, "Open the home page in the browser"},
    {Command::EmailAuthor, "Email author...", Always, "Write a mail to the author"},
    {Command::CheckForUpdates, "Check for updates online...", Always, "Ask the home page for a newer version"},
};

constexpr MenuLine kSeparator{MenuLine::Kind::Separator};
constexpr MenuLine kEndOfSubmenu{MenuLine::Kind::EndOfSubmenu};
constexpr MenuLine item(Command id) { return {MenuLine::Kind::Item, id}; }
constexpr MenuLine submenu(std::string_view title) { return {MenuLine::Kind::Submenu, {}, title}; }

constexpr MenuLine kFile[] = {
    item(Command::FileOpen), item(Command::FileSave), item(Command::FileSaveAs), kSeparator,
    item(Command::RecentFile), kSeparator,
    item(Command::DatabaseExport), kSeparator,
    item(Command::Exit)};
constexpr MenuLine kEdit[] = {
    item(Command::Undo), kSeparator,
    item(Command::Cut), item(Command::Copy), item(Command::Paste), kSeparator,
    item(Command::Find), item(Command::FindNext), item(Command::FindPrevious)};
constexpr MenuLine kView[] = {
    item(Command::ToolbarToggle), item(Command::StatusBarToggle), item(Command::OutputToggle)};
constexpr MenuLine kAction[] = {
    submenu("SI scanning"),
        item(Command::ScanTransponder), item(Command::ScanNit), item(Command::ScanSatellite),
        item(Command::ScanAllSatellites), kSeparator,
        item(Command::SiTables),
    kEndOfSubmenu,
    item(Command::Streaming)};
constexpr MenuLine kOptions[] = {
    item(Command::GeneralSettings), item(Command::OptionsSiTables), item(Command::SatelliteList), kSeparator,
    item(Command::IncompleteStreams)};
constexpr MenuLine kDevice[] = {
    item(Command::DeviceSettings), item(Command::DeviceTuning), item(Command::DriverSelection)};
constexpr MenuLine kHelp[] = {
    item(Command::About), kSeparator,
    item(Command::Homepage), item(Command::EmailAuthor), item(Command::CheckForUpdates)};

constexpr Menu kMenuBar[] = {
    {"&File", kFile}, {"&Edit", kEdit}, {"&View", kView}, {"&Action", kAction},
    {"&Options", kOptions}, {"Device", kDevice}, {"&Help", kHelp}};

constexpr MenuLine kToolbar[] = {
    item(Command::FileNew), item(Command::FileOpen), item(Command::FileSave), kSeparator,
    item(Command::Cut), item(Command::Copy), item(Command::Paste), kSeparator,
    item(Command::FilePrint), kSeparator,
    item(Command::About)};

constexpr ContextItem kTransportStreamItems[] = {
    {"EMM Streaming ..."}, {"ECM streaming ..."}, {"EMM+ECM streaming ..."}};
constexpr ContextItem kProgramItems[] = {
    {"ECM streaming..."}, {"Video streaming..."}, {"Audio streaming..."},
    {"Private section streaming..."}};
constexpr ContextItem kSatelliteItems[] = {{"Set tuner...", TunerType::Satellite}};
constexpr ContextItem kCableItems[] = {{"Set tuner...", TunerType::Cable}};
constexpr ContextItem kTerrestrialItems[] = {{"Set tuner...", TunerType::Terrestrial}};
constexpr ContextItem kPidItems[] = {{"PID streaming..."}};
// clang-format on

} // namespace

std::span<const CommandInfo> commands()
{
    return kCommands;
}

const CommandInfo& commandInfo(Command id)
{
    const auto* const found = std::find_if(std::begin(kCommands), std::end(kCommands),
                                           [id](const CommandInfo& info) { return info.id == id; });
    if (found == std::end(kCommands))
        throw std::out_of_range("no such command");
    return *found;
}

bool isEnabled(EnabledWhen rule, const EnablingFacts& facts)
{
    const bool isSatellite = facts.driver.isTuner(TunerType::Satellite);
    switch (rule) {
    case EnabledWhen::Always:
        return true;
    case EnabledWhen::Never:
        return false;
    case EnabledWhen::Locked:
        return facts.driver.isLocked && !facts.isDriverBusy;
    case EnabledWhen::SatelliteTuner:
        return isSatellite && !facts.isDriverBusy;
    case EnabledWhen::SatelliteList:
        return isSatellite && facts.hasSatelliteList;
    case EnabledWhen::DeviceDialogs:
        return facts.hasDeviceDialogs && !facts.isDriverBusy;
    }
    return false;
}

std::span<const Menu> menuBar()
{
    return kMenuBar;
}

std::span<const MenuLine> toolbar()
{
    return kToolbar;
}

std::span<const ContextItem> contextItems(ContextMenu menu)
{
    switch (menu) {
    case ContextMenu::TransportStream:
        return kTransportStreamItems;
    case ContextMenu::Program:
        return kProgramItems;
    case ContextMenu::SatelliteDelivery:
        return kSatelliteItems;
    case ContextMenu::CableDelivery:
        return kCableItems;
    case ContextMenu::TerrestrialDelivery:
        return kTerrestrialItems;
    case ContextMenu::None:
        break;
    }
    return {};
}

std::span<const ContextItem> pidMenuItems()
{
    return kPidItems;
}

} // namespace tessaview
