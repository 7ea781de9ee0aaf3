#pragma once

#include "charset/charset_policy.h"
#include "platform/settings.h"

namespace tessaview {

/// The rules that were stored last; automatic for what is missing or cannot be understood.
CharsetPolicy storedCharsetPolicy(const Settings& settings);

/// Throws SettingsError.
void storeCharsetPolicy(Settings& settings, const CharsetPolicy& policy);

} // namespace tessaview
