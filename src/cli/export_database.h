#pragma once

#include "charset/charset_policy.h"
#include "model/network_map.h"

#include <string>

namespace tessaview {

/// Why no database can be made at this place, for people who would rather know before a long scan
/// than after it; empty when nothing speaks against it yet, or no file is named.
std::string exportObstacle(const std::string& file);

/// Exports the model, with names read as the policy says, into a new database, unless it is empty
/// or no file is named. Gives what went wrong, or an empty text.
std::string exportTo(const std::string& file, const NetworkMap& model,
                     const CharsetPolicy& charsets);

} // namespace tessaview
