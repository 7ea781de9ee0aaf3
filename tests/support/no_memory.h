#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace test {

/// While it lives there is no memory for the next block of so many bytes or more, but again for
/// those after it. Replaces the operators of the program, so one file of it includes this.
class NoMemory {
public:
    explicit NoMemory(std::size_t bytes) { limit = bytes; }
    NoMemory(const NoMemory&) = delete;
    NoMemory& operator=(const NoMemory&) = delete;
    ~NoMemory() { limit = SIZE_MAX; }

    static bool refuses(std::size_t bytes)
    {
        const bool isTooMuch = bytes >= limit;
        if (isTooMuch)
            limit = SIZE_MAX;
        return isTooMuch;
    }

private:
    static inline thread_local std::size_t limit = SIZE_MAX;
};

} // namespace test

// All forms, so that none of them takes what another gave. Not inlined: compilers take malloc and
// delete, or new and free, side by side for a mistake.
[[gnu::noinline]] void* operator new(std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept
{
    return test::NoMemory::refuses(bytes) ? nullptr : std::malloc(bytes);
}
[[gnu::noinline]] void* operator new(std::size_t bytes)
{
    void* const block = operator new(bytes, std::nothrow);
    return block ? block : throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new[](std::size_t bytes, const std::nothrow_t& /*tag*/) noexcept
{
    return operator new(bytes, std::nothrow);
}
[[gnu::noinline]] void* operator new[](std::size_t bytes)
{
    return operator new(bytes);
}
[[gnu::noinline]] void operator delete(void* block) noexcept
{
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t /*bytes*/) noexcept
{
    std::free(block);
}
[[gnu::noinline]] void operator delete[](void* block) noexcept
{
    std::free(block);
}
[[gnu::noinline]] void operator delete[](void* block, std::size_t /*bytes*/) noexcept
{
    std::free(block);
}
