#pragma once

#include "satlist/satellite_list.h"

namespace tessaview {

/// Puts the built-in satellites into the list. Stops at the first call that fails, with its
/// status; the satellites stored so far stay.
Status fillDefaultList(ISatListManager& manager);

} // namespace tessaview
