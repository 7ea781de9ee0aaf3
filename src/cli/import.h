#pragma once

#include "cli/options.h"

namespace tessaview {

/// Adds the initial tuning files that the options name to the satellite list of all users and
/// saves it. What was imported goes to standard output, what is wrong with the files and the list
/// to standard error. Gives the exit status: wrong usage when no file could be used or the list
/// could not be saved.
int importScanTables(const Options& options);

} // namespace tessaview
