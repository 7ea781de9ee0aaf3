#pragma once

#include "satlist/satellite_list.h"

#include <filesystem>
#include <string>

namespace tessaview {

/// The name of the list's file in the data folder of all users.
inline constexpr const char* kSatelliteListFile = "satlist.xml";

/// Loads the list; when there is none or it cannot be loaded, fills in the built-in one. Gives
/// the status of the loading, and in `why`, which may be null, the reason for a person as far as
/// the manager tells. After a failure other than `kNotFound` the file there is left alone until the
/// list is saved: it is then joined with the list if it can be read, and set aside if it is none.
Status loadSatelliteList(ISatListManager& manager, const std::filesystem::path& file,
                         std::string* why = nullptr);

/// Saves the list. A failure is shown as "Failed to save sat list: %08X", with `why` beside it.
Status saveSatelliteList(ISatListManager& manager, const std::filesystem::path& file,
                         std::string* why = nullptr);

} // namespace tessaview
