#pragma once

#include "component/status.h"
#include "components/satlist/stored_list.h"

#include <filesystem>
#include <string>

namespace tessaview {

/// Reads a list. `kNotFound` when there is no file or it is empty, `kAccessDenied` when it cannot
/// be read now, `kInvalidData` when it holds no list that can be used. `why` tells a person more;
/// it stays empty when there is no file.
Status readListFile(const std::filesystem::path& file, StoredList& list, std::string& why);

/// Writes `mine`, which was `base` when it was last read or written, joined with what others have
/// written meanwhile; `written` is what the file now holds. A file that holds no list is set aside
/// under another name first; one that cannot be read now may hold one, and is left alone. On
/// failure the file stays as it was, and `why` tells a person the reason.
Status writeListFile(const std::filesystem::path& file, const StoredList& base,
                     const StoredList& mine, StoredList& written, std::string& why);

} // namespace tessaview
