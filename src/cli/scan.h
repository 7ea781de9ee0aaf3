#pragma once

#include "cli/options.h"

namespace tessaview {

/// Reads what the options ask for and prints it; gives the exit status.
int scan(const Options& options);

} // namespace tessaview
