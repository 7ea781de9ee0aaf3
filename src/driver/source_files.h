#pragma once

#include "driver/tuner_driver.h"

#include <string>
#include <vector>

namespace tessaview {

/// The operation that looks at captures, as a `CallObserver` is told of it.
inline constexpr const char* kLooksAtCaptures = "SetSourceFiles";

/// Whether a driver can be pointed at captured files.
bool canReadFiles(IUnknown* driver);

/// Points a driver at captured files or folders for this run; the first is what it is set to. A
/// path is any bytes that the system takes for one, not only UTF-8.
/// `problems` receives one line per path that could not be used. Fails when none could.
Status useSourceFiles(IUnknown* driver, const std::vector<std::string>& paths,
                      std::string& problems);

} // namespace tessaview
