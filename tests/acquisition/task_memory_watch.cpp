#include "tests/acquisition/task_memory_watch.h"

#include "component/task_memory.h"

#include <cstdlib>
#include <mutex>
#include <unordered_set>

namespace {

struct Watch {
    std::mutex mutex;
    std::unordered_set<void*> live;
    std::size_t wrong = 0;
};

Watch& watch()
{
    static Watch theWatch;
    return theWatch;
}

} // namespace

// The program's symbols come before those of its libraries, so these serve everybody in it.

void* TessaviewTaskMemAlloc(std::size_t bytes)
{
    void* const block = std::malloc(bytes == 0 ? 1 : bytes);
    const std::lock_guard lock(watch().mutex);
    watch().live.insert(block);
    return block;
}

void TessaviewTaskMemFree(void* block)
{
    if (!block)
        return;
    const std::lock_guard lock(watch().mutex);
    if (watch().live.erase(block) == 1)
        std::free(block);
    else
        ++watch().wrong;
}

namespace test {

std::size_t liveTaskBlocks()
{
    const std::lock_guard lock(watch().mutex);
    return watch().live.size();
}

std::size_t wrongReleases()
{
    const std::lock_guard lock(watch().mutex);
    return watch().wrong;
}

} // namespace test
