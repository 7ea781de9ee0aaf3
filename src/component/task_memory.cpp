#include "component/task_memory.h"

#include <cstdlib>

void* TessaviewTaskMemAlloc(std::size_t bytes)
{
    // A block of its own even for nothing, so that null always means "no memory".
    return std::malloc(bytes == 0 ? 1 : bytes); // NOLINT(cppcoreguidelines-no-malloc)
}

void TessaviewTaskMemFree(void* block)
{
    std::free(block); // NOLINT(cppcoreguidelines-no-malloc)
}
