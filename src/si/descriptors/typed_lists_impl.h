#pragma once

// The members of TypedLists that touch every class, for the one file per set that instantiates it.

#include "si/descriptors/typed_lists.h"

#include <new>

namespace lib13818 {

template <class Classes>
const std::array<EntryType, TypedLists<Classes>::kCount> TypedLists<Classes>::kTypes = [] {
    std::array<EntryType, kCount> types{};
    forEachType([&]<class List>() {
        using Entry = typename EntryOf<List>::Type;
        types[kIndex<List>] = {
            .size = kSizes[kIndex<List>],
            .construct = [](void* place, const DescriptorReader& in) { new (place) Entry(in); },
            .copy = [](void* place,
                       const void* from) { new (place) Entry(*static_cast<const Entry*>(from)); },
            .destroy = [](void* object) { static_cast<Entry*>(object)->~Entry(); }};
    });
    return types;
}();

template <class Classes>
TypedLists<Classes>::TypedLists(const TypedLists& other)
{
    try {
        store_.copyFrom(kTypes, other.store_);
    } catch (...) {
        store_.destroyAll(kTypes);
        throw;
    }
}

template <class Classes>
TypedLists<Classes>::~TypedLists()
{
    store_.destroyAll(kTypes);
}

template <class Classes>
void TypedLists<Classes>::add(const unsigned char* descriptor)
{
    store_.add(kTypes, kListOfTag[descriptor[0]], descriptor);
}

template <class Classes>
std::size_t TypedLists<Classes>::addLoop(std::span<const uint8_t> loop)
{
    std::size_t bytes = 0;
    std::size_t count = 0;
    forEachDescriptor(loop, [&](const uint8_t* descriptor) {
        bytes += kSizes[kListOfTag[descriptor[0]]];
        ++count;
    });
    store_.reserve(bytes, count);
    return forEachDescriptor(loop, [this](const uint8_t* descriptor) { add(descriptor); });
}

template <class Classes>
void TypedLists<Classes>::remove(std::size_t list)
{
    TypedLists others;
    others.store_.copyFrom(kTypes, store_, list);
    std::swap(store_, others.store_);
}

template <class Classes>
void TypedLists<Classes>::dump(std::ostream& out) const
{
    forEachType([&]<class List>() {
        for (const auto& descriptor : all<List>())
            descriptor.dump(out);
    });
}

} // namespace lib13818
