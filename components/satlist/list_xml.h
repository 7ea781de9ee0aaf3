#pragma once

#include "components/satlist/stored_list.h"

#include <optional>
#include <string_view>

namespace tessaview {

/// The largest list that is read or written, in bytes of XML.
constexpr std::size_t kMaxListBytes = std::size_t{16} << 20U;

/// Reads the content of "satlist.xml" (docs/satellite-list.md). Nothing when it is not a list in
/// XML or one of a later version. A satellite or a transponder that is not understood is left
/// out of the list and kept among the foreign elements.
std::optional<StoredList> parseList(std::string_view xml);

/// Writes a list so that `parseList` gives the same one.
std::string toXml(const StoredList& list);

} // namespace tessaview
