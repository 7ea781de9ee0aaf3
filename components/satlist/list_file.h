#pragma once

#include "component/status.h"
#include "components/satlist/stored_list.h"

#include <filesystem>

namespace tessaview {

/// Reads a list. `kNotFound` when there is no file or it is empty, `kAccessDenied` when it cannot
/// be read, `kInvalidData` when it holds no list.
Status readListFile(const std::filesystem::path& file, StoredList& list);

/// Writes `mine`, which was `base` when it was last read or written, joined with what others have
/// written meanwhile; `written` is what the file now holds. A file that cannot be read as a list
/// is set aside under another name first. On failure the file stays as it was.
Status writeListFile(const std::filesystem::path& file, const StoredList& base,
                     const StoredList& mine, StoredList& written);

} // namespace tessaview
