#pragma once

#include "components/satlist/stored_list.h"

namespace tessaview {

/// Joins two changed copies of one list, satellite by satellite: what only one side changed,
/// added or removed is as that side has it; where both did, a satellite that is there wins over
/// one that was removed, and `mine` over `theirs`. The order is that of `mine`; satellites that
/// only `theirs` has follow.
StoredList merged(const StoredList& base, const StoredList& mine, const StoredList& theirs);

} // namespace tessaview
