#include "drivers/capture/demultiplexer.h"

namespace tessaview {

bool Demultiplexer::select(std::uint32_t pid)
{
    if (pid >= kPids)
        return false;
    uint16_t& slot = slotOf_[pid];
    if (slot == kNotSelected) {
        assemblers_.emplace_back();
        slot = static_cast<uint16_t>(assemblers_.size());
    }
    return true;
}

} // namespace tessaview
