#pragma once

#include "component/task_memory.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace tessaview {

/// One section in task memory, so that it can be handed over as it is.
class RawSection {
public:
    RawSection() = default;
    /// A copy. Throws std::bad_alloc.
    explicit RawSection(std::span<const uint8_t> section);

    bool empty() const { return size_ == 0; }
    std::size_t size() const { return size_; }
    const uint8_t* data() const { return bytes_.get(); }
    uint8_t operator[](std::size_t at) const { return bytes_.get()[at]; }
    const uint8_t* begin() const { return data(); }
    const uint8_t* end() const { return data() + size_; }

    /// The block, which is the caller's from now on.
    uint8_t* release()
    {
        size_ = 0;
        return bytes_.release();
    }

private:
    TaskMemPtr<uint8_t> bytes_;
    std::size_t size_ = 0;
};

/// A block of task memory. Throws std::bad_alloc.
void* taskMemory(std::size_t bytes);

} // namespace tessaview
