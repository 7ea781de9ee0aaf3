#pragma once

#include <cstddef>
#include <memory>

// The one allocator that the program and every component share: what one side of an interface
// allocates here, the other side may release. Callable from C.

extern "C" {

/// A block of `bytes` bytes, or null when there is no memory. Thread-safe.
__attribute__((visibility("default"))) void* TessaviewTaskMemAlloc(std::size_t bytes);

/// Releases a block of `TessaviewTaskMemAlloc`; null is allowed. Thread-safe.
__attribute__((visibility("default"))) void TessaviewTaskMemFree(void* block);

} // extern "C"

namespace tessaview {

/// Releases task memory that a smart pointer owns.
struct TaskMemDeleter {
    void operator()(void* block) const { TessaviewTaskMemFree(block); }
};

template <class T>
using TaskMemPtr = std::unique_ptr<T, TaskMemDeleter>;

} // namespace tessaview
