#pragma once

#include "satlist/satellite_list.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tessaview {

// Going through the satellite list. What the manager answers is checked like a driver's: success
// without an object is a failure, and a failed call hands nothing over.

Status enumSatellites(ISatListManager* manager, bool selectedOnly, ComPtr<IEnumSatellite>& out);
Status findSatellite(ISatListManager* manager, const std::string& name, ComPtr<ISatellite>& out);
/// The transponders to start a scan from.
Status enumTransponders(ISatellite& satellite, ComPtr<IEnumSatTransponder>& out);
Status nameOf(ISatellite& satellite, std::string& name);

/// The next item, or nothing at the end.
template <class Item>
ComPtr<Item> nextOf(IEnum<Item>& items)
{
    Item* item = nullptr;
    return items.Next(1, &item, nullptr) == status::kOk ? ComPtr<Item>::adopt(item) : nullptr;
}

/// The names of the satellites, in the order of the list; none without a manager.
std::vector<std::string> satelliteNames(ISatListManager* manager, bool selectedOnly);

} // namespace tessaview
