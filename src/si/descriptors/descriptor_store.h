#pragma once

#include "si/descriptors/descriptor.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

namespace lib13818 {

/// What a store has to know of one of its lists.
struct EntryType {
    uint16_t size; ///< bytes an object takes, a multiple of the store's alignment
    void (*construct)(void* place, const DescriptorReader& in);
    void (*copy)(void* place, const void* from);
    void (*destroy)(void* object);
};

/// The objects of a few typed lists in one block of memory, in the order in which they were
/// added. Most loops hold none to six descriptors of 69 classes: an empty store is one null
/// pointer, and moving a store moves a pointer.
class DescriptorStore {
public:
    static constexpr std::size_t kAlignment = alignof(std::uint64_t);
    static constexpr std::size_t kMaxLists = 128;

    DescriptorStore() = default;
    DescriptorStore(DescriptorStore&& other) noexcept : first_(std::exchange(other.first_, nullptr))
    {
    }
    DescriptorStore& operator=(DescriptorStore&& other) noexcept
    {
        std::swap(first_, other.first_);
        return *this;
    }
    DescriptorStore(const DescriptorStore&) = delete;
    DescriptorStore& operator=(const DescriptorStore&) = delete;
    ~DescriptorStore() = default; // the owner, who knows the types, calls destroyAll

    /// Makes room for `count` objects of `bytes` in all, so that adding them allocates no more.
    void reserve(std::size_t bytes, std::size_t count);
    /// Builds an object of the list behind the others. If its constructor throws, nothing is added.
    void add(std::span<const EntryType> types, std::size_t list, const DescriptorReader& in);
    /// Adds copies of what the other store holds, less the objects of one list.
    void copyFrom(std::span<const EntryType> types, const DescriptorStore& other,
                  std::size_t without = kMaxLists);
    void destroyAll(std::span<const EntryType> types) noexcept;

    bool empty() const { return !first_ || (first_->present[0] | first_->present[1]) == 0; }
    bool has(std::size_t list) const
    {
        return first_ && (first_->present[list / 64] >> list % 64 & 1) != 0;
    }

private:
    struct Block {
        Block* next;
        uint32_t used;     // bytes of objects
        uint32_t count;    // objects
        uint32_t capacity; // bytes for objects and, from the end down, one list number each
        uint64_t present[kMaxLists / 64]; // in the first block, of all of them

        std::byte* objects() { return reinterpret_cast<std::byte*>(this + 1); }
        const std::byte* objects() const { return reinterpret_cast<const std::byte*>(this + 1); }
        uint8_t listOf(uint32_t index) const
        {
            return static_cast<uint8_t>(objects()[capacity - 1 - index]);
        }
    };

public:
    /// Walks over all objects; `sizes` are those of the lists.
    class Cursor {
    public:
        Cursor() = default;
        explicit Cursor(const DescriptorStore& store) : block_(store.first_) { skipEmptyBlocks(); }

        bool atEnd() const { return !block_; }
        std::size_t list() const { return block_->listOf(index_); }
        const void* object() const { return block_->objects() + offset_; }
        void next(std::size_t size)
        {
            offset_ += static_cast<uint32_t>(size);
            ++index_;
            skipEmptyBlocks();
        }
        friend bool operator==(const Cursor& a, const Cursor& b)
        {
            return a.block_ == b.block_ && a.index_ == b.index_;
        }

    private:
        void skipEmptyBlocks()
        {
            while (block_ && index_ == block_->count) {
                block_ = block_->next;
                index_ = 0;
                offset_ = 0;
            }
        }

        const Block* block_ = nullptr;
        uint32_t index_ = 0;
        uint32_t offset_ = 0;
    };

private:
    /// The last block if it has the room, else a new one of at least `least` bytes.
    Block& roomFor(std::size_t bytes, std::size_t count, std::size_t least);
    template <class Build>
    void append(std::size_t list, std::size_t size, Build build);

    Block* first_ = nullptr;
};

} // namespace lib13818
