#pragma once

#include <cstddef>

namespace test {

/// Blocks of task memory that nobody has released yet. The test program's own allocator counts.
std::size_t liveTaskBlocks();

/// How often something was released that was not to be: twice, or never allocated here.
std::size_t wrongReleases();

} // namespace test
