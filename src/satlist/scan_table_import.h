#pragma once

#include "satlist/satellite_list.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tessaview {

/// What became of an import.
struct ImportReport {
    std::size_t filesUsed = 0;    ///< files that name at least one transponder
    std::size_t added = 0;        ///< transponders that are new in the list
    std::size_t alreadyThere = 0; ///< those whose frequency, polarization and stream were there
    std::vector<std::string> problems; ///< "FILE:LINE: what is wrong", or "FILE: ..."

    /// "Imported 12 transponders from 1 file; 3 more had the frequency and polarization of one in
    /// the list."
    std::string summary() const;
};

/// Adds the transponders of initial tuning files (`parseScanTable`) to the list, those of a file
/// to the satellite that the file is named after. A new satellite and every new transponder are
/// marked as added by the user; a transponder gets the NID 0 and the lowest TSID that is free.
/// Nothing that is in the list is changed, so a second import adds nothing.
ImportReport importScanTables(ISatListManager& manager,
                              std::span<const std::filesystem::path> files);

/// The name that a file gives its satellite: "Hotbird 13.0E" of "Hotbird-13.0E".
std::string satelliteNameOf(const std::filesystem::path& file);

} // namespace tessaview
