#pragma once

#include "satlist/satellite_list.h"

#include <filesystem>

namespace tessaview {

/// The name of the list's file in the data folder of all users.
inline constexpr const char* kSatelliteListFile = "satlist.xml";

/// Loads the list; when there is none or it cannot be loaded, fills in the built-in one. Gives
/// the status of the loading: after a failure other than `kNotFound` the file there is left alone
/// and will be set aside when the list is saved.
Status loadSatelliteList(ISatListManager& manager, const std::filesystem::path& file);

/// Saves the list. A failure is shown as "Failed to save sat list: %08X".
Status saveSatelliteList(ISatListManager& manager, const std::filesystem::path& file);

} // namespace tessaview
