#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

/// A set of tables, one bit each.
using SiTableMask = std::uint32_t;

namespace si_table {
constexpr SiTableMask kPat = 0x0001;
constexpr SiTableMask kCat = 0x0002;
constexpr SiTableMask kBat = 0x0004;
constexpr SiTableMask kPmt = 0x0008;
constexpr SiTableMask kNitActual = 0x0010;
constexpr SiTableMask kNitOther = 0x0020;
constexpr SiTableMask kEitPfActual = 0x0040;
constexpr SiTableMask kEitPfOther = 0x0080;
constexpr SiTableMask kEitScheduleActual = 0x0100;
constexpr SiTableMask kEitScheduleOther = 0x0200;
constexpr SiTableMask kSdtActual = 0x0400;
constexpr SiTableMask kSdtOther = 0x0800;
constexpr SiTableMask kRst = 0x1000;
constexpr SiTableMask kTdt = 0x2000;
constexpr SiTableMask kTot = 0x4000;
} // namespace si_table

/// A table as the user chooses it.
struct SelectableTable {
    SiTableMask bit;
    const char* name;  ///< in a list of tables
    int box;           ///< the check box of the dialog
    const char* label; ///< and its text
    bool isDefault;
};

/// In the order of the bits.
// clang-format off
inline constexpr std::array kSelectableTables{
    SelectableTable{si_table::kPat,               "pat",             1013, "PAT - (0x00)", true},
    SelectableTable{si_table::kCat,               "cat",             1014, "CAT - (0x01)", true},
    SelectableTable{si_table::kBat,               "bat",             1017, "BAT - (0x4a)", false},
    SelectableTable{si_table::kPmt,               "pmt",             1022, "PMT - (0x02)", true},
    SelectableTable{si_table::kNitActual,         "nit",             1015, "NIT - actual network (0x40)", true},
    SelectableTable{si_table::kNitOther,          "nit-other",       1026, "NIT - other network (0x41)", false},
    SelectableTable{si_table::kEitPfActual,       "eit-pf",          1018, "EIT - actual transport stream , present/following (0x4e)", false},
    SelectableTable{si_table::kEitPfOther,        "eit-pf-other",    1023, "EIT - other transport stream , present/following (0x4f)", false},
    SelectableTable{si_table::kEitScheduleActual, "eit-sched",       1024, "EIT - actual transport stream , schedule (0x50 - 0x5f)", false},
    SelectableTable{si_table::kEitScheduleOther,  "eit-sched-other", 1025, "EIT - other transport stream , schedule (0x60 - 0x6f)", false},
    SelectableTable{si_table::kSdtActual,         "sdt",             1016, "SDT - actual transport stream (0x42)", true},
    SelectableTable{si_table::kSdtOther,          "sdt-other",       1027, "SDT - other transport stream (0x46)", false},
    SelectableTable{si_table::kRst,               "rst",             1019, "RST - (0x71)", false},
    SelectableTable{si_table::kTdt,               "tdt",             1020, "TDT - (0x70)", false},
    SelectableTable{si_table::kTot,               "tot",             1021, "TOT - (0x73)", false},
};
// clang-format on

inline constexpr SiTableMask kAllTables = [] {
    SiTableMask all = 0;
    for (const SelectableTable& table : kSelectableTables)
        all |= table.bit;
    return all;
}();

inline constexpr SiTableMask kDefaultTables = [] {
    SiTableMask mask = 0;
    for (const SelectableTable& table : kSelectableTables)
        mask |= table.isDefault ? table.bit : 0;
    return mask;
}();

static_assert(kAllTables == 0x7FFF && kDefaultTables == 0x041B);

/// Which optional tables are read: the stored choice, looked up afresh each time it is asked
/// for, or one for this run only.
class TableSelection {
public:
    /// The choice kept in the settings; by default those of the user.
    static TableSelection stored();
    static TableSelection stored(std::filesystem::path settingsFile);
    static TableSelection fixed(SiTableMask mask);

    /// Whether every bit of the mask is chosen. A choice that cannot be read chooses all.
    bool IsTableEnabled(SiTableMask mask) const;

private:
    TableSelection() = default;

    std::filesystem::path settingsFile_;
    std::optional<SiTableMask> fixed_;
};

/// Whether every bit of the mask is set in the user's stored choice.
bool IsTableEnabled(SiTableMask mask);

/// Keeps a choice in the settings. Throws SettingsError.
void storeTableSelection(SiTableMask mask, const std::filesystem::path& settingsFile);

/// The tables that "all", "default", a comma-separated list of names, or a bit mask in decimal or
/// 0x hexadecimal stands for. Bits without a table are let pass. Nothing for any other text:
/// `problem` is then a sentence about it, and empty otherwise.
std::optional<SiTableMask> parseTableList(std::string_view text, std::string& problem);

} // namespace tessaview
