#pragma once

#include "cli/options.h"
#include "component/class_registry.h"
#include "satlist/satellite_list.h"

#include <filesystem>

namespace tessaview {

/// Where the satellite list of all users is kept.
std::filesystem::path satelliteListFile();

/// The satellite list of all users; null when its manager cannot be created. What is wrong is
/// complained about.
ComPtr<ISatListManager> openSatelliteList(const ClassRegistry& registry);

/// Whether the satellite that the options name can be scanned; says otherwise which there are.
bool checkSatellite(const Options& options, ISatListManager* satellites);

} // namespace tessaview
