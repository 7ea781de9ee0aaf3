#include "drivers/capture/demultiplexer.h"

namespace tessaview {

void Demultiplexer::select(int pid)
{
    uint16_t& slot = slotOf_[static_cast<std::size_t>(pid) % kPids];
    if (slot != kNotSelected)
        return;
    assemblers_.emplace_back();
    slot = static_cast<uint16_t>(assemblers_.size());
}

} // namespace tessaview
