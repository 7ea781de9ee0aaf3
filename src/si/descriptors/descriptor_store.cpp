#include "si/descriptors/descriptor_store.h"

#include <algorithm>
#include <new>

namespace lib13818 {

namespace {

// What a single `add` makes room for: a handful of descriptors.
constexpr std::size_t kUnplannedBytes = 256;

} // namespace

DescriptorStore::Block& DescriptorStore::roomFor(std::size_t bytes, std::size_t count,
                                                 std::size_t least)
{
    Block** end = &first_;
    for (; *end; end = &(*end)->next) {
        Block& block = **end;
        if (!block.next && block.used + bytes + block.count + count <= block.capacity)
            return block;
    }
    const std::size_t wanted = std::max(bytes + count, least);
    const std::size_t capacity = (wanted + kAlignment - 1) / kAlignment * kAlignment;
    *end = new (::operator new(sizeof(Block) + capacity))
        Block{.next = nullptr,
              .used = 0,
              .count = 0,
              .capacity = static_cast<uint32_t>(capacity),
              .present = {}};
    return **end;
}

void DescriptorStore::reserve(std::size_t bytes, std::size_t count)
{
    if (count != 0)
        roomFor(bytes, count, 0);
}

template <class Build>
void DescriptorStore::append(std::size_t list, std::size_t size, Build build)
{
    Block& block = roomFor(size, 1, kUnplannedBytes);
    build(block.objects() + block.used);
    block.objects()[block.capacity - 1 - block.count] = static_cast<std::byte>(list);
    block.used += static_cast<uint32_t>(size);
    ++block.count;
    first_->present[list / 64] |= uint64_t{1} << list % 64;
}

void DescriptorStore::add(std::span<const EntryType> types, std::size_t list,
                          const DescriptorReader& in)
{
    append(list, types[list].size, [&](void* place) { types[list].construct(place, in); });
}

void DescriptorStore::copyFrom(std::span<const EntryType> types, const DescriptorStore& other,
                               std::size_t without)
{
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (const Block* block = other.first_; block; block = block->next) {
        bytes += block->used;
        count += block->count;
    }
    reserve(bytes, count);
    for (Cursor from(other); !from.atEnd(); from.next(types[from.list()].size)) {
        const std::size_t list = from.list();
        if (list == without)
            continue;
        append(list, types[list].size,
               [&](void* place) { types[list].copy(place, from.object()); });
    }
}

void DescriptorStore::destroyAll(std::span<const EntryType> types) noexcept
{
    while (Block* block = std::exchange(first_, first_ ? first_->next : nullptr)) {
        std::byte* object = block->objects();
        for (uint32_t i = 0; i < block->count; ++i) {
            const EntryType& type = types[block->listOf(i)];
            type.destroy(object);
            object += type.size;
        }
        ::operator delete(block);
    }
}

} // namespace lib13818
