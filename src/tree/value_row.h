#pragma once

#include "charset/display_text.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessaview {

class NodeView;

/// What a row of the value pane can do beside showing its texts.
enum class RowItem : std::uint8_t {
    None,
    Bytes, ///< its bytes show in the hex view
    Pid    ///< it has the menu of a PID
};

/// One row of the value pane.
struct ValueRow {
    std::string_view name; ///< as stored
    std::string data;      ///< valid UTF-8 without control characters
    RowItem item = RowItem::None;
    std::vector<std::uint8_t> bytes = {}; ///< of a Bytes row, all of them
    int pid = 0;                          ///< of a Pid row
    BroadcastText broadcast = {}; ///< what the data was read from, if it was; as long as its node
    /// For a tooltip: which character table a text was read with, and why. Of a Bytes row that
    /// shows only the first of its bytes: how many they are.
    std::string remark = {};
};

/// The rows of a node; none for a node that empties the value pane.
std::vector<ValueRow> valueRows(const NodeView& node);
/// The same in place of what is in `rows`, without the remarks on texts: for all nodes at once.
void fillRows(const NodeView& node, std::vector<ValueRow>& rows);

/// The data of a row as it is shown, but all bytes of a row that shows only the first of them.
std::string dataText(const ValueRow& row);

} // namespace tessaview
